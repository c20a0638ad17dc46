#include <MLCore/streams/detail/CGLOBALSTREAM.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <limits>

namespace MLCore {

/// The block may move, also when it then keeps its size because there is no memory.
struct CGLOBALSTREAM::AREAUPDATE {
    const CGLOBALSTREAM& stream;
    ~AREAUPDATE() { stream.SetArea(); }
};

CGLOBALSTREAM::CGLOBALSTREAM() : CURSORSTREAM(ReadWrite) {}

CGLOBALSTREAM::CGLOBALSTREAM(void* handle, bool owns) : CURSORSTREAM(ReadWrite), mBlock(handle, owns) {
    mCursor = STREAMCURSOR(mBlock.GetSize());
}

CGLOBALSTREAM::~CGLOBALSTREAM() { static_cast<void>(Block()); }

void CGLOBALSTREAM::Open() {
    if (mBlock.GetData() == nullptr) {
        mCursor.SetSize(std::min<unsigned long long>(mCursor.GetSize(), mBlock.Refresh()));
    }
    Block().Lock();
    SetArea();
    CURSORSTREAM::Open();
}

long CGLOBALSTREAM::GetValue(void* buffer, long count) {
    RequireReady("read");
    RequireBuffer(buffer, count, "read into");
    return mCursor.ReadFrom(mBlock.GetData(), buffer, count);
}

void CGLOBALSTREAM::SetValue(const void* buffer, long count) {
    RequireReady("write");
    RequireBuffer(buffer, count, "write from");
    if (count <= 0) {
        return;
    }
    if (mCursor.Put(buffer, static_cast<std::size_t>(count))) {
        return;
    }
    const unsigned long long end = mCursor.GetPosition() + static_cast<unsigned long long>(count);
    if (end > GetCapacity()) {
        // The bytes may lie in the block itself, which moves.
        const char* const source = static_cast<const char*>(buffer);
        const char* const data = static_cast<const char*>(mBlock.GetData());
        const bool isOwn =
            data != nullptr && !std::less<>()(source, data) && std::less<>()(source, data + GetCapacity());
        const std::ptrdiff_t offset = isOwn ? source - data : 0;
        SetCapacity(end);
        if (isOwn) {
            buffer = static_cast<const char*>(mBlock.GetData()) + offset;
        }
    }
    mCursor.WriteTo(mBlock.GetData(), buffer, count);
}

void CGLOBALSTREAM::SetSize(unsigned long long size) {
    RequireReady("set the size");
    const unsigned long long oldSize = mCursor.GetSize();
    if (size == oldSize) {
        return;
    }
    SetCapacity(size);
    if (size > oldSize) {
        // Whatever the memory held must not leak into files.
        std::memset(static_cast<char*>(mBlock.GetData()) + oldSize, 0, static_cast<std::size_t>(size - oldSize));
    }
    mCursor.SetSize(size);
}

void CGLOBALSTREAM::SetCapacity(unsigned long long capacity) {
    Require(capacity <= std::numeric_limits<std::size_t>::max(), kErrNull, "no memory for a stream of ", capacity,
            " bytes");
    if (capacity != GetCapacity()) {
        const AREAUPDATE update{*this};
        Block().SetSize(static_cast<std::size_t>(capacity));
    }
}

void* CGLOBALSTREAM::GetBlockHandle() const {
    const AREAUPDATE update{*this};
    return Block().GetHandle();
}

void CGLOBALSTREAM::SetArea() const noexcept {
    mCursor.SetArea({static_cast<char*>(mBlock.GetData()), 0, mBlock.GetRoom()});
}

}  // namespace MLCore
