#include <MLCore/values/CVALUE.h>

#include <MLCore/platform/WinTypes.h>

#include <new>
#include <ostream>
#include <string_view>

namespace MLCore {

namespace {

/// What is told of each type, by its code.
constexpr struct {
    std::string_view name;
    std::uint8_t size;
} kTypes[] = {
    {"Type::Unknown", 0},
    {"Type::Short", 2},
    {"Type::UShort", 2},
    {"Type::Long", 4},
    {"Type::ULong", 4},
    {"Type::Date", 6},
    {"Type::Time", 4},
    {"Type::String", 1},
    {"Type::Float", 4},
    {"Type::Double", 8},
    {"Type::DateTime", 10},
    {"Type::Bool", 4},
    {"", 8},
    {"Type::Guid", 16},
};

static_assert(sizeof(_GUID) == 16);

constexpr bool IsType(CVALUE::Type type) noexcept {
    return type >= CVALUE::Type::Unknown && type <= CVALUE::Type::Guid;
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
        FailOSErr(kErrValueType);
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
            if (data != nullptr) {
                // Nothing is written through it; an owner only counts.
                auto* const object = static_cast<CSHAREOBJECT*>(const_cast<void*>(data));
                object->AddRef();
                SetBlock(object);
            }
            break;
        default:
            Allocate(data, GetTypeSize(type, static_cast<const char*>(data)));
    }
    mType = type;
}

void CVALUE::Allocate(const void* data, std::size_t size) {
    void* const block = ::operator new(size);
    SetBlock(data == nullptr ? std::memset(block, 0, size) : std::memcpy(block, data, size));
}

void CVALUE::CopyPayload(const CVALUE& other) {
    void* const block = other.Block();
    if (block == nullptr) {
        return;
    }
    if (mType == Type::Object) {
        static_cast<CSHAREOBJECT*>(block)->AddRef();
        SetBlock(block);
    } else {
        Allocate(block, GetTypeSize(mType, static_cast<const char*>(block)));
    }
}

void CVALUE::Assign(const CVALUE& other) {
    const bool hasRoom = mType == other.mType && mType != Type::Object && Block() != nullptr &&
                         other.Block() != nullptr && other.GetSize() <= GetSize();
    if (hasRoom) {
        std::memmove(Block(), other.Block(), other.GetSize());
    } else {
        CVALUE copy(other);
        Swap(copy);
    }
}

void CVALUE::ReleasePayload() noexcept {
    if (mType == Type::Object) {
        static_cast<CSHAREOBJECT*>(Block())->Release();
    } else {
        ::operator delete(Block());
    }
}

std::size_t CVALUE::GetSize() const {
    FailOSErr(IsNull() != 0 ? kErrValueType : short{0});
    return GetTypeSize(mType, mType == Type::String ? static_cast<const char*>(Block()) : nullptr);
}

std::size_t CVALUE::GetTypeSize(Type type, const char* text) noexcept {
    if (!IsType(type)) {
        return 0;
    }
    const std::size_t length = type == Type::String && text != nullptr ? std::strlen(text) : 0;
    return kTypes[static_cast<std::size_t>(type)].size + length;
}

CSHAREOBJECT* CVALUE::ToObject() const {
    Require(Type::Object);
    return static_cast<CSHAREOBJECT*>(Block());
}

_GUID CVALUE::ToGuid() const { return StoredAs<_GUID>(Type::Guid); }

bool CVALUE::IsGuid(const _GUID& guid) const noexcept {
    return mType == Type::Guid && std::memcmp(Stored(), &guid, sizeof(guid)) == 0;
}

bool CVALUE::IsSameContent(const CVALUE& other) const noexcept {
    switch (mType) {
        case Type::String:
            return std::strcmp(Text(), other.Text()) == 0;
        case Type::Date:
        case Type::Float:
        case Type::Double:
        case Type::DateTime:
        case Type::Guid:
            return std::memcmp(Stored(), other.Stored(), GetTypeSize(mType)) == 0;
        default:
            return false;
    }
}

std::ostream& operator<<(std::ostream& out, CVALUE::Type type) {
    return IsType(type) ? out << kTypes[static_cast<std::size_t>(type)].name : out;
}

}  // namespace MLCore

std::size_t std::hash<MLCore::CVALUE>::operator()(const MLCore::CVALUE& value) const noexcept {
    const void* const bytes = value.mType == MLCore::CVALUE::Type::Object ? value.mPayload : value.Stored();
    const std::string_view view(static_cast<const char*>(bytes),
                                MLCore::CVALUE::GetTypeSize(value.mType, value.Text()));
    return std::hash<std::string_view>()(view) * 31U + static_cast<std::size_t>(value.mType);
}
