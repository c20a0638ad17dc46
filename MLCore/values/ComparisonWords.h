#pragma once

#include <MLCore/values/CVALUEOBJECT.h>

namespace MLCore {

/// The words of element streams for the comparison options, indexed by option. The last spelling is that of all files.
inline constexpr const char* kOptionWords[] = {"caseSensitive", "caseInsensitive", "diacriticInsentive"};

}  // namespace MLCore
