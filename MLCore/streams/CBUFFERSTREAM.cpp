#include <MLCore/streams/CBUFFERSTREAM.h>

#include <cstring>

namespace MLCore {

CBUFFERSTREAM::CBUFFERSTREAM() : CSTREAM(ReadWrite) {}

CBUFFERSTREAM::CBUFFERSTREAM(unsigned long capacity) : CSTREAM(ReadWrite) { mBlock.SetSize(capacity); }

CBUFFERSTREAM::CBUFFERSTREAM(unsigned long size, const void* data) : CSTREAM(ReadWrite) {
    if (size != 0) {
        FailNull(data);
        mBlock.SetSize(size);
        std::memcpy(mBlock.GetData(), data, size);
        mCursor = STREAMCURSOR(size);
    }
}

CBUFFERSTREAM::~CBUFFERSTREAM() = default;

const void* CBUFFERSTREAM::GetBuffer() const {
    FailClosed(*this);
    return mBlock.GetData();
}

unsigned long long CBUFFERSTREAM::GetWritePosition() const { return GetSize(); }

}  // namespace MLCore
