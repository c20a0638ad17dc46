/// Key-value access of a collection through its elements, shared by arrays and sets.
#pragma once

#include <MLCore/core/COBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/values/Elements.h>

#include <string>

namespace MLCore {

/// What GetKeyValue and SetKeyValue of CARRAY say, for these elements. The key is a copy: an element may change the
/// caller's.
[[nodiscard]] CSHAREOBJECTPTR<COBJECT> MappedKeyValue(Elements elements, std::string key);
void SetMappedKeyValue(const Elements& elements, std::string key, COBJECT* value);

}  // namespace MLCore
