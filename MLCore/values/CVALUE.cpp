#include <MLCore/values/CVALUE.h>

#include <MLCore/core/EnumTable.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/platform/WinTypes.h>
#include <MLCore/values/detail/SmallBlocks.h>

#include <ostream>
#include <string_view>

namespace MLCore {

namespace {

/// Each type's facts, by its code.
struct TYPEROW {
    CVALUE::Type type;
    std::string_view name;
    const char* description;
    std::uint8_t size;
};

constexpr TYPEROW kTypes[] = {
    {CVALUE::Type::Unknown, "Type::Unknown", "null", 0},
    {CVALUE::Type::Short, "Type::Short", "a Short", 2},
    {CVALUE::Type::UShort, "Type::UShort", "a UShort", 2},
    {CVALUE::Type::Long, "Type::Long", "a Long", 4},
    {CVALUE::Type::ULong, "Type::ULong", "a ULong", 4},
    {CVALUE::Type::Date, "Type::Date", "a Date", 6},
    {CVALUE::Type::Time, "Type::Time", "a Time", 4},
    {CVALUE::Type::String, "Type::String", "a String", 1},
    {CVALUE::Type::Float, "Type::Float", "a Float", 4},
    {CVALUE::Type::Double, "Type::Double", "a Double", 8},
    {CVALUE::Type::DateTime, "Type::DateTime", "a DateTime", 10},
    {CVALUE::Type::Bool, "Type::Bool", "a Bool", 4},
    {CVALUE::Type::Object, "", "an Object", 8},
    {CVALUE::Type::Guid, "Type::Guid", "a Guid", 16},
};
static_assert(IsIndexedBy(kTypes, &TYPEROW::type, CVALUE::kTypeCount));
static_assert(sizeof(_GUID) == 16);

constexpr bool IsType(CVALUE::Type type) noexcept { return static_cast<std::size_t>(type) < CVALUE::kTypeCount; }

template <std::size_t size>
using SIZE = std::integral_constant<std::size_t, size>;

/// Calls `operation` with the size of a type whose blocks are all of one size, as a constant: then copying and
/// comparing take a few instructions and no call.
template <class OPERATION>
void WithSize(CVALUE::Type type, const OPERATION& operation) {
    switch (type) {
        case CVALUE::Type::Date:
            return operation(SIZE<sizeof(CDATE)>());
        case CVALUE::Type::Float:
            return operation(SIZE<sizeof(float)>());
        case CVALUE::Type::Double:
            return operation(SIZE<sizeof(double)>());
        case CVALUE::Type::DateTime:
            return operation(SIZE<sizeof(CDATETIME)>());
        case CVALUE::Type::Guid:
            return operation(SIZE<sizeof(_GUID)>());
        default:
            break;
    }
}

template <class T>
std::int64_t Widened(const void* data) noexcept {
    T number = 0;
    if (data != nullptr) {
        std::memcpy(&number, data, sizeof(number));
    }
    return static_cast<std::int64_t>(number);
}

}  // namespace

const CVALUE& CVALUE::Null() noexcept {
    static const CVALUE gNull;
    return gNull;
}

const CVALUE& CVALUE::True() noexcept {
    static const CVALUE gTrue(1);
    return gTrue;
}

const CVALUE& CVALUE::False() noexcept {
    static const CVALUE gFalse(0);
    return gFalse;
}

CVALUE::CVALUE(Type type, const void* data) {
    if (!IsType(type)) {
        FailWith(kErrValueType, "there is no type of value ", static_cast<std::int32_t>(type));
    }
    switch (type) {
        case Type::Unknown:
            break;
        case Type::Short:
            SetPayload(Widened<std::int16_t>(data));
            break;
        case Type::UShort:
            SetPayload(Widened<std::uint16_t>(data));
            break;
        case Type::ULong:
            SetPayload(Widened<std::uint32_t>(data));
            break;
        case Type::Long:
        case Type::Time:
        case Type::Bool:
            SetPayload(Widened<std::int32_t>(data));
            break;
        case Type::Object:
            HoldObject(data);
            break;
        case Type::String:
            AllocateText(data == nullptr ? "" : static_cast<const char*>(data));
            break;
        default:
            AllocateCopy(data, GetTypeSize(type));
    }
    mType = type;
}

void* CVALUE::NewBlock(std::size_t size) { return AllocateBlock(size); }

void CVALUE::AllocateText(std::string_view text) {
    const std::size_t length = text.size();
    auto* const block = static_cast<char*>(AllocateBlock(kTextHeader + length + 1));
    std::memcpy(block, &length, sizeof(length));
    char* const copy = block + kTextHeader;
    std::memcpy(copy, text.data(), length);
    copy[length] = '\0';
    SetBlock(copy);
}

void CVALUE::AllocateCopy(const void* data, std::size_t size) {
    void* const block = NewBlock(size);
    SetBlock(data == nullptr ? std::memset(block, 0, size) : std::memcpy(block, data, size));
}

void CVALUE::HoldObject(const void* object) noexcept {
    if (object != nullptr) {
        // Nothing is written through it; an owner only counts.
        auto* const held = static_cast<CSHAREOBJECT*>(const_cast<void*>(object));
        held->AddRef();
        SetBlock(held);
    }
}

void CVALUE::CopyPayload(const CVALUE& other) {
    void* const block = other.Block();
    if (block == nullptr) {
        return;
    }
    const auto copy = [this, block](auto size) { SetBlock(std::memcpy(AllocateBlock(size()), block, size())); };
    switch (mType) {
        case Type::Object:
            HoldObject(block);
            break;
        case Type::String:
            AllocateText(other.TextView());
            break;
        default:
            WithSize(mType, copy);
    }
}

void CVALUE::Assign(const CVALUE& other) {
    CVALUE copy(other);
    Swap(copy);
}

void CVALUE::ReleasePayload() noexcept {
    void* const block = Block();
    if (mType == Type::Object) {
        static_cast<CSHAREOBJECT*>(block)->Release();
    } else if (mType == Type::String) {
        FreeBlock(static_cast<char*>(block) - kTextHeader, kTextHeader + TextView().size() + 1);
    } else {
        FreeBlock(block, kLeastBlock);
    }
}

std::size_t CVALUE::GetSize() const {
    Require(IsNull() == 0, kErrValueType, "a null value has no size");
    return mType == Type::String ? TextView().size() + 1 : GetTypeSize(mType);
}

std::size_t CVALUE::GetTypeSize(Type type, const char* text) noexcept {
    if (!IsType(type)) {
        return 0;
    }
    const std::size_t length = type == Type::String && text != nullptr ? std::strlen(text) : 0;
    return kTypes[static_cast<std::size_t>(type)].size + length;
}

const char* CVALUE::DescribeType(Type type) noexcept {
    return IsType(type) ? kTypes[static_cast<std::size_t>(type)].description : "of an unknown type";
}

void CVALUE::FailType(Type wanted) const {
    FailWith(kErrValueType, "the value is ", DescribeType(mType), ", wanted ", DescribeType(wanted));
}

CSHAREOBJECT* CVALUE::ToObject() const {
    RequireType(Type::Object);
    return static_cast<CSHAREOBJECT*>(Block());
}

_GUID CVALUE::ToGuid() const { return StoredAs<_GUID>(Type::Guid); }

bool CVALUE::IsGuid(const _GUID& guid) const noexcept {
    return mType == Type::Guid && std::memcmp(Stored(), &guid, sizeof(guid)) == 0;
}

bool CVALUE::IsSameContent(const CVALUE& other) const noexcept {
    if (mType == Type::String) {
        return TextView() == other.TextView();
    }
    bool isSame = false;
    WithSize(mType, [&](auto size) { isSame = std::memcmp(Stored(), other.Stored(), size()) == 0; });
    return isSame;
}

std::ostream& operator<<(std::ostream& out, CVALUE::Type type) {
    return IsType(type) ? out << kTypes[static_cast<std::size_t>(type)].name : out;
}

}  // namespace MLCore

std::size_t std::hash<MLCore::CVALUE>::operator()(const MLCore::CVALUE& value) const noexcept {
    using Type = MLCore::CVALUE::Type;
    const void* const bytes = value.mType == Type::Object ? value.mPayload : value.Stored();
    const std::string_view view(static_cast<const char*>(bytes), MLCore::CVALUE::GetTypeSize(value.mType));
    return std::hash<std::string_view>()(value.mType == Type::String ? value.TextView() : view) * 31U +
           static_cast<std::size_t>(value.mType);
}
