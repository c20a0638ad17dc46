#pragma once

#include <MLCore/core/FrameworkException.h>
#include <MLCore/predicates/detail/OPERANDS.h>
#include <MLCore/values/CVALUEOBJECT.h>

namespace MLCore {

/// Throws a failure of a comparison again, with the key that was compared and the operator in its text: those find the
/// data at fault. Other failures pass unchanged. Must be called while the failure is handled.
[[noreturn]] void FailInComparison(const FrameworkException& failure, CVALUEOBJECT::ComparisonType type,
                                   const OPERANDS& operands);

}  // namespace MLCore
