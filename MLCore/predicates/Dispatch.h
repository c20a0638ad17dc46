/// \file
/// Chooses an action by the class of a predicate or an expression. Visitors, translators and renderers use it instead
/// of a series of casts.
///
///     std::string Describe(const CEXPRESSION& expression) {
///         return Dispatch(
///             expression, [](const CKEYEXPRESSION& key) { return "the property " + key.GetKey(); },
///             [](const CVARIABLEEXPRESSION& variable) { return "the variable " + variable.GetName(); },
///             [](const CEXPRESSION& other) { return std::string(other.GetClassName()); });
///     }
#pragma once

#include <MLCore/predicates/CANDPREDICATE.h>
#include <MLCore/predicates/CCOMPARISONBETWEENPREDICATE.h>
#include <MLCore/predicates/CCOMPARISONBINARYPREDICATE.h>
#include <MLCore/predicates/CCOMPARISONINPREDICATE.h>
#include <MLCore/predicates/CFUNCTIONEXPRESSION.h>
#include <MLCore/predicates/CKEYEXPRESSION.h>
#include <MLCore/predicates/CLISTEXPRESSION.h>
#include <MLCore/predicates/CNOTPREDICATE.h>
#include <MLCore/predicates/COBJECTEXPRESSION.h>
#include <MLCore/predicates/CORPREDICATE.h>
#include <MLCore/predicates/CSEARCHTEXTPREDICATE.h>
#include <MLCore/predicates/CVALUEEXPRESSION.h>
#include <MLCore/predicates/CVALUEPREDICATE.h>
#include <MLCore/predicates/CVARIABLEEXPRESSION.h>
#include <MLCore/predicates/detail/NodeDispatch.h>

#include <utility>

namespace MLCore {

/// Calls the one of `callables` that takes the class of the expression: CKEYEXPRESSION, CVALUEEXPRESSION,
/// CLISTEXPRESSION, CVARIABLEEXPRESSION, CFUNCTIONEXPRESSION or COBJECTEXPRESSION. An expression of another class
/// counts as the nearest of them that its class derives from, as declared with MLCORE_CLASS, or else as a
/// CEXPRESSION.
///
/// The callables are lambdas or other function objects with a parameter `const X&`. Together they are one set of
/// overloads, and the usual rules choose between them: one that takes a base class is called for every derived class
/// that has no callable. So a callable for CEXPRESSION is called for all the rest. Without it, the call does not
/// compile if a class of the library has no callable. At run time, an expression that derives from CEXPRESSION alone
/// then fails with kErrBadCast (121).
///
/// Returns the result of the call; all calls must return the same type. Several callables are copied or moved into one
/// overload set, so that a named callable with a state of its own keeps it unchanged; a single callable is called as it
/// is.
template <class... Callables>
decltype(auto) Dispatch(const CEXPRESSION& expression, Callables&&... callables);

/// The same for the classes of predicates: CVALUEPREDICATE, CANDPREDICATE, CORPREDICATE, CNOTPREDICATE,
/// CCOMPARISONBINARYPREDICATE, CCOMPARISONINPREDICATE, CCOMPARISONBETWEENPREDICATE and CSEARCHTEXTPREDICATE. The
/// comparisons of BinaryPredicates.h are CCOMPARISONBINARYPREDICATE here; GetComparisonType() says which.
///
/// An application's own predicate may count as the base classes CCOMPOUNDPREDICATE, CCOMPARISONPREDICATE or CPREDICATE.
/// If no callable takes one of these, the call fails at run time.
template <class... Callables>
decltype(auto) Dispatch(const CPREDICATE& predicate, Callables&&... callables);

template <class... Callables>
decltype(auto) Dispatch(const CEXPRESSION& expression, Callables&&... callables) {
    using CLASSES = NODECLASSES<CEXPRESSION, CKEYEXPRESSION, CVALUEEXPRESSION, CLISTEXPRESSION, CVARIABLEEXPRESSION,
                                CFUNCTIONEXPRESSION, COBJECTEXPRESSION>;
    return CLASSES::Dispatch(expression, std::forward<Callables>(callables)...);
}

template <class... Callables>
decltype(auto) Dispatch(const CPREDICATE& predicate, Callables&&... callables) {
    using CLASSES =
        NODECLASSES<CPREDICATE, CCOMPARISONBINARYPREDICATE, CCOMPARISONINPREDICATE, CCOMPARISONBETWEENPREDICATE,
                    CANDPREDICATE, CORPREDICATE, CNOTPREDICATE, CVALUEPREDICATE, CSEARCHTEXTPREDICATE,
                    OPENCLASS<CCOMPOUNDPREDICATE>, OPENCLASS<CCOMPARISONPREDICATE>>;
    return CLASSES::Dispatch(predicate, std::forward<Callables>(callables)...);
}

}  // namespace MLCore
