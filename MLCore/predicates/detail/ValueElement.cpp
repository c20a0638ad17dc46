#include <MLCore/predicates/detail/ValueElement.h>

#include <MLCore/core/FailureChecks.h>
#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/keys/CKEYWRITER.h>
#include <MLCore/text/DecimalText.h>
#include <MLCore/text/DoubleText.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <utility>

namespace MLCore {

namespace {

using TYPE = CVALUE::Type;

constexpr const char* kType = "type";
constexpr const char* kValue = "value";
constexpr char kTimeMark = 'T';

// A text that is not a value of the type is read as nothing.
using READVALUE = std::optional<CVALUE>;

template <class Number>
std::optional<Number> NumberOf(const std::string& text) {
    using LIMITS = std::numeric_limits<Number>;
    long long number = 0;
    const bool isNumber = ParseInteger(text, number) != 0 && number >= LIMITS::min() && number <= LIMITS::max();
    return isNumber ? std::optional(static_cast<Number>(number)) : std::nullopt;
}

// `As` is the type of which a value is made.
template <class Number, class As = Number>
READVALUE ReadInteger(const std::string& text) {
    const std::optional<Number> number = NumberOf<Number>(text);
    return number ? READVALUE(static_cast<As>(*number)) : std::nullopt;
}

READVALUE ReadDouble(const std::string& text) {
    double number = 0;
    return ParseDouble(text, number) != 0 ? READVALUE(number) : std::nullopt;
}

READVALUE ReadFloat(const std::string& text) {
    constexpr double kWrittenMax = 3.4028235e38;  // the shortest text of the largest float, which is a little less
    constexpr double kMax = std::numeric_limits<float>::max();
    double number = 0;
    if (ParseDouble(text, number) == 0 || (std::isfinite(number) && std::abs(number) > kWrittenMax)) {
        return std::nullopt;
    }
    const float stored = static_cast<float>(std::isfinite(number) ? std::clamp(number, -kMax, kMax) : number);
    return stored != 0 || number == 0 ? READVALUE(stored) : std::nullopt;
}

READVALUE ReadString(const std::string& text) { return CVALUE(text); }

// Dates and times without a zone, as ISO 8601 writes them. A text that is not written back as it was read is not one.

std::optional<CDATE> DateOf(const std::string& text) {
    CDATE date;
    const bool isDate = text.empty() || (date.FromStringXML(text.c_str()) != 0 && date.ToStringXML() == text);
    return isDate ? std::optional(date) : std::nullopt;
}

std::optional<CTIME> TimeOf(const std::string& text) {
    CTIME time;
    const bool isTime = time.FromString(text.c_str()) != 0 && time.ToString() == text;
    return isTime ? std::optional(time) : std::nullopt;
}

READVALUE ReadDate(const std::string& text) {
    const std::optional<CDATE> date = DateOf(text);
    return date ? READVALUE(*date) : std::nullopt;
}

READVALUE ReadTime(const std::string& text) {
    const std::optional<CTIME> time = TimeOf(text);
    return time ? READVALUE(*time) : std::nullopt;
}

READVALUE ReadDateTime(const std::string& text) {
    if (text.empty()) {
        return CVALUE(CDATETIME());
    }
    const std::size_t mark = text.find(kTimeMark);
    if (mark == std::string::npos) {
        return std::nullopt;
    }
    const std::optional<CDATE> date = DateOf(text.substr(0, mark));
    const std::optional<CTIME> time = TimeOf(text.substr(mark + 1));
    return date && time ? READVALUE(CDATETIME(*date, *time)) : std::nullopt;
}

template <auto accessor>
std::string WriteInteger(const CVALUE& value) {
    return std::to_string((value.*accessor)());
}

template <auto append, auto accessor>
std::string WriteReal(const CVALUE& value) {
    std::string text;
    append(text, (value.*accessor)());
    return text;
}

std::string TextOf(const CDATE& date) {
    std::string text = date.ToStringXML();
    if (date.IsNull() == 0 && date.IsDate() == 0) {
        FailWith(kErrValueType, "the date ", Quoted(text), " is not valid and cannot be written");
    }
    return text;
}

std::string TextOf(const CTIME& time) {
    Require(time.IsTime() != 0, kErrValueType, "a time outside 00:00:00 to 23:59:59 cannot be written");
    return time.ToString();
}

std::string TextOf(const CDATETIME& moment) {
    return moment == CDATETIME() ? "" : TextOf(moment.GetDate()) + kTimeMark + TextOf(moment.GetTime());
}

template <auto accessor>
std::string WriteText(const CVALUE& value) {
    return TextOf((value.*accessor)());
}

struct FORM {
    TYPE type;
    const char* name;
    std::string (*write)(const CVALUE& value);
    READVALUE (*read)(const std::string& text);
};

constexpr FORM kForms[] = {
    {TYPE::Short, "short", WriteInteger<&CVALUE::ToShort>, ReadInteger<short>},
    {TYPE::UShort, "uShort", WriteInteger<&CVALUE::ToWord>, ReadInteger<unsigned short>},
    {TYPE::Long, "long", WriteInteger<&CVALUE::ToLong>, ReadInteger<std::int32_t, long>},
    {TYPE::ULong, "uLong", WriteInteger<&CVALUE::ToDWord>, ReadInteger<std::uint32_t, unsigned long>},
    {TYPE::Date, "date", WriteText<&CVALUE::ToDate>, ReadDate},
    {TYPE::Time, "time", WriteText<&CVALUE::ToTime>, ReadTime},
    {TYPE::String, "string", [](const CVALUE& value) { return value.ToString(); }, ReadString},
    {TYPE::Float, "float", WriteReal<AppendFloat, &CVALUE::ToFloat>, ReadFloat},
    {TYPE::Double, "double", WriteReal<AppendDouble, &CVALUE::ToDouble>, ReadDouble},
    {TYPE::DateTime, "dateTime", WriteText<&CVALUE::ToDateTime>, ReadDateTime},
    {TYPE::Bool, "bool", WriteInteger<&CVALUE::ToBool>, ReadInteger<std::int32_t, int>},
};

/// The form that `isWanted` accepts, or null.
template <class Test>
const FORM* FindForm(const Test& isWanted) {
    const FORM* const found = std::find_if(std::begin(kForms), std::end(kForms), isWanted);
    return found != std::end(kForms) ? found : nullptr;
}

[[noreturn]] void FailType(const CKEYREADER& reader, const std::string& name) {
    std::string known;
    for (const FORM& form : kForms) {
        known.append(known.empty() ? "" : ", ").append(form.name);
    }
    reader.FailHere("the type of a value is ", Quoted(name), ", wanted one of ", known);
}

}  // namespace

void WriteValueElement(CKEYWRITER& writer, const char* element, const CVALUE& value) {
    if (value.IsNull() != 0) {
        writer.BeginElement(element);
        writer.EndElement();
        return;
    }
    const FORM* const form = FindForm([&value](const FORM& row) { return row.type == value.GetType(); });
    if (form == nullptr) {
        FailWith(kErrValueType, "the value is ", CVALUE::DescribeType(value.GetType()),
                 ", which a key stream cannot hold");
    }
    const std::string text = form->write(value);
    writer.BeginElement(element);
    writer.SetAttribute(kType, form->name);
    writer.SetAttribute(kValue, text);
    writer.EndElement();
}

CVALUE ReadValueElement(CKEYREADER& reader, const char* element) {
    CVALUE value;
    reader.BeginElement(element);
    if (reader.HasAttribute(kType) != 0) {
        const std::string name = reader.GetAttribute(kType);
        const FORM* const form = FindForm([&name](const FORM& row) { return row.name == name; });
        if (form == nullptr) {
            FailType(reader, name);
        }
        const std::string& text = reader.GetAttribute(kValue);
        READVALUE read = form->read(text);
        if (!read) {
            reader.FailHere(Quoted(text), " is not a value of the type ", form->name);
        }
        value = std::move(*read);
    }
    reader.EndElement();
    return value;
}

}  // namespace MLCore
