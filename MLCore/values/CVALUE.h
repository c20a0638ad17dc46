#pragma once

#include <MLCore/core/CSHAREOBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/core/Narrowing.h>
#include <MLCore/datetime/CDATE.h>
#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/datetime/CTIME.h>
#include <MLCore/datetime/CTIMESPAN.h>
#include <MLCore/platform/Export.h>
#include <MLCore/platform/ForwardTypes.h>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace MLCore {

/// The types that no CVALUE can be made from: characters, enumerations, numbers of other widths and pointers to other
/// types. Without this some of them would become a Bool.
template <class T>
concept NotAValue = std::is_enum_v<T> ||
                    (std::is_arithmetic_v<T> && !std::same_as<T, bool> && !std::same_as<T, short> &&
                     !std::same_as<T, unsigned short> && !std::same_as<T, int> && !std::same_as<T, long> &&
                     !std::same_as<T, unsigned long> && !std::same_as<T, float> && !std::same_as<T, double>) ||
                    (std::is_pointer_v<T> && !std::convertible_to<T, const char*> &&
                     !std::convertible_to<T, CSHAREOBJECT*>);

/// One value of one of fourteen types. Expressions, predicates and streams carry their constants in it.
///
///     CVALUE value = 5L;                           // a Long
///     const bool isFive = value == 5L;             // true
///     const bool isShort = value == short{5};      // false: another type
///     value = "abc";                               // now a String
///     const std::string text = value.ToString();   // ToLong() would fail: kErrValueType (138)
///
/// A value never converts. It has the type that it was made from. Only the accessor of that type reads it, and two
/// values of different types are never equal. An `int` makes a Bool, because the library's booleans are `int`: write 5L
/// for a number.
///
/// A value takes 12 bytes and owns its content: copies are deep, except that copies of an object share it. A moved-from
/// value is Unknown. Integers, times and booleans need no further memory.
class MLCORE_API CVALUE {
public:
    enum class Type : std::int32_t {
        Unknown,   ///< nothing: the null value
        Short,     ///< 16 bits
        UShort,    ///< 16 bits without a sign
        Long,      ///< 32 bits
        ULong,     ///< 32 bits without a sign
        Date,      ///< CDATE
        Time,      ///< CTIME
        String,    ///< text up to its first zero byte, in code page 1252
        Float,     ///< 32 bits
        Double,    ///< 64 bits
        DateTime,  ///< CDATETIME
        Bool,      ///< an `int`, kept as it is: CVALUE(5) is not equal to True()
        Object,    ///< a shared object, one reference held; may be null
        Guid,      ///< _GUID
    };
    /// The types, from Unknown to Guid.
    static constexpr std::size_t kTypeCount = static_cast<std::size_t>(Type::Guid) + 1;

    [[nodiscard]] static const CVALUE& Null() noexcept;   ///< Unknown
    [[nodiscard]] static const CVALUE& True() noexcept;   ///< Bool 1
    [[nodiscard]] static const CVALUE& False() noexcept;  ///< Bool 0

    CVALUE() noexcept = default;
    // Each of the following also assigns: the new value is made first, then the old one is released.
    CVALUE(short value) noexcept : mType(Type::Short) { SetPayload(value); }
    CVALUE(unsigned short value) noexcept : mType(Type::UShort) { SetPayload(value); }
    CVALUE(int value) noexcept : mType(Type::Bool) { SetPayload(value); }
    /// A `long` and an `unsigned long` fail with kErrOverflow (126) when the number does not fit in 32 bits.
    CVALUE(long value) : mType(Type::Long) { SetPayload(Int32OrFail(value)); }
    CVALUE(unsigned long value) : mType(Type::ULong) { SetPayload(UInt32OrFail(value)); }
    CVALUE(float value) : mType(Type::Float) { Allocate(value); }
    CVALUE(double value) : mType(Type::Double) { Allocate(value); }
    /// Null makes an empty String.
    CVALUE(const char* value) : mType(Type::String) { AllocateText(value == nullptr ? "" : value); }
    /// Keeps the text before the first zero byte.
    CVALUE(const std::string& value) : CVALUE(value.c_str()) {}
    CVALUE(const CDATE& value) : mType(Type::Date) { Allocate(value); }
    CVALUE(const CTIME& value) noexcept : mType(Type::Time) { SetPayload(value.GetTotalSeconds()); }
    CVALUE(const CDATETIME& value) : mType(Type::DateTime) { Allocate(value); }
    CVALUE(const _GUID& value) : CVALUE(Type::Guid, &value) {}
    /// Adds a reference; null is allowed.
    CVALUE(CSHAREOBJECT* value) : CVALUE(Type::Object, value) {}
    template <class T>
    requires std::convertible_to<T*, CSHAREOBJECT*> CVALUE(const CSHAREOBJECTPTR<T>& value)
        : CVALUE(static_cast<CSHAREOBJECT*>(value.Get())) {}
    /// By the variant's type: VT_EMPTY and VT_NULL make Unknown, VT_I2 Short, VT_UI2 UShort, VT_I4 and VT_INT Long,
    /// VT_UI4 and VT_UINT ULong, VT_R4 Float, VT_R8 Double, VT_BSTR String (in code page 1252), VT_BOOL Bool 0 or 1,
    /// VT_DATE DateTime. Other types, and numbers that are not a valid date, fail with kErrValueType.
    CVALUE(const _variant_t& value);
    /// Copies GetTypeSize(type, data) bytes from `data`, or as many zeros when `data` is null. For an object `data` is
    /// the CSHAREOBJECT* itself, so that CVALUE(v.GetType(), v.GetValue()) copies any value. Fails with kErrValueType
    /// for an unknown type.
    CVALUE(Type type, const void* data);
    template <NotAValue T>
    CVALUE(T) = delete;

    inline CVALUE(const CVALUE& other);
    CVALUE(CVALUE&& other) noexcept { Swap(other); }
    inline CVALUE& operator=(const CVALUE& other);
    inline CVALUE& operator=(CVALUE&& other) noexcept;
    inline ~CVALUE();

    /// Frees or releases the content. The type stays, and the value is then the zero of its type: 0, "", the null date,
    /// no object.
    inline void Clear() noexcept;
    /// Makes the value the zero of `type`. Fails with kErrValueType for an unknown type and leaves the value as it was.
    void SetType(Type type) { *this = CVALUE(type, nullptr); }
    /// Replaces the content and keeps the type, as CVALUE(Type, const void*) does. `data` may lie in this value.
    void SetValue(const void* data) { *this = CVALUE(mType, data); }

    [[nodiscard]] Type GetType() const noexcept { return mType; }
    /// 1 when the type is Unknown.
    [[nodiscard]] int IsNull() const noexcept { return mType == Type::Unknown ? 1 : 0; }
    /// The stored bytes, valid until the value changes. They lie in the value itself or, for an allocated type, in its
    /// block; for an object this is the pointer to it. Null for Unknown, a null object and an allocated type after
    /// Clear().
    [[nodiscard]] const void* GetValue() const noexcept { return OwnsPayload() ? Block() : mPayload; }
    /// The number of stored bytes. Fails with kErrValueType for Unknown.
    [[nodiscard]] std::size_t GetSize() const;
    /// The number of bytes that a type stores; 0 for Unknown and an unknown type. For String it is the length of `text`
    /// (may be null) plus 1; the other types do not read `text`.
    [[nodiscard]] static std::size_t GetTypeSize(Type type, const char* text = nullptr) noexcept;
    /// 1 when values of the type hold a pointer: Unknown (always null), Date, String, Float, Double, DateTime, Object,
    /// Guid.
    [[nodiscard]] static constexpr int IsAllocatedType(Type type) noexcept;
    /// The name of the type in a sentence, for the texts of failures: "a Date", "an Object", "null" for Unknown, "of an
    /// unknown type".
    [[nodiscard]] static const char* DescribeType(Type type) noexcept;

    // The stored content. All fail with kErrValueType when the value is not of exactly this type.
    [[nodiscard]] short ToShort() const { return static_cast<short>(PayloadAs(Type::Short)); }
    [[nodiscard]] unsigned short ToWord() const { return static_cast<unsigned short>(PayloadAs(Type::UShort)); }
    [[nodiscard]] long ToLong() const { return static_cast<long>(PayloadAs(Type::Long)); }
    [[nodiscard]] unsigned long ToDWord() const { return static_cast<unsigned long>(PayloadAs(Type::ULong)); }
    [[nodiscard]] CDATE ToDate() const { return StoredAs<CDATE>(Type::Date); }
    [[nodiscard]] CTIME ToTime() const { return StoredAs<CTIME>(Type::Time); }
    [[nodiscard]] inline std::string ToString() const;
    [[nodiscard]] float ToFloat() const { return StoredAs<float>(Type::Float); }
    [[nodiscard]] double ToDouble() const { return StoredAs<double>(Type::Double); }
    [[nodiscard]] CDATETIME ToDateTime() const { return StoredAs<CDATETIME>(Type::DateTime); }
    [[nodiscard]] int ToBool() const { return static_cast<int>(PayloadAs(Type::Bool)); }
    /// Borrowed; null when no object is held.
    [[nodiscard]] CSHAREOBJECT* ToObject() const;
    [[nodiscard]] _GUID ToGuid() const;
    /// The text of a String, never null, valid until the value changes.
    inline operator const char*() const;
    /// The span from midnight to a Time.
    [[nodiscard]] CTIMESPAN ToTimeSpan() const { return CTIMESPAN(ToTime().GetTotalSeconds()); }
    /// The variant with the same content. The constructor from a variant makes the same value from it, with three
    /// exceptions. A Bool becomes 0 or 1. Date and Time become VT_DATE, as DateTime does: a date at midnight, a time on
    /// day 0. A null date, whatever its time, becomes the variant date 0, as 30 December 1899 at midnight does. Unknown
    /// makes VT_EMPTY. Fails with kErrValueType for Guid, Object and dates that no variant can hold.
    [[nodiscard]] _variant_t ToVariant() const;

    /// Refused: `if (value)` would read the text, and fail for every other type. Call IsNull() or ToBool() instead.
    template <std::same_as<bool> B>
    operator B() const = delete;

    /// The same type and the same bytes, so 0.0 and -0.0 differ and a NaN equals itself; texts by character, objects by
    /// identity.
    friend bool operator==(const CVALUE& left, const CVALUE& right) noexcept {
        return left.mType == right.mType &&
               (left.Payload() == right.Payload() || (left.OwnsPayload() && left.IsSameContent(right)));
    }
    // With a plain value: false for any other type, then the plain type's own equality. Either side may stand on the
    // left.
    friend bool operator==(const CVALUE& value, short other) noexcept { return value.Is(Type::Short, other); }
    friend bool operator==(const CVALUE& value, unsigned short other) noexcept { return value.Is(Type::UShort, other); }
    friend bool operator==(const CVALUE& value, int other) noexcept { return value.Is(Type::Bool, other); }
    friend bool operator==(const CVALUE& value, long other) noexcept { return value.Is(Type::Long, other); }
    friend bool operator==(const CVALUE& value, unsigned long other) noexcept { return value.IsULong(other); }
    friend bool operator==(const CVALUE& value, float other) noexcept { return value.Holds(Type::Float, other); }
    friend bool operator==(const CVALUE& value, double other) noexcept { return value.Holds(Type::Double, other); }
    /// Null is the empty text.
    friend bool operator==(const CVALUE& value, const char* other) noexcept { return value.IsText(other); }
    friend bool operator==(const CVALUE& value, const std::string& other) noexcept {
        return value.IsText(other.c_str());
    }
    friend bool operator==(const CVALUE& value, const CSHAREOBJECT* other) noexcept { return value.IsObject(other); }
    template <class T>
    friend bool operator==(const CVALUE& value, const CSHAREOBJECTPTR<T>& other) noexcept {
        return value.IsObject(static_cast<const CSHAREOBJECT*>(other.Get()));
    }
    friend bool operator==(const CVALUE& value, const CDATE& other) noexcept { return value.Holds(Type::Date, other); }
    friend bool operator==(const CVALUE& value, const CTIME& other) noexcept {
        return value.Is(Type::Time, other.GetTotalSeconds());
    }
    friend bool operator==(const CVALUE& value, const CDATETIME& other) noexcept {
        return value.Holds(Type::DateTime, other);
    }
    /// True for a Time that lies this span after midnight.
    friend bool operator==(const CVALUE& value, const CTIMESPAN& other) noexcept {
        return value.Is(Type::Time, other.GetTotalSeconds());
    }
    friend bool operator==(const CVALUE& value, const _GUID& other) noexcept { return value.IsGuid(other); }
    /// True for the value that the variant makes; false if no value can be made from it.
    friend bool operator==(const CVALUE& value, const _variant_t& other) { return value.IsVariant(other); }

    /// Refused: it would compare the addresses of texts. CVALUEOBJECT compares values of different types.
    friend void operator<=>(const CVALUE&, const CVALUE&) = delete;

    /// Writes the value's text: see AppendValueText().
    friend MLCORE_API std::ostream& operator<<(std::ostream& out, const CVALUE& value);
    /// Writes "Type::Long" and so on; nothing for Object and for an unknown type.
    friend MLCORE_API std::ostream& operator<<(std::ostream& out, Type type);

private:
    friend struct std::hash<CVALUE>;

    [[nodiscard]] inline bool OwnsPayload() const noexcept;
    [[nodiscard]] inline std::int64_t Payload() const noexcept;
    void SetPayload(std::int64_t payload) noexcept { std::memcpy(mPayload, &payload, sizeof(payload)); }
    /// The payload of an allocated type.
    [[nodiscard]] inline void* Block() const noexcept;
    void SetBlock(void* block) noexcept { std::memcpy(mPayload, &block, sizeof(block)); }
    [[nodiscard]] static void* NewBlock(std::size_t size);
    /// Sets the payload to a new block with a copy of `value`.
    template <class T>
    void Allocate(const T& value) {
        SetBlock(std::memcpy(NewBlock(sizeof(value)), &value, sizeof(value)));
    }
    /// The same with `size` bytes from `data`, or with zeros when `data` is null.
    void AllocateCopy(const void* data, std::size_t size);
    void AllocateText(std::string_view text);
    static constexpr std::size_t kTextHeader = sizeof(std::size_t);  // before each text stands its length
    /// Of a String.
    [[nodiscard]] inline std::string_view TextView() const noexcept;
    /// Null holds no object.
    void HoldObject(const void* object) noexcept;
    void CopyPayload(const CVALUE& other);
    void Assign(const CVALUE& other);
    void ReleasePayload() noexcept;
    inline void Swap(CVALUE& other) noexcept;

    /// The stored bytes; zeros where an allocated type holds none. Not for objects.
    [[nodiscard]] inline const void* Stored() const noexcept;
    [[nodiscard]] const char* Text() const noexcept { return static_cast<const char*>(Stored()); }
    template <class T>
    [[nodiscard]] T Load() const noexcept;

    [[noreturn]] void FailType(Type wanted) const;
    inline void RequireType(Type type) const;
    template <class T>
    [[nodiscard]] T StoredAs(Type type) const;
    /// Of an inline type.
    [[nodiscard]] inline std::int64_t PayloadAs(Type type) const;

    [[nodiscard]] bool Is(Type type, long long number) const noexcept { return mType == type && Payload() == number; }
    [[nodiscard]] inline bool IsULong(unsigned long number) const noexcept;
    template <class T>
    [[nodiscard]] bool Holds(Type type, const T& content) const noexcept {
        return mType == type && Load<T>() == content;
    }
    [[nodiscard]] inline bool IsText(const char* text) const noexcept;
    [[nodiscard]] inline bool IsObject(const CSHAREOBJECT* object) const noexcept;
    [[nodiscard]] bool IsGuid(const _GUID& guid) const noexcept;
    [[nodiscard]] bool IsVariant(const _variant_t& variant) const;
    /// Of two values of one allocated type whose payloads differ.
    [[nodiscard]] bool IsSameContent(const CVALUE& other) const noexcept;

    Type mType = Type::Unknown;
    unsigned char mPayload[8] = {};  // bytes, because 64 bits would ask for more alignment than the type's 32
};

static_assert(sizeof(CVALUE) == 12 && alignof(CVALUE) == 4);

// Every evaluation of a predicate copies, reads and compares values, so everything below is inline.

CVALUE::CVALUE(const CVALUE& other) : mType(other.mType) {
    if (OwnsPayload()) {
        CopyPayload(other);
    } else {
        SetPayload(other.Payload());
    }
}

CVALUE& CVALUE::operator=(const CVALUE& other) {
    if (OwnsPayload() || other.OwnsPayload()) {
        Assign(other);
    } else {
        mType = other.mType;
        SetPayload(other.Payload());
    }
    return *this;
}

CVALUE& CVALUE::operator=(CVALUE&& other) noexcept {
    CVALUE taken(std::move(other));
    Swap(taken);
    return *this;
}

CVALUE::~CVALUE() {
    if (OwnsPayload() && Payload() != 0) {
        ReleasePayload();
    }
}

void CVALUE::Clear() noexcept {
    CVALUE old;
    std::swap(mPayload, old.mPayload);
    old.mType = mType;
}

constexpr int CVALUE::IsAllocatedType(Type type) noexcept {
    return type < Type::Short || (type > Type::ULong && type != Type::Time && type != Type::Bool) ? 1 : 0;
}

std::string CVALUE::ToString() const {
    RequireType(Type::String);
    return std::string(TextView());
}

CVALUE::operator const char*() const {
    RequireType(Type::String);
    return Text();
}

bool CVALUE::OwnsPayload() const noexcept {
    constexpr unsigned kInline = 0b1000'0101'1110;  // the types by their codes; the test is on every path
    return (kInline >> static_cast<unsigned>(mType) & 1U) == 0;
}

std::int64_t CVALUE::Payload() const noexcept {
    std::int64_t payload;
    std::memcpy(&payload, mPayload, sizeof(payload));
    return payload;
}

void* CVALUE::Block() const noexcept {
    void* block;
    std::memcpy(&block, mPayload, sizeof(block));
    return block;
}

std::string_view CVALUE::TextView() const noexcept {
    const auto* const text = static_cast<const char*>(Block());
    std::size_t length = 0;
    if (text != nullptr) {
        std::memcpy(&length, text - kTextHeader, sizeof(length));
    }
    return {text, length};
}

void CVALUE::Swap(CVALUE& other) noexcept {
    const std::int64_t payload = Payload();
    SetPayload(other.Payload());
    other.SetPayload(payload);
    std::swap(mType, other.mType);
}

const void* CVALUE::Stored() const noexcept {
    alignas(8) static constexpr unsigned char kZeros[16] = {};
    const void* const stored = GetValue();
    return stored == nullptr ? kZeros : stored;
}

template <class T>
T CVALUE::Load() const noexcept {
    T stored;
    std::memcpy(&stored, Stored(), sizeof(stored));
    return stored;
}

void CVALUE::RequireType(Type type) const {
    if (mType != type) [[unlikely]] {
        FailType(type);
    }
}

template <class T>
T CVALUE::StoredAs(Type type) const {
    RequireType(type);
    return Load<T>();
}

std::int64_t CVALUE::PayloadAs(Type type) const {
    RequireType(type);
    return Payload();
}

bool CVALUE::IsULong(unsigned long number) const noexcept {
    return mType == Type::ULong && static_cast<unsigned long>(Payload()) == number;
}

bool CVALUE::IsText(const char* text) const noexcept {
    return mType == Type::String && std::strcmp(Text(), text == nullptr ? "" : text) == 0;
}

bool CVALUE::IsObject(const CSHAREOBJECT* object) const noexcept { return mType == Type::Object && Block() == object; }

}  // namespace MLCore

/// Agrees with the equality of two values.
template <>
struct MLCORE_API std::hash<MLCore::CVALUE> {
    std::size_t operator()(const MLCore::CVALUE& value) const noexcept;
};
