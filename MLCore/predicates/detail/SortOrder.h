#pragma once

#include <MLCore/values/Elements.h>

namespace MLCore {

/// The elements of a sort order, each of them a CSORTDESCRIPTOR. Fails with kErrBadCast when one is not.
[[nodiscard]] Elements DescriptorsOf(const CARRAY& order);

}  // namespace MLCore
