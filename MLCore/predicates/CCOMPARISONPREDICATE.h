#pragma once

#include <MLCore/predicates/CPREDICATE.h>
#include <MLCore/values/CVALUEOBJECT.h>

namespace MLCore {

/// A comparison of expressions, by the rules of CVALUEOBJECT.
class MLCORE_API CCOMPARISONPREDICATE : public CPREDICATE {
    MLCORE_CLASS(CCOMPARISONPREDICATE, CPREDICATE)

public:
    [[nodiscard]] CVALUEOBJECT::ComparisonType GetComparisonType() const noexcept { return mType; }
    [[nodiscard]] CVALUEOBJECT::ComparisonOption GetComparisonOption() const noexcept { return mOption; }

    /// Reads the option of the element just entered, from the attribute "compType": option 0 without one. Fails with 138 for
    /// an unknown word.
    virtual void InitFromKeyReader(CKEYREADER& reader);
    /// Writes the option as the attribute of the element just begun; option 0 writes none.
    virtual void WriteToKeyWriter(CKEYWRITER& writer) const;

    /// The comparison's element, with the operands' in order. An unknown type fails with 138.
    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

protected:
    explicit CCOMPARISONPREDICATE(CVALUEOBJECT::ComparisonType type, CVALUEOBJECT::ComparisonOption option =
                                                                         CVALUEOBJECT::ComparisonOption::CaseSensitive);
    CCOMPARISONPREDICATE(const CCOMPARISONPREDICATE&) = default;
    ~CCOMPARISONPREDICATE() override;

private:
    /// What DoWriteState() and DoInitState() do between the option and the end of the element.
    virtual void WriteOperands(CKEYWRITER& writer) const = 0;
    virtual void ReadOperands(CKEYREADER& reader) = 0;

    CVALUEOBJECT::ComparisonType mType;
    CVALUEOBJECT::ComparisonOption mOption;
};

/// Writes "CCOMPARISONPREDICATE(ComparisonType::Equal)"; "CCOMPARISONPREDICATE()" for null or an unknown type.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CCOMPARISONPREDICATE* predicate);

}  // namespace MLCore
