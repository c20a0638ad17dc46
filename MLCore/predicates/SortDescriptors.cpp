#include <MLCore/predicates/SortDescriptors.h>

#include <MLCore/core/FailureChecks.h>
#include <MLCore/predicates/CSORTDESCRIPTOR.h>
#include <MLCore/predicates/detail/SortOrder.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/Elements.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace MLCore {

Elements DescriptorsOf(const CARRAY& order) {
    Elements descriptors = ElementsOf(order);
    for (std::size_t index = 0; index < descriptors.size(); ++index) {
        const COBJECT* const element = descriptors[index];
        if (dynamic_cast<const CSORTDESCRIPTOR*>(element) == nullptr) {
            FailWith(kErrBadCast, "element ", index, " of the sort order is ",
                     element != nullptr ? element->GetClassName() : "null", ", wanted a CSORTDESCRIPTOR");
        }
    }
    return descriptors;
}

int CmpSortDescriptors(CARRAY* a, CARRAY* b) {
    if (a == nullptr || b == nullptr) {
        return a == b ? 1 : 0;
    }
    const auto areEqual = [](COBJECT* left, COBJECT* right) {
        const auto* const x = dynamic_cast<const CSORTDESCRIPTOR*>(left);
        const auto* const y = dynamic_cast<const CSORTDESCRIPTOR*>(right);
        return x != nullptr && y != nullptr && *x == *y;
    };
    return std::ranges::equal(ElementsOf(*a), ElementsOf(*b), areEqual) ? 1 : 0;
}

CSHAREOBJECTPTR<CARRAY> ReverseSortDescriptors(CARRAY* order) {
    using TYPE = CSORTDESCRIPTOR::SortOrderType;
    if (order == nullptr) {
        return nullptr;
    }
    Elements elements = DescriptorsOf(*order);
    for (CSHAREOBJECTPTR<COBJECT>& element : elements) {
        const auto& descriptor = static_cast<const CSORTDESCRIPTOR&>(*element);
        const bool isDescending = descriptor.GetSortOrderType() == TYPE::Descending;
        element = CSORTDESCRIPTOR::Create(descriptor.GetKey(), isDescending ? TYPE::Ascending : TYPE::Descending);
    }
    return CMEMARRAY::Create(std::move(elements));
}

}  // namespace MLCore
