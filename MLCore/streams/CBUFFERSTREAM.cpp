#include <MLCore/streams/CBUFFERSTREAM.h>

#include <cstring>

namespace MLCore {

CBUFFERSTREAM::CBUFFERSTREAM() : CSTREAM(ReadWrite) {}

CBUFFERSTREAM::CBUFFERSTREAM(unsigned long capacity) : CSTREAM(ReadWrite) { Block().SetSize(capacity); }

CBUFFERSTREAM::CBUFFERSTREAM(unsigned long size, const void* data) : CSTREAM(ReadWrite) {
    if (size != 0) {
        Require(data != nullptr, kErrNull, "the ", size, " bytes to copy to a buffer stream are null");
        Block().SetSize(size);
        std::memcpy(Block().GetData(), data, size);
        mCursor = STREAMCURSOR(size);
    }
}

CBUFFERSTREAM::~CBUFFERSTREAM() = default;

void CBUFFERSTREAM::Open() {
    CGLOBALSTREAM::Open();
    Lend(typeid(CBUFFERSTREAM));
}

const void* CBUFFERSTREAM::GetBuffer() const {
    RequireReady("get the buffer");
    return Block().GetData();
}

unsigned long long CBUFFERSTREAM::GetWritePosition() const { return GetSize(); }

}  // namespace MLCore
