#include <MLCore/values/ValueText.h>

#include <MLCore/text/DoubleText.h>
#include <MLCore/values/CVALUE.h>

#include <ostream>

namespace MLCore {

namespace {

void AppendQuoted(std::string& out, std::string_view text) {
    out += '\'';
    for (const char character : text) {
        out.append(character == '\'' ? 2 : 1, character);
    }
    out += '\'';
}

}  // namespace

void AppendValueText(std::string& out, const CVALUE& value, bool quoted) {
    using Type = CVALUE::Type;
    switch (value.GetType()) {
        case Type::Unknown:
            out += "Null";
            break;
        case Type::Short:
            out += std::to_string(value.ToShort());
            break;
        case Type::UShort:
            out += std::to_string(value.ToWord());
            break;
        case Type::Long:
            out += std::to_string(value.ToLong());
            break;
        case Type::ULong:
            out += std::to_string(value.ToDWord());
            break;
        case Type::Date:
            out += value.ToDate().ToStringLong();
            break;
        case Type::Time:
            out += "CTIME = " + value.ToTime().ToString();
            out += " CTIMESPAN = " + value.ToTimeSpan().ToString();
            break;
        case Type::String:
            if (quoted) {
                AppendQuoted(out, static_cast<const char*>(value));
            } else {
                out += static_cast<const char*>(value);
            }
            break;
        case Type::Float:
            AppendFloat(out, value.ToFloat());
            break;
        case Type::Double:
            AppendDouble(out, value.ToDouble());
            break;
        case Type::DateTime:
            out += value.ToDateTime().ToStringXML();
            break;
        case Type::Bool:
            out += value.ToBool() != 0 ? '1' : '0';
            break;
        default:
            out += "CVALUEINCONNU";
    }
}

std::ostream& operator<<(std::ostream& out, const CVALUE& value) {
    std::string text;
    AppendValueText(text, value, false);
    return out << text;
}

}  // namespace MLCore
