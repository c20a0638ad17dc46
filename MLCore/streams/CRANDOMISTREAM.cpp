#include <MLCore/streams/CRANDOMISTREAM.h>

namespace MLCore {

CRANDOMISTREAM::CRANDOMISTREAM(OpenMode mode) : CSTREAM(mode), CISTREAM(mode) {}

CRANDOMISTREAM::~CRANDOMISTREAM() = default;

void CRANDOMISTREAM::Rewind() { SetPosition(0); }

void CRANDOMISTREAM::Skip(long count) { OffsetPosition(count); }

}  // namespace MLCore
