#pragma once

#include <MLCore/predicates/CEXPRESSION.h>
#include <MLCore/values/CARRAY.h>

#include <initializer_list>

namespace MLCore {

/// A list of expressions. Its value is an array of their values, which CCOMPARISONINPREDICATE searches.
class MLCORE_API CLISTEXPRESSION : public CEXPRESSION {
    MLCORE_CLASS(CLISTEXPRESSION, CEXPRESSION)

public:
    /// An empty list.
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create();
    /// Copies the array, but not its items. Fails with kErrNull (-100) for a null item, and with kErrBadCast (121)
    /// for an item that is not a CEXPRESSION. The other functions fail for a null item too.
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create(const CARRAY& expressions);
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create(CSHAREOBJECTPTR<CEXPRESSION> first,
                                                             CSHAREOBJECTPTR<CEXPRESSION> second);
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create(
        std::initializer_list<CSHAREOBJECTPTR<CEXPRESSION>> expressions);
    /// The copy shares the items.
    CLISTEXPRESSION(const CLISTEXPRESSION&) = default;

    /// The items in order. Must not be changed.
    [[nodiscard]] const CARRAY& GetExpressions() const noexcept { return *mExpressions; }

    /// Returns a new array with the value of each item, in order.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object, CDICTIONARY& variables) override;
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object) override;
    void Accept(CPREDICATEVISITOR& visitor) const override;

    /// The element "list" with the element of each item.
    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

protected:
    CLISTEXPRESSION();
    /// Like Create().
    explicit CLISTEXPRESSION(const CARRAY& expressions);
    ~CLISTEXPRESSION() override;

private:
    CSHAREOBJECTPTR<CARRAY> mExpressions;
};

/// Writes "CLISTEXPRESSION(a,b,)": the dump of each item and a comma after it, also after the last. Writes
/// "CLISTEXPRESSION()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CLISTEXPRESSION* expression);

}  // namespace MLCore
