#include <MLCore/values/COBJECTITERATOR.h>

namespace MLCore {

COBJECTITERATOR::~COBJECTITERATOR() = default;

}  // namespace MLCore
