#include <MLCore/streams/CSTREAM.h>

namespace MLCore {

CSTREAM::CSTREAM(OpenMode mode) noexcept : mOpenMode(mode) {}

CSTREAM::~CSTREAM() = default;

CSTREAM::OpenMode CSTREAM::GetOpenMode() const { return mOpenMode; }

int CSTREAM::IsOpen() const { return mIsOpen; }

void CSTREAM::Open() { mIsOpen = 1; }

void CSTREAM::Close() { mIsOpen = 0; }

}  // namespace MLCore
