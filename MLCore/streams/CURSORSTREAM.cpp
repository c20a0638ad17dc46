#include <MLCore/streams/CURSORSTREAM.h>

namespace MLCore {

template class CURSORSTREAM<CRANDOMISTREAM>;
template class CURSORSTREAM<CRANDOMIOSTREAM>;

}  // namespace MLCore
