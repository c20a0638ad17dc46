/// \file
/// The rules that compare and order values of different types: which types are numbers, dates or texts, and how texts
/// compare. CVALUEOBJECT and SortArray() follow them.
#pragma once

#include <MLCore/core/EnumTable.h>
#include <MLCore/platform/Export.h>
#include <MLCore/values/CVALUE.h>
#include <MLCore/values/CVALUEOBJECT.h>

#include <cstddef>
#include <cstdint>

namespace MLCore {

/// Values of one kind can be compared with each other.
enum class ValueKind : std::int32_t {
    Unordered,  ///< Unknown and Object
    Number,     ///< the integers, Float, Double, Bool, and Time by its seconds
    Date,       ///< Date and DateTime
    Text,       ///< String
    Guid,       ///< Guid
};
inline constexpr std::size_t kValueKindCount = static_cast<std::size_t>(ValueKind::Guid) + 1;

/// The kind of a type; Unordered for an unknown one.
[[nodiscard]] constexpr ValueKind KindOf(CVALUE::Type type) noexcept;

/// The name of the kind in a sentence, for the texts of failures: "a number", "a date", "a text", "a GUID", "without an
/// order" for Unordered.
[[nodiscard]] MLCORE_API const char* DescribeKind(ValueKind kind) noexcept;

/// The number in a value. Fails with kErrValueType (138) when the value is not a number.
[[nodiscard]] MLCORE_API double NumberOf(const CVALUE& value);

/// The moment in a value: a DateTime as it is, a Date at 00:00:00. Fails with kErrValueType when the value is neither.
[[nodiscard]] CDATETIME DateTimeOf(const CVALUE& value);

/// Compares two texts, neither of them null: -1 when `left` comes first, 0 or 1.
using TextOrder = short (*)(const char* left, const char* right) noexcept;

/// The order of texts under an option, as value objects of the class CVALUEOBJECT itself compare them. An unknown
/// option counts as CaseSensitive.
[[nodiscard]] MLCORE_API TextOrder TextOrderOf(CVALUEOBJECT::ComparisonOption option) noexcept;

struct VALUEKINDROW {
    CVALUE::Type type;
    ValueKind kind;
};
inline constexpr VALUEKINDROW kValueKinds[] = {
    {CVALUE::Type::Unknown, ValueKind::Unordered}, {CVALUE::Type::Short, ValueKind::Number},
    {CVALUE::Type::UShort, ValueKind::Number},     {CVALUE::Type::Long, ValueKind::Number},
    {CVALUE::Type::ULong, ValueKind::Number},      {CVALUE::Type::Date, ValueKind::Date},
    {CVALUE::Type::Time, ValueKind::Number},       {CVALUE::Type::String, ValueKind::Text},
    {CVALUE::Type::Float, ValueKind::Number},      {CVALUE::Type::Double, ValueKind::Number},
    {CVALUE::Type::DateTime, ValueKind::Date},     {CVALUE::Type::Bool, ValueKind::Number},
    {CVALUE::Type::Object, ValueKind::Unordered},  {CVALUE::Type::Guid, ValueKind::Guid},
};
static_assert(IsIndexedBy(kValueKinds, &VALUEKINDROW::type, CVALUE::kTypeCount));

constexpr ValueKind KindOf(CVALUE::Type type) noexcept {
    const auto index = static_cast<std::size_t>(type);
    return index < CVALUE::kTypeCount ? kValueKinds[index].kind : ValueKind::Unordered;
}

/// Fails with kErrValueType. The text names the type of the value and the `wanted` one.
[[noreturn]] MLCORE_API void FailKind(const CVALUE& value, const char* wanted);

inline CDATETIME DateTimeOf(const CVALUE& value) {
    if (value.GetType() == CVALUE::Type::DateTime) {
        return value.ToDateTime();
    }
    if (value.GetType() != CVALUE::Type::Date) [[unlikely]] {
        FailKind(value, "a Date or a DateTime");
    }
    return {value.ToDate(), CTIME::Null()};
}

}  // namespace MLCore
