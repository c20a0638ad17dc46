#include <MLCore/streams/CRANDOMSTREAM.h>

namespace MLCore {

CRANDOMSTREAM::~CRANDOMSTREAM() = default;

}  // namespace MLCore
