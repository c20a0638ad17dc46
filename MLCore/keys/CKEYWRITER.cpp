#include <MLCore/keys/CKEYWRITER.h>

namespace MLCore {

CKEYWRITER::~CKEYWRITER() = default;

}  // namespace MLCore
