#include <MLCore/streams/CRANDOMIOSTREAM.h>

namespace MLCore {

CRANDOMIOSTREAM::CRANDOMIOSTREAM(OpenMode mode) : CSTREAM(mode), CISTREAM(mode), COSTREAM(mode) {}

CRANDOMIOSTREAM::~CRANDOMIOSTREAM() = default;

void CRANDOMIOSTREAM::Rewind() { SetPosition(0); }

void CRANDOMIOSTREAM::Skip(long count) { OffsetPosition(count); }

}  // namespace MLCore
