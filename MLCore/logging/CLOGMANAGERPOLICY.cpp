#include <MLCore/logging/CLOGMANAGERPOLICY.h>

#include <MLCore/logging/CLOGMANAGER.h>

namespace MLCore {

void CLOGMANAGERPOLICY::Write(const std::string& name, const std::string& text) { CLOGMANAGER::WriteLine(name, text); }

}  // namespace MLCore
