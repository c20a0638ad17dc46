#include <MLCore/logging/CLOGMANAGER.h>
#include <MLCore/logging/CLOGMANAGERPOLICY.h>

namespace MLCore {

void CLOGMANAGERPOLICY::Write(const std::string& name, const std::string& text) { CLOGMANAGER::WriteLine(name, text); }

}  // namespace MLCore
