#include <MLCore/streams/CENCODER.h>

namespace MLCore {

CENCODER::~CENCODER() = default;

}  // namespace MLCore
