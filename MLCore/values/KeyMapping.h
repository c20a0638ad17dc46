/// Key-value access of a collection through its elements, shared by arrays and sets. Not for clients.
#pragma once

#include <MLCore/core/COBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>

#include <string>
#include <vector>

namespace MLCore {

class CARRAY;
class CSET;

using ELEMENTS = std::vector<CSHAREOBJECTPTR<COBJECT>>;

/// The elements as they are now: what is called on them may change their collection, or drop it.
[[nodiscard]] ELEMENTS ElementsOf(const CARRAY& array);
[[nodiscard]] ELEMENTS ElementsOf(const CSET& set);

/// What GetKeyValue and SetKeyValue of CARRAY say, for these elements. The key is a copy: an element may change the caller's.
[[nodiscard]] CSHAREOBJECTPTR<COBJECT> MappedKeyValue(ELEMENTS elements, std::string key);
void SetMappedKeyValue(const ELEMENTS& elements, std::string key, COBJECT* value);

}  // namespace MLCore
