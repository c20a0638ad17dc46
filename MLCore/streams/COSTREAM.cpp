#include <MLCore/streams/COSTREAM.h>

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/core/Narrowing.h>
#include <MLCore/platform/GlobalMemory.h>
#include <MLCore/streams/CSTREAMWRITER.h>
#include <MLCore/streams/detail/OBJECTDEPTH.h>
#include <MLCore/streams/detail/STREAMCURSOR.h>

#include <cstdint>
#include <cstring>

namespace MLCore {

namespace {

constexpr std::size_t kLongestBlock = 0x7FFFFFFF;
constexpr std::size_t kLongestIdentifier = 0x7FFF;

/// The bytes of a memory block, for as long as it lives.
class LOCKEDBLOCK {
public:
    explicit LOCKEDBLOCK(void* handle) : mHandle(handle), mData(platform::GlobalBlockLock(handle)) {
        Require(mData != nullptr, kErrNull, "cannot lock the memory block to write");
    }
    ~LOCKEDBLOCK() { platform::GlobalBlockUnlock(mHandle); }
    LOCKEDBLOCK(const LOCKEDBLOCK&) = delete;
    LOCKEDBLOCK& operator=(const LOCKEDBLOCK&) = delete;
    [[nodiscard]] const void* GetData() const noexcept { return mData; }

private:
    void* mHandle;
    const void* mData;
};

}  // namespace

COSTREAM::COSTREAM(OpenMode mode) { mOpenMode = mode; }

COSTREAM::~COSTREAM() = default;

inline void COSTREAM::WriteBytes(const void* bytes, std::size_t count) {
    if (mLent == nullptr || !mLent->Put(bytes, count)) {
        SetValue(bytes, static_cast<long>(count));
    }
}

void COSTREAM::SetValue(void* handle) {
    const std::size_t size = handle != nullptr ? platform::GlobalBlockSize(handle) : 0;
    if (size == 0) {
        SetValue(0UL);
        return;
    }
    Require(size <= kLongestBlock, kErrOverflow, "cannot write a memory block of ", size, " bytes: wanted at most ",
            kLongestBlock);
    const LOCKEDBLOCK block(handle);
    SetValue(static_cast<unsigned long>(size));
    SetValue(block.GetData(), static_cast<long>(size));
}

void COSTREAM::SetValue(const CSERIALIZABLE& object) {
    CSTREAMWRITER writer(*this);
    object.WriteState(writer);
}

void COSTREAM::SetValue(const CDATETIME& value) { WriteBytes(&value, sizeof(value)); }

void COSTREAM::SetValue(const CTIME& value) { WriteBytes(&value, sizeof(value)); }

void COSTREAM::SetValue(const CDATE& value) { WriteBytes(&value, sizeof(value)); }

void COSTREAM::SetValue(double value) { WriteBytes(&value, sizeof(value)); }

void COSTREAM::SetValue(unsigned long value) {
    const std::uint32_t stored = UInt32OrFail(value);
    WriteBytes(&stored, sizeof(stored));
}

void COSTREAM::SetValue(unsigned short value) { WriteBytes(&value, sizeof(value)); }

void COSTREAM::SetValue(long value) {
    const std::int32_t stored = Int32OrFail(value);
    WriteBytes(&stored, sizeof(stored));
}

void COSTREAM::SetValue(short value) { WriteBytes(&value, sizeof(value)); }

void COSTREAM::SetValue(const std::string& value) { WriteText(value); }

void COSTREAM::SetValue(const char* value) { WriteText(value != nullptr ? value : ""); }

void COSTREAM::WriteText(std::string_view text) {
    while (text.size() > kLongestBlock) {  // what a `long` counts on every system
        WriteBytes(text.data(), kLongestBlock);
        text.remove_prefix(kLongestBlock);
    }
    WriteBytes(text.data(), text.size());
}

void COSTREAM::SetValue(char value) { WriteBytes(&value, sizeof(value)); }

void COSTREAM::SetValueBOOL(int value) { WriteBytes(&value, sizeof(value)); }

void COSTREAM::SetObject(const CSERIALIZABLEOBJECT* object) {
    const char* const identifier = object != nullptr ? object->GetClassIdentifier() : nullptr;
    if (identifier == nullptr || *identifier == '\0') {
        SetValue(short{0});
        return;
    }
    const std::size_t length = std::strlen(identifier);
    Require(length <= kLongestIdentifier, kErrStreamName, "the class identifier ", Quoted(identifier), " has ", length,
            " characters: wanted at most ", kLongestIdentifier);
    const OBJECTDEPTH depth(mObjectDepth);
    SetValue(static_cast<short>(length));
    WriteBytes(identifier, length);
    SetValue(static_cast<const CSERIALIZABLE&>(*object));
}

void COSTREAM::WriteLine(const std::string&) {}

void COSTREAM::SetNextLine() {}

}  // namespace MLCore
