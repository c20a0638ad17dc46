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
#include <MLCore/streams/detail/STREAMPLACE.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>

namespace MLCore {

namespace {

constexpr long kCopyStep = 1024;
/// How much memory is taken for data that is only announced; more is taken when that much has come.
constexpr long kStep = 16L << 20;
/// Texts up to this length are read to the stack.
constexpr long kShortText = 255;
constexpr unsigned long kLongestBlock = 0x7FFFFFFF;
constexpr unsigned long long kUnknown = ~0ULL;

/// How many bytes `stream` still holds; kUnknown when it does not know.
unsigned long long BytesLeft(const CISTREAM& stream) {
    const auto* const random = dynamic_cast<const CRANDOMSTREAM*>(&stream);
    if (random == nullptr) {
        return kUnknown;
    }
    const unsigned long long position = random->GetPosition();
    return random->GetSize() - std::min(position, random->GetSize());
}

[[noreturn]] void FailBlock(const CISTREAM& stream, unsigned long size, unsigned long long left) {
    const STREAMPLACE place("at", stream);
    if (left == kUnknown || size > kLongestBlock) {
        FailWith(kErrStreamEnd, "a memory block of ", size, " bytes", place.GetText(), ": wanted at most ",
                 kLongestBlock);
    }
    FailWith(kErrStreamEnd, "a memory block of ", size, " bytes", place.GetText(), ", where the stream has ", left,
             " bytes left");
}

/// `stream` stands after the identifier.
CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> CreateObject(const CISTREAM& stream, const std::string& identifier) {
    const auto fail = [&](const char* fault) {
        const STREAMPLACE place("before", stream);
        FailWith(kErrUnknownClass, "the class identifier ", Quoted(identifier), place.GetText(), fault);
    };
    // The factory would see only the characters before a zero byte.
    if (identifier.find('\0') != std::string::npos) {
        fail(" has a zero byte");
    }
    const COBJECTFACTORY* const factory = COBJECTFACTORY::GetInstance();
    if (factory->IsRegisteredIdentifier(identifier.c_str()) == 0) {
        fail(" is not registered with the object factory");
    }
    const CSHAREOBJECTPTR<COBJECT> created = factory->CreateObjectFromIdentifier(identifier.c_str());
    CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> object(dynamic_cast<CSERIALIZABLEOBJECT*>(created.Get()));
    if (object == nullptr) {
        fail(" is not that of a CSERIALIZABLEOBJECT");
    }
    return object;
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

void CISTREAM::FailEnd(long wanted, long came) const {
    const STREAMPLACE place("at", *this);
    FailWith(kErrStreamEnd, wanted, " bytes wanted, and the stream ended after ", came, " of them", place.GetText());
}

void CISTREAM::FailLength(long length) const {
    FailWith(kErrStreamEnd, "cannot read a text of ", length, " characters: wanted a length from 0");
}

void CISTREAM::ReadExactly(void* buffer, long count) {
    const long came = GetValue(buffer, count);
    if (came != count) {
        FailEnd(count, came);
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
    const unsigned long long left = BytesLeft(*this);
    if (size > std::min<unsigned long long>(left, kLongestBlock)) {
        FailBlock(*this, size, left);
    }
    const bool isSizeSure = left != kUnknown;
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

// Through 32 bits, which keep the old value where a stream stores fewer bytes, or none.
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
        FailEnd(sizeof(stored), count);
    }
}

void CISTREAM::GetValue(unsigned long& value) { ReadWidened<std::uint32_t>(value); }

void CISTREAM::GetValue(unsigned short& value) { ReadPlain(value); }

void CISTREAM::GetValue(long& value) { ReadWidened<std::int32_t>(value); }

void CISTREAM::GetValue(short& value) { ReadPlain(value); }

void CISTREAM::GetValue(std::string& value, long length) {
    if (length < 0) {
        FailLength(length);
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
        FailLength(length);
    }
    Require(buffer != nullptr, kErrNull, "the buffer for a text of ", length, " characters is null");
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
    if (length < 0) {
        const STREAMPLACE place("before", *this);
        FailWith(kErrStreamEnd, "a class identifier of ", length, " characters", place.GetText(),
                 ": wanted a length from 0");
    }
    std::string identifier;
    GetValue(identifier, length);
    const CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> object = CreateObject(*this, identifier);
    const OBJECTDEPTH depth(mObjectDepth);
    GetValue(static_cast<CSERIALIZABLE&>(*object));
    return object;
}

int CISTREAM::IsEndOfLine() const { return IsEnd(); }

void CISTREAM::ReadLine(std::string&) {}

void CISTREAM::GetNextLine() {}

}  // namespace MLCore
