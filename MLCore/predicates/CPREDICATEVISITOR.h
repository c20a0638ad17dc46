#pragma once

#include <MLCore/platform/Export.h>

namespace MLCore {

class CEXPRESSION;
class CPREDICATE;

/// Walks a tree of predicates and expressions: `predicate->Accept(visitor)` calls these for each node, parents first, children
/// in order. The accessors of the classes tell what a node holds.
///
///     class KEYS : public CPREDICATEVISITOR {
///     public:
///         int VisitExpression(const CEXPRESSION& expression) override {
///             if (const auto* key = dynamic_cast<const CKEYEXPRESSION*>(&expression)) keys.push_back(key->GetKey());
///             return 1;
///         }
///         int VisitPredicate(const CPREDICATE&) override { return 1; }
///         std::vector<std::string> keys;
///     };
class MLCORE_API CPREDICATEVISITOR {
public:
    virtual ~CPREDICATEVISITOR();

    /// Not 0: go on into the items of a list. Parameters of functions are not visited.
    virtual int VisitExpression(const CEXPRESSION& expression) = 0;
    /// Not 0: go on into the members or operands.
    virtual int VisitPredicate(const CPREDICATE& predicate) = 0;
    /// After the members and operands, also when they were left out.
    virtual void LeavePredicate(const CPREDICATE& predicate);

protected:
    CPREDICATEVISITOR() = default;
    CPREDICATEVISITOR(const CPREDICATEVISITOR&) = default;
    CPREDICATEVISITOR& operator=(const CPREDICATEVISITOR&) = default;
};

}  // namespace MLCore
