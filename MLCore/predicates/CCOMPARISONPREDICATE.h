#pragma once

#include <MLCore/predicates/CPREDICATE.h>
#include <MLCore/predicates/detail/OPERANDS.h>
#include <MLCore/values/CVALUEOBJECT.h>

#include <initializer_list>

namespace MLCore {

/// A comparison of two or three expressions, by the rules of CVALUEOBJECT.
class MLCORE_API CCOMPARISONPREDICATE : public CPREDICATE {
    MLCORE_CLASS(CCOMPARISONPREDICATE, CPREDICATE)

public:
    [[nodiscard]] CVALUEOBJECT::ComparisonType GetComparisonType() const noexcept { return mType; }
    [[nodiscard]] CVALUEOBJECT::ComparisonOption GetComparisonOption() const noexcept { return mOption; }

    void Accept(CPREDICATEVISITOR& visitor) const override;

    /// Reads the option of the element entered last from its attribute "compType": option 0 without one. Fails with
    /// kErrValueType (138) for an unknown word.
    virtual void InitFromKeyReader(CKEYREADER& reader);
    /// Writes the option as an attribute of the element begun last. Option 0 is not written.
    virtual void WriteToKeyWriter(CKEYWRITER& writer) const;

    /// The element of the comparison type, with the elements of the operands in order. Fails with kErrValueType for an
    /// unknown type.
    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

protected:
    /// `operands` are at most three; more fail with kErrValueType, and a null one with kErrNull (-100). Without
    /// operands, the comparison holds constants Null until it is read: three for the type Between, else two.
    explicit CCOMPARISONPREDICATE(CVALUEOBJECT::ComparisonType type,
                                  CVALUEOBJECT::ComparisonOption option = CVALUEOBJECT::ComparisonOption::CaseSensitive,
                                  std::initializer_list<CSHAREOBJECTPTR<CEXPRESSION>> operands = {});
    CCOMPARISONPREDICATE(const CCOMPARISONPREDICATE&) = default;
    ~CCOMPARISONPREDICATE() override;

    [[nodiscard]] const OPERANDS& GetOperands() const noexcept { return mOperands; }

private:
    CVALUEOBJECT::ComparisonType mType;
    CVALUEOBJECT::ComparisonOption mOption;
    OPERANDS mOperands;
};

/// Writes "CCOMPARISONPREDICATE(ComparisonType::Equal)"; "CCOMPARISONPREDICATE()" for null and for an unknown type.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CCOMPARISONPREDICATE* predicate);

}  // namespace MLCore
