#include <MLCore/streams/CSERIALIZABLE.h>

namespace MLCore {

CSERIALIZABLE::~CSERIALIZABLE() = default;

}  // namespace MLCore
