#include <MLCore/streams/CISTREAM.h>

#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/streams/COSTREAM.h>
#include <MLCore/streams/CRANDOMSTREAM.h>
#include <MLCore/streams/CSTREAMREADER.h>
#include <MLCore/streams/detail/GLOBALBLOCK.h>
#include <MLCore/streams/detail/OBJECTDEPTH.h>
#include <MLCore/streams/detail/STREAMCURSOR.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>

namespace MLCore {

namespace {

constexpr long kCopyStep = 1024;
/// What is taken at a time for data that is only announced: more when it has come.
constexpr long kStep = 16L << 20;
/// Read without memory of its own.
constexpr long kShortText = 255;
constexpr unsigned long kLongestBlock = 0x7FFFFFFF;

/// How many bytes `stream` still holds, when it knows.
unsigned long long BytesLeft(const CISTREAM& stream) {
    const auto* const random = dynamic_cast<const CRANDOMSTREAM*>(&stream);
    if (random == nullptr) {
        return ~0ULL;
    }
    const unsigned long long position = random->GetPosition();
    return random->GetSize() - std::min(position, random->GetSize());
}

}  // namespace

CISTREAM::CISTREAM(OpenMode mode) { mOpenMode = mode; }

CISTREAM::~CISTREAM() = default;

long CISTREAM::GetValue(COSTREAM& out) {
    char buffer[kCopyStep] = {};  // a read may leave it as it is
    unsigned long long total = 0;
    while (IsEnd() == 0) {
        const long count = GetValue(static_cast<void*>(buffer), kCopyStep);
        total += static_cast<unsigned long long>(count);
        out.SetValue(static_cast<const void*>(buffer), count);
    }
    return static_cast<long>(std::min<unsigned long long>(total, std::numeric_limits<long>::max()));
}

void CISTREAM::ReadExactly(void* buffer, long count) {
    if (GetValue(buffer, count) != count) {
        FailOSErr(kErrStreamEnd);
    }
}

template <class Value>
void CISTREAM::ReadPlain(Value& value) {
    if (const char* const bytes = mLent != nullptr ? mLent->Take(sizeof(value)) : nullptr) {
        std::memmove(static_cast<void*>(&value), bytes, sizeof(value));  // the value may lie in the stream's memory
    } else {
        ReadExactly(&value, sizeof(value));
    }
}

void CISTREAM::GetValue(void*& handle) {
    unsigned long size = 0;
    GetValue(size);
    if (size > kLongestBlock || size > BytesLeft(*this)) {
        FailOSErr(kErrStreamEnd);
    }
    const bool isSizeSure = BytesLeft(*this) != ~0ULL;
    GLOBALBLOCK block;
    const long total = static_cast<long>(size);
    for (long done = 0; done < total;) {
        const long step = isSizeSure ? total : std::min(total - done, kStep);
        block.SetSize(static_cast<std::size_t>(done + step));
        ReadExactly(static_cast<char*>(block.GetData()) + done, step);
        done += step;
    }
    handle = block.Detach();
}

void CISTREAM::GetValue(CSERIALIZABLE& object) {
    CSTREAMREADER reader(*this);
    object.ReadState(reader);
}

void CISTREAM::GetValue(CDATETIME& value) { ReadPlain(value); }

void CISTREAM::GetValue(CTIME& value) { ReadPlain(value); }

void CISTREAM::GetValue(CDATE& value) { ReadPlain(value); }

void CISTREAM::GetValue(double& value) { ReadPlain(value); }

// Through 32 bits, which keep what was there where a stream stores less, or nothing.
template <class Stored, class Value>
void CISTREAM::ReadWidened(Value& value) {
    Stored stored = static_cast<Stored>(value);
    if (const char* const bytes = mLent != nullptr ? mLent->Take(sizeof(stored)) : nullptr) {
        std::memcpy(&stored, bytes, sizeof(stored));
        value = static_cast<Value>(stored);
        return;
    }
    const long count = GetValue(&stored, long{sizeof(stored)});
    value = static_cast<Value>(stored);
    if (count != long{sizeof(stored)}) {
        FailOSErr(kErrStreamEnd);
    }
}

void CISTREAM::GetValue(unsigned long& value) { ReadWidened<std::uint32_t>(value); }

void CISTREAM::GetValue(unsigned short& value) { ReadPlain(value); }

void CISTREAM::GetValue(long& value) { ReadWidened<std::int32_t>(value); }

void CISTREAM::GetValue(short& value) { ReadPlain(value); }

void CISTREAM::GetValue(std::string& value, long length) {
    if (length < 0) {
        return FailOSErr(kErrStreamEnd);
    }
    const std::size_t count = static_cast<std::size_t>(length);
    if (mLent != nullptr && count != 0 && count <= mLent->Ahead().size()) {
        value.assign(mLent->Ahead(), 0, count);
        mLent->MoveOn(length);
        return;
    }
    if (length <= kShortText) {
        char buffer[kShortText + 1] = {};  // a read may leave it as it is
        GetValue(buffer, length);
        value.assign(buffer, static_cast<std::size_t>(length));
        return;
    }
    std::string text;
    for (long done = 0; done < length;) {
        const long step = std::min(length - done, kStep);
        text.resize(static_cast<std::size_t>(done + step));
        GetValue(text.data() + done, step);  // its terminator falls on the string's own
        done += step;
    }
    value = std::move(text);
}

void CISTREAM::GetValue(char* buffer, long length) {
    if (length < 0) {
        return FailOSErr(kErrStreamEnd);
    }
    FailNull(buffer);
    ReadExactly(buffer, length);
    buffer[length] = '\0';
}

void CISTREAM::GetValue(char& value) { ReadPlain(value); }

void CISTREAM::GetValueBOOL(int& value) { ReadPlain(value); }

CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> CISTREAM::GetObject() {
    short length = 0;
    GetValue(length);
    if (length == 0) {
        return nullptr;
    }
    std::string identifier;
    GetValue(identifier, length);
    if (identifier.find('\0') != std::string::npos) {
        FailOSErr(kErrUnknownClass);  // the factory would see only what comes before
    }
    const CSHAREOBJECTPTR<COBJECT> created =
        COBJECTFACTORY::GetInstance()->CreateObjectFromIdentifier(identifier.c_str());
    const CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> object(dynamic_cast<CSERIALIZABLEOBJECT*>(created.Get()));
    if (!object) {
        FailOSErr(kErrUnknownClass);
    }
    const OBJECTDEPTH depth(mObjectDepth);
    GetValue(static_cast<CSERIALIZABLE&>(*object));
    return object;
}

int CISTREAM::IsEndOfLine() const { return IsEnd(); }

void CISTREAM::ReadLine(std::string&) {}

void CISTREAM::GetNextLine() {}

}  // namespace MLCore
