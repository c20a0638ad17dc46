#include <MLCore/values/ValueText.h>

#include <MLCore/core/EnumTable.h>
#include <MLCore/text/DoubleText.h>
#include <MLCore/values/CVALUE.h>

#include <cstddef>
#include <ostream>
#include <string_view>

namespace MLCore {

namespace {

void AppendQuoted(std::string& out, std::string_view text) {
    out += '\'';
    for (const char character : text) {
        out.append(character == '\'' ? 2 : 1, character);
    }
    out += '\'';
}

using APPEND = void (*)(std::string& out, const CVALUE& value);

void AppendUnknown(std::string& out, const CVALUE&) { out += "CVALUEINCONNU"; }

template <auto accessor>
void AppendInteger(std::string& out, const CVALUE& value) {
    out += std::to_string((value.*accessor)());
}

void AppendTime(std::string& out, const CVALUE& value) {
    out += "CTIME = " + value.ToTime().ToString();
    out += " CTIMESPAN = " + value.ToTimeSpan().ToString();
}

struct TYPEROW {
    CVALUE::Type type;
    APPEND append;
};

constexpr TYPEROW kTypes[] = {
    {CVALUE::Type::Unknown, [](std::string& out, const CVALUE&) { out += "Null"; }},
    {CVALUE::Type::Short, AppendInteger<&CVALUE::ToShort>},
    {CVALUE::Type::UShort, AppendInteger<&CVALUE::ToWord>},
    {CVALUE::Type::Long, AppendInteger<&CVALUE::ToLong>},
    {CVALUE::Type::ULong, AppendInteger<&CVALUE::ToDWord>},
    {CVALUE::Type::Date, [](std::string& out, const CVALUE& value) { out += value.ToDate().ToStringLong(); }},
    {CVALUE::Type::Time, AppendTime},
    {CVALUE::Type::String, [](std::string& out, const CVALUE& value) { out += static_cast<const char*>(value); }},
    {CVALUE::Type::Float, [](std::string& out, const CVALUE& value) { AppendFloat(out, value.ToFloat()); }},
    {CVALUE::Type::Double, [](std::string& out, const CVALUE& value) { AppendDouble(out, value.ToDouble()); }},
    {CVALUE::Type::DateTime, [](std::string& out, const CVALUE& value) { out += value.ToDateTime().ToStringXML(); }},
    {CVALUE::Type::Bool, [](std::string& out, const CVALUE& value) { out += value.ToBool() != 0 ? '1' : '0'; }},
    {CVALUE::Type::Object, AppendUnknown},
    {CVALUE::Type::Guid, AppendUnknown},
};
static_assert(IsIndexedBy(kTypes, &TYPEROW::type, CVALUE::kTypeCount));

}  // namespace

void AppendValueText(std::string& out, const CVALUE& value, bool quoted) {
    if (quoted && value.GetType() == CVALUE::Type::String) {
        AppendQuoted(out, static_cast<const char*>(value));
    } else {
        kTypes[static_cast<std::size_t>(value.GetType())].append(out, value);
    }
}

std::ostream& operator<<(std::ostream& out, const CVALUE& value) {
    std::string text;
    AppendValueText(text, value, false);
    return out << text;
}

}  // namespace MLCore
