#include <MLCore/values/ValueComparison.h>

#include <MLCore/core/FailureChecks.h>
#include <MLCore/platform/FaultTranslation.h>
#include <MLCore/platform/WinTypes.h>
#include <MLCore/text/LegacyStrings.h>
#include <MLCore/values/LikePattern.h>
#include <MLCore/values/TolerantComparison.h>
#include <MLCore/values/detail/TextRules.h>

#include <compare>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <string_view>

namespace MLCore {

namespace {

using TYPE = CVALUE::Type;
using textrules::FOLD;
using textrules::RowOf;

short SignOf(std::weak_ordering order) noexcept { return static_cast<short>((order > 0) - (order < 0)); }

/// `read` is null for a type that is not a number.
struct NUMBERROW {
    TYPE type;
    double (*read)(const CVALUE& value);
};

constexpr NUMBERROW kNumbers[] = {
    {TYPE::Unknown, nullptr},
    {TYPE::Short, [](const CVALUE& value) -> double { return value.ToShort(); }},
    {TYPE::UShort, [](const CVALUE& value) -> double { return value.ToWord(); }},
    {TYPE::Long, [](const CVALUE& value) { return static_cast<double>(value.ToLong()); }},
    {TYPE::ULong, [](const CVALUE& value) { return static_cast<double>(value.ToDWord()); }},
    {TYPE::Date, nullptr},
    {TYPE::Time, [](const CVALUE& value) -> double { return value.ToTime().GetTotalSeconds(); }},
    {TYPE::String, nullptr},
    {TYPE::Float, [](const CVALUE& value) { return static_cast<double>(value.ToFloat()); }},
    {TYPE::Double, [](const CVALUE& value) { return value.ToDouble(); }},
    {TYPE::DateTime, nullptr},
    {TYPE::Bool, [](const CVALUE& value) -> double { return value.ToBool(); }},
    {TYPE::Object, nullptr},
    {TYPE::Guid, nullptr},
};
static_assert(IsIndexedBy(kNumbers, &NUMBERROW::type, CVALUE::kTypeCount));

constexpr const char* kDescriptions[] = {"without an order", "a number", "a date", "a text", "a GUID"};
static_assert(std::size(kDescriptions) == kValueKindCount);

short CompareExactly(const char* left, const char* right) noexcept {
    const int order = std::strcmp(left, right);
    return static_cast<short>((order > 0) - (order < 0));
}

constexpr TextOrder kTextOrders[] = {CompareExactly, CompareNoCaseLocale, lstrcmpinolocal};

// By option. The letters of a part and of the text around it have to be alike one by one, which an order of texts,
// where "ß" equals "ss", does not say.
constexpr FOLD kPartFolds[] = {nullptr, UpperAnsi, WithoutAccentOrCase};

/// Begins, Ends and Contains: 0 with a null. Fails with kErrValueType when either value is not a text.
using SEARCH = bool (*)(std::string_view, std::string_view, FOLD) noexcept;
int HasPart(const CVALUE& value, const CVALUE& other, CVALUEOBJECT::ComparisonOption option, SEARCH search) {
    if (value.IsNull() != 0 || other.IsNull() != 0) {
        return 0;
    }
    if (value.GetType() != TYPE::String || other.GetType() != TYPE::String) [[unlikely]] {
        FailWith(kErrValueType, "cannot look for ", CVALUE::DescribeType(other.GetType()), " in ",
                 CVALUE::DescribeType(value.GetType()), ", wanted two Strings");
    }
    const char* const text = value;
    const char* const part = other;
    return search(text, part, RowOf(kPartFolds, option)) ? 1 : 0;
}

}  // namespace

const char* DescribeKind(ValueKind kind) noexcept {
    const auto index = static_cast<std::size_t>(kind);
    return kDescriptions[index < kValueKindCount ? index : 0];
}

void FailKind(const CVALUE& value, const char* wanted) {
    FailWith(kErrValueType, "the value is ", CVALUE::DescribeType(value.GetType()), ", wanted ", wanted);
}

double NumberOf(const CVALUE& value) {
    const auto read = kNumbers[static_cast<std::size_t>(value.GetType())].read;
    if (read == nullptr) [[unlikely]] {
        FailKind(value, "a number");
    }
    return read(value);
}

TextOrder TextOrderOf(CVALUEOBJECT::ComparisonOption option) noexcept { return RowOf(kTextOrders, option); }

/// The order of two values, by the kind of the first.
struct CVALUEOBJECT::ORDERING {
    using ORDER = short (*)(const CVALUEOBJECT& object, const CVALUE& other, ComparisonOption option);

    static short Numbers(const CVALUEOBJECT& object, const CVALUE& other, ComparisonOption) {
        return DoubleCmp(NumberOf(object.mValue), NumberOf(other));
    }
    static short Dates(const CVALUEOBJECT& object, const CVALUE& other, ComparisonOption) {
        const bool areDates = object.mValue.GetType() == TYPE::Date && other.GetType() == TYPE::Date;
        return areDates ? SignOf(object.mValue.ToDate() <=> other.ToDate())  // the same, sooner
                        : SignOf(DateTimeOf(object.mValue) <=> DateTimeOf(other));
    }
    static short Texts(const CVALUEOBJECT& object, const CVALUE& other, ComparisonOption option) {
        return object.CmpString(TryToString(object.mValue), TryToString(other), option);
    }
    static short Guids(const CVALUEOBJECT& object, const CVALUE& other, ComparisonOption) {
        const _GUID left = object.mValue.ToGuid();
        const _GUID right = other.ToGuid();
        return SignOf(std::memcmp(&left, &right, sizeof(left)) <=> 0);
    }

    static constexpr ORDER kOrders[] = {nullptr, Numbers, Dates, Texts, Guids};
    static_assert(std::size(kOrders) == kValueKindCount);
};

bool CVALUEOBJECT::HasOrder(const CVALUE& other) const noexcept {
    return other.IsNull() == 0 && KindOf(mValue.GetType()) != ValueKind::Unordered;
}

short CVALUEOBJECT::Order(const CVALUE& other, ComparisonOption option) const {
    [[maybe_unused]] const platform::FAULTTRANSLATION translation;
    const ValueKind kind = KindOf(mValue.GetType());
    if (KindOf(other.GetType()) != kind) [[unlikely]] {
        FailWith(kErrValueType, "cannot compare ", CVALUE::DescribeType(mValue.GetType()), " with ",
                 CVALUE::DescribeType(other.GetType()));
    }
    return ORDERING::kOrders[static_cast<std::size_t>(kind)](*this, other, option);
}

int CVALUEOBJECT::CmpLesser(const CVALUE& other, ComparisonOption option) const {
    return HasOrder(other) && Order(other, option) < 0 ? 1 : 0;
}

int CVALUEOBJECT::CmpLesserEq(const CVALUE& other, ComparisonOption option) const {
    return HasOrder(other) && Order(other, option) <= 0 ? 1 : 0;
}

int CVALUEOBJECT::CmpGreater(const CVALUE& other, ComparisonOption option) const {
    return HasOrder(other) && Order(other, option) > 0 ? 1 : 0;
}

int CVALUEOBJECT::CmpGreaterEq(const CVALUE& other, ComparisonOption option) const {
    return HasOrder(other) && Order(other, option) >= 0 ? 1 : 0;
}

int CVALUEOBJECT::CmpEqual(const CVALUE& other, ComparisonOption option) const {
    const bool equal = HasOrder(other) ? Order(other, option) == 0 : mValue == other;
    return equal ? 1 : 0;
}

int CVALUEOBJECT::CmpNotEqual(const CVALUE& other, ComparisonOption option) const {
    return 1 - CmpEqual(other, option);
}

int CVALUEOBJECT::CmpLike(const CVALUE& other, ComparisonOption option) const {
    const bool texts = mValue.GetType() == TYPE::String && other.GetType() == TYPE::String;
    return texts ? MatchesLike(TryToString(mValue), TryToString(other), option) : 0;
}

int CVALUEOBJECT::CmpBegins(const CVALUE& other, ComparisonOption option) const {
    return HasPart(mValue, other, option, textrules::Begins);
}

int CVALUEOBJECT::CmpEnds(const CVALUE& other, ComparisonOption option) const {
    return HasPart(mValue, other, option, textrules::Ends);
}

int CVALUEOBJECT::CmpContains(const CVALUE& other, ComparisonOption option) const {
    return HasPart(mValue, other, option, textrules::Contains);
}

int CVALUEOBJECT::CmpLike(const char* text, const char* pattern) const {
    return MatchesLike(text, pattern, ComparisonOption::CaseSensitive);
}

int CVALUEOBJECT::CmpContains(const char* text, const char* part) const {
    return textrules::Contains(text, part, nullptr) ? 1 : 0;
}

short CVALUEOBJECT::CmpString(const char* left, const char* right, ComparisonOption option) const {
    return TextOrderOf(option)(left, right);
}

double CVALUEOBJECT::TryToDouble(const CVALUE& value) { return NumberOf(value); }

CDATETIME CVALUEOBJECT::TryToDateTime(const CVALUE& value) { return DateTimeOf(value); }

const char* CVALUEOBJECT::TryToString(const CVALUE& value) { return value; }

}  // namespace MLCore
