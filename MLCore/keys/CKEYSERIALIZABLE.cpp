#include <MLCore/keys/CKEYSERIALIZABLE.h>

namespace MLCore {

CKEYSERIALIZABLE::~CKEYSERIALIZABLE() = default;

}  // namespace MLCore
