#include <MLCore/logging/CLOGGERBASIC.h>

namespace MLCore {

template class CLOGGERBASIC<CLOGMANAGERPOLICY>;
template class CLOGGERBASIC<CLOGDEBUGGERPOLICY>;

}  // namespace MLCore
