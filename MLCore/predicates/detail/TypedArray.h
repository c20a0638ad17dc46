/// Arrays whose elements are all of one class.
#pragma once

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/values/CMEMARRAY.h>

#include <initializer_list>
#include <utility>
#include <vector>

namespace MLCore {

/// A new array of the same elements. A null one fails with -100, one that is no Class with 121.
template <class Class>
[[nodiscard]] CSHAREOBJECTPTR<CARRAY> CopyOf(const CARRAY& array) {
    std::vector<CSHAREOBJECTPTR<COBJECT>> elements;
    for (CSHAREOBJECTPTR<COBJECT> element : array) {
        FailNull(element);
        if (dynamic_cast<Class*>(element.Get()) == nullptr) {
            FailOSErr(kErrBadCast);
        }
        elements.push_back(std::move(element));
    }
    return CMEMARRAY::Create(std::move(elements));
}

/// A null one fails with -100.
template <class Class>
[[nodiscard]] CSHAREOBJECTPTR<CARRAY> ArrayOf(std::initializer_list<CSHAREOBJECTPTR<Class>> elements) {
    for (const CSHAREOBJECTPTR<Class>& element : elements) {
        FailNull(element);
    }
    return CMEMARRAY::Create(std::vector<CSHAREOBJECTPTR<COBJECT>>(elements.begin(), elements.end()));
}

/// Calls `action` with each element, a Class, of an array made by these.
template <class Class, class Action>
void ForEachOf(const CARRAY& array, const Action& action) {
    for (long index = 0; index < array.GetCount(); ++index) {
        action(*static_cast<Class*>(array.GetObjectAt(index).Get()));
    }
}

}  // namespace MLCore
