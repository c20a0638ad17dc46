/// \file
/// Arrays whose elements are all of one class.
#pragma once

#include <MLCore/core/FailureChecks.h>
#include <MLCore/values/CMEMARRAY.h>

#include <utility>
#include <vector>

namespace MLCore {

/// Fails with kErrNull (-100) for a null element. `what` names the array in the text of the failure: "a list of
/// expressions".
void RequireElement(const COBJECT* element, long index, const char* what);
/// Fails with kErrBadCast (121).
[[noreturn]] void FailElementClass(const COBJECT& element, long index, const char* what, const CCLASSTYPEINFO& wanted);

/// Returns a new array of the same elements. Fails with kErrNull for a null element, and with kErrBadCast for an
/// element that is not a Class.
template <class Class>
[[nodiscard]] CSHAREOBJECTPTR<CARRAY> CopyOf(const CARRAY& array, const char* what);

/// Calls `action` with each element, a Class, of an array in which every element was checked.
template <class Class, class Action>
void ForEachOf(const CARRAY& array, const Action& action);

template <class Class>
CSHAREOBJECTPTR<CARRAY> CopyOf(const CARRAY& array, const char* what) {
    std::vector<CSHAREOBJECTPTR<COBJECT>> elements;
    for (CSHAREOBJECTPTR<COBJECT> element : array) {
        const auto index = static_cast<long>(elements.size());
        RequireElement(element, index, what);
        if (dynamic_cast<Class*>(element.Get()) == nullptr) {
            FailElementClass(*element, index, what, Class::ClassInfoStatic());
        }
        elements.push_back(std::move(element));
    }
    return CMEMARRAY::Create(std::move(elements));
}

template <class Class, class Action>
void ForEachOf(const CARRAY& array, const Action& action) {
    for (long index = 0; index < array.GetCount(); ++index) {
        action(*static_cast<Class*>(array.GetObjectAt(index).Get()));
    }
}

}  // namespace MLCore
