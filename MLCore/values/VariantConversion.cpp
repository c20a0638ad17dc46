// The part of CVALUE that knows variants.

#include <MLCore/core/FailureChecks.h>
#include <MLCore/platform/OleDate.h>
#include <MLCore/platform/WideText.h>
#include <MLCore/platform/WinTypes.h>
#include <MLCore/values/CVALUE.h>

#include <optional>

namespace MLCore {

namespace {

constexpr CDATE kOleDayZero(30, 12, 1899);

/// 0.0 for the null date, which is how dates and times read it too.
double OleDateFrom(const CDATE& date, const CTIME& time) {
    if (date.IsNull() != 0) {
        return 0.0;
    }
    double result = 0.0;
    // A year of one or two digits would be taken for one of our time.
    if (CDATETIME(date, time).IsDateTime() == 0 || date.GetYear() < 100 ||
        !platform::OleDateFromCivil(
            {date.GetYear(), date.GetMonth(), date.GetDay(), time.GetHours(), time.GetMinutes(), time.GetSeconds()},
            result)) {
        FailWith(kErrValueType, "the date ", date.ToStringXML(), " ", time.ToString(), " cannot be held by a variant");
    }
    return result;
}

std::optional<CVALUE> DateValue(double date) {
    platform::CIVILTIME civil;
    if (date == 0.0) {
        return CDATETIME();
    }
    if (!platform::CivilFromOleDate(date, civil)) {
        return std::nullopt;
    }
    return CDATETIME(CDATE(date), CTIME(date));
}

/// Nothing when no value can hold what the variant holds.
std::optional<CVALUE> ValueOf(const VARIANT& variant) {
    switch (variant.vt) {
        case VT_EMPTY:
        case VT_NULL:
            return CVALUE();
        case VT_I2:
            return variant.iVal;
        case VT_UI2:
            return variant.uiVal;
        case VT_I4:
            return long{variant.lVal};
        case VT_INT:
            return long{variant.intVal};
        case VT_UI4:
            return static_cast<unsigned long>(variant.ulVal);
        case VT_UINT:
            return static_cast<unsigned long>(variant.uintVal);
        case VT_R4:
            return variant.fltVal;
        case VT_R8:
            return variant.dblVal;
        case VT_BOOL:
            return variant.boolVal != VARIANT_FALSE ? 1 : 0;
        case VT_BSTR:
            return platform::AnsiText(variant.bstrVal);
        case VT_DATE:
            return DateValue(variant.date);
        default:
            return std::nullopt;
    }
}

}  // namespace

CVALUE::CVALUE(const _variant_t& value) {
    std::optional<CVALUE> read = ValueOf(value);
    if (!read && value.vt == VT_DATE) {
        FailWith(kErrValueType, "the variant date ", value.date, " is not a valid date");
    }
    if (!read) {
        FailWith(kErrValueType, "a variant of the type ", value.vt, " has no counterpart among the values");
    }
    Swap(*read);
}

bool CVALUE::IsVariant(const _variant_t& variant) const {
    switch (variant.vt) {
        case VT_R4:
            return *this == variant.fltVal;
        case VT_R8:
            return *this == variant.dblVal;
        default:
            return ValueOf(variant) == *this;
    }
}

_variant_t CVALUE::ToVariant() const {
    switch (mType) {
        case Type::Short:
            return ToShort();
        case Type::UShort:
            return ToWord();
        case Type::Long:
            return ToLong();
        case Type::ULong:
            return ToDWord();
        case Type::Float:
            return ToFloat();
        case Type::Double:
            return ToDouble();
        case Type::Bool:
            return ToBool() != 0;
        case Type::String:
            return platform::WideText(*this).c_str();
        case Type::Date:
            return {OleDateFrom(ToDate(), CTIME()), VT_DATE};
        case Type::Time:
            return {OleDateFrom(kOleDayZero, ToTime()), VT_DATE};
        case Type::DateTime:
            return {OleDateFrom(ToDateTime().GetDate(), ToDateTime().GetTime()), VT_DATE};
        case Type::Unknown:
            return {};
        default:
            FailWith(kErrValueType, "the value is ", DescribeType(mType), ", which no variant can hold");
    }
}

}  // namespace MLCore
