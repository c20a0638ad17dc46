#pragma once

#include <MLCore/platform/Export.h>

#include <string>
#include <typeinfo>

namespace MLCore::platform {

/// The name of a type as a programmer writes it, with its namespaces: "shop::CORDER".
///
/// Classes that are not templates have the same spelling on every compiler. The spelling of template arguments,
/// built-in types and unnamed types is the compiler's.
/// \throws std::bad_alloc
[[nodiscard]] MLCORE_API std::string TypeName(const std::type_info& type);

}  // namespace MLCore::platform
