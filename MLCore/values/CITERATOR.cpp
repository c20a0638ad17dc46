#include <MLCore/values/CITERATOR.h>

namespace MLCore {

CITERATOR::~CITERATOR() = default;

}  // namespace MLCore
