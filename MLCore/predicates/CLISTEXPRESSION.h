#pragma once

#include <MLCore/predicates/CEXPRESSION.h>
#include <MLCore/values/CARRAY.h>

#include <initializer_list>
#include <utility>

namespace MLCore {

/// A list of expressions, which yields the array of their values: what IN looks into.
class MLCORE_API CLISTEXPRESSION : public CEXPRESSION {
    MLCORE_CLASS(CLISTEXPRESSION, CEXPRESSION)

public:
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create();
    /// Copies the array, not its items. A null item fails with -100, one that is no CEXPRESSION with 121.
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create(const CARRAY& expressions);
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create(CSHAREOBJECTPTR<CEXPRESSION> first,
                                                             CSHAREOBJECTPTR<CEXPRESSION> second);
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create(
        std::initializer_list<CSHAREOBJECTPTR<CEXPRESSION>> expressions);
    CLISTEXPRESSION(const CLISTEXPRESSION&) = default;
    CLISTEXPRESSION(CLISTEXPRESSION&& other) : CLISTEXPRESSION(std::as_const(other)) {}

    [[nodiscard]] const CARRAY& GetExpressions() const noexcept { return *mExpressions; }

    /// A new array with the value of each item, in order.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object, CDICTIONARY& variables) override;
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object) override;
    void Accept(CPREDICATEVISITOR& visitor) const override;

    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

    static constexpr const char* kElement = "list";

protected:
    /// As Create(); a null array fails with -100.
    explicit CLISTEXPRESSION(CSHAREOBJECTPTR<CARRAY> expressions);
    ~CLISTEXPRESSION() override;

private:
    CLISTEXPRESSION();

    CSHAREOBJECTPTR<CARRAY> mExpressions;
};

/// Writes "CLISTEXPRESSION(a,b,)": each item's dump and a comma behind it, the last one too. "CLISTEXPRESSION()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CLISTEXPRESSION* expression);

}  // namespace MLCore
