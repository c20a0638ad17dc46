#pragma once

#include <MLCore/platform/Export.h>

namespace MLCore {

class CEXPRESSION;
class CPREDICATE;

/// Walks a tree of predicates and expressions: `predicate->Accept(visitor)` calls these functions for each node,
/// parents before children, children in order. Dispatch() in Dispatch.h distinguishes the classes of the nodes.
///
///     class KEYS : public CPREDICATEVISITOR {
///     public:
///         int VisitExpression(const CEXPRESSION& expression) override {
///             Dispatch(
///                 expression, [this](const CKEYEXPRESSION& key) { keys.push_back(key.GetKey()); },
///                 [](const CEXPRESSION&) {});
///             return 1;
///         }
///         int VisitPredicate(const CPREDICATE&) override { return 1; }
///         std::vector<std::string> keys;
///     };
class MLCORE_API CPREDICATEVISITOR {
public:
    virtual ~CPREDICATEVISITOR();

    /// A result other than 0 asks for the items of a list. The parameters of functions are not shown.
    virtual int VisitExpression(const CEXPRESSION& expression) = 0;
    /// A result other than 0 asks for the members or operands.
    virtual int VisitPredicate(const CPREDICATE& predicate) = 0;
    /// Called after the members and operands, also when they were not asked for. By default it does nothing.
    virtual void LeavePredicate(const CPREDICATE& predicate);

protected:
    CPREDICATEVISITOR() = default;
    CPREDICATEVISITOR(const CPREDICATEVISITOR&) = default;
    CPREDICATEVISITOR& operator=(const CPREDICATEVISITOR&) = default;
};

}  // namespace MLCore
