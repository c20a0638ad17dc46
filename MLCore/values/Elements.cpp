#include <MLCore/values/Elements.h>

#include <MLCore/values/CARRAY.h>
#include <MLCore/values/CSET.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace MLCore {

Elements ElementsOf(const CARRAY& array) {
    Elements elements;
    const long count = array.GetCount();
    elements.reserve(static_cast<std::size_t>(std::max(count, 0L)));
    for (long index = 0; index < count; ++index) {
        elements.push_back(array.GetObjectAt(index));
    }
    return elements;
}

Elements ElementsOf(const CSET& set) {
    Elements elements;
    elements.reserve(static_cast<std::size_t>(std::max(set.GetCount(), 0L)));
    for (CSHAREOBJECTPTR<COBJECT> element : set) {
        elements.push_back(std::move(element));
    }
    return elements;
}

}  // namespace MLCore
