#include <MLCore/values/CDICTIONARY.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(CDICTIONARY)

CDICTIONARY::~CDICTIONARY() = default;

}  // namespace MLCore
