// How a CVALUEOBJECT compares its value: the comparison types, and the order behind them.

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/platform/FaultTranslation.h>
#include <MLCore/platform/WinTypes.h>
#include <MLCore/text/LegacyStrings.h>
#include <MLCore/values/CVALUEOBJECT.h>
#include <MLCore/values/Cmp.h>
#include <MLCore/values/LikePattern.h>
#include <MLCore/values/detail/TextRules.h>

#include <compare>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace MLCore {

namespace {

using TYPE = CVALUE::Type;
using textrules::FOLD;
using textrules::RowOf;

short SignOf(std::weak_ordering order) noexcept { return static_cast<short>((order > 0) - (order < 0)); }

short CompareExactly(const char* left, const char* right) noexcept { return SignOf(std::strcmp(left, right) <=> 0); }

// By option. The letters of a part and of the text around it have to be alike one by one, which a locale's order, where
// "ß" is "ss", does not tell.
using COMPARETEXTS = short (*)(const char*, const char*) noexcept;
constexpr COMPARETEXTS kTextOrders[] = {CompareExactly, CompareNoCaseLocale, lstrcmpinolocal};
constexpr FOLD kPartFolds[] = {nullptr, UpperAnsi, WithoutAccentOrCase};

/// Begins, Ends and Contains. A null has no part and is none; what else is no text fails.
using SEARCH = bool (*)(std::string_view, std::string_view, FOLD) noexcept;
int HasPart(const CVALUE& value, const CVALUE& other, CVALUEOBJECT::ComparisonOption option, SEARCH search) {
    if (value.IsNull() != 0 || other.IsNull() != 0) {
        return 0;
    }
    const char* const text = value;
    const char* const part = other;
    return search(text, part, RowOf(kPartFolds, option)) ? 1 : 0;
}

/// The number in a value, by type; null for a type that has none.
using NUMBER = double (*)(const CVALUE&);
constexpr NUMBER kNumbers[] = {
    nullptr,                                                                             // Unknown
    [](const CVALUE& value) -> double { return value.ToShort(); },                       // Short
    [](const CVALUE& value) -> double { return value.ToWord(); },                        // UShort
    [](const CVALUE& value) -> double { return static_cast<double>(value.ToLong()); },   // Long
    [](const CVALUE& value) -> double { return static_cast<double>(value.ToDWord()); },  // ULong
    nullptr,                                                                             // Date
    [](const CVALUE& value) -> double { return value.ToTime().GetTotalSeconds(); },      // Time
    nullptr,                                                                             // String
    [](const CVALUE& value) -> double { return static_cast<double>(value.ToFloat()); },  // Float
    [](const CVALUE& value) -> double { return value.ToDouble(); },                      // Double
    nullptr,                                                                             // DateTime
    [](const CVALUE& value) -> double { return value.ToBool(); },                        // Bool
    nullptr,                                                                             // Object
    nullptr,                                                                             // Guid
};

}  // namespace

/// The order of two values, by the type of the first.
struct CVALUEOBJECT::ORDERING {
    using ORDER = short (*)(const CVALUEOBJECT& object, const CVALUE& other, ComparisonOption option);

    static short Numbers(const CVALUEOBJECT& object, const CVALUE& other, ComparisonOption) {
        return DoubleCmp(TryToDouble(object.mValue), TryToDouble(other));
    }
    static short Dates(const CVALUEOBJECT& object, const CVALUE& other, ComparisonOption option) {
        return other.GetType() == TYPE::DateTime ? DateTimes(object, other, option)
                                                 : SignOf(object.mValue.ToDate() <=> other.ToDate());
    }
    static short DateTimes(const CVALUEOBJECT& object, const CVALUE& other, ComparisonOption) {
        return SignOf(TryToDateTime(object.mValue) <=> TryToDateTime(other));
    }
    static short Texts(const CVALUEOBJECT& object, const CVALUE& other, ComparisonOption option) {
        return object.CmpString(TryToString(object.mValue), TryToString(other), option);
    }
    static short Guids(const CVALUEOBJECT& object, const CVALUE& other, ComparisonOption) {
        const _GUID left = object.mValue.ToGuid();
        const _GUID right = other.ToGuid();
        return SignOf(std::memcmp(&left, &right, sizeof(left)) <=> 0);
    }

    static constexpr ORDER kOrders[] = {
        nullptr,    // Unknown
        Numbers,    // Short
        Numbers,    // UShort
        Numbers,    // Long
        Numbers,    // ULong
        Dates,      // Date
        Numbers,    // Time
        Texts,      // String
        Numbers,    // Float
        Numbers,    // Double
        DateTimes,  // DateTime
        Numbers,    // Bool
        nullptr,    // Object
        Guids,      // Guid
    };
    static ORDER Of(const CVALUE& value) noexcept { return kOrders[static_cast<std::size_t>(value.GetType())]; }
};

bool CVALUEOBJECT::HasOrder(const CVALUE& other) const noexcept {
    return other.IsNull() == 0 && ORDERING::Of(mValue) != nullptr;
}

short CVALUEOBJECT::Order(const CVALUE& other, ComparisonOption option) const {
    [[maybe_unused]] const platform::FAULTTRANSLATION translation;
    return ORDERING::Of(mValue)(*this, other, option);
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
    return RowOf(kTextOrders, option)(left, right);
}

double CVALUEOBJECT::TryToDouble(const CVALUE& value) {
    const NUMBER number = kNumbers[static_cast<std::size_t>(value.GetType())];
    FailOSErr(number != nullptr ? short{0} : kErrValueType);
    return number(value);
}

CDATETIME CVALUEOBJECT::TryToDateTime(const CVALUE& value) {
    return value.GetType() == TYPE::Date ? CDATETIME(value.ToDate(), CTIME::Null()) : value.ToDateTime();
}

const char* CVALUEOBJECT::TryToString(const CVALUE& value) { return value; }

}  // namespace MLCore
