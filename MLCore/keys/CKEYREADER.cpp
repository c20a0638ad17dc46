#include <MLCore/keys/CKEYREADER.h>

namespace MLCore {

CKEYREADER::~CKEYREADER() = default;

}  // namespace MLCore
