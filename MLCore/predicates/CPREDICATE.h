#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/keys/CKEYSERIALIZABLE.h>
#include <MLCore/platform/Export.h>

#include <cstdint>
#include <iosfwd>

namespace MLCore {

class CDICTIONARY;
class CPREDICATEVISITOR;

/// A condition that an object meets or not: what CARRAY::Filter asks. Predicates do not change after their creation and may
/// be shared; any number of threads may evaluate one at the same time, as far as the objects allow it.
///
///     const auto isLarge = CGREATERPREDICATE::Create(CKEYEXPRESSION::Create("amount"), CVALUEEXPRESSION::Create(1000L));
///     const auto large = orders->Filter(isLarge);
class MLCORE_API CPREDICATE : public COBJECT, public CKEYSERIALIZABLE {
    MLCORE_CLASS(CPREDICATE, COBJECT)

public:
    enum class PredicateType : std::int32_t { Value, Compound, Comparison, SearchText };

    /// Not 0 when `object` (may be null) meets the condition; `variables` gives the values of its variables. Failures of the
    /// object's keys, and of values that cannot be compared (138), pass through.
    [[nodiscard]] virtual int Evaluate(COBJECT* object, CDICTIONARY& variables) const = 0;
    /// The same where every variable is null.
    [[nodiscard]] virtual int Evaluate(COBJECT* object) const = 0;
    /// Shows itself to the visitor and, when that wants it, its members or operands.
    virtual void Accept(CPREDICATEVISITOR& visitor) const;

    [[nodiscard]] PredicateType GetPredicateType() const noexcept { return mPredicateType; }

    /// Not for predicates that key streams cannot hold, such as an application's own: fail with 138.
    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

    /// Reads one predicate of any kind. Fails with 138 for what is none.
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(CKEYREADER& reader);

    CPREDICATE& operator=(const CPREDICATE&) = delete;

protected:
    explicit CPREDICATE(PredicateType type) noexcept;
    CPREDICATE(const CPREDICATE&) = default;
    ~CPREDICATE() override;

private:
    PredicateType mPredicateType;
};

/// Writes "PredicateType::Value" and so on; nothing for an unknown one.
MLCORE_API std::ostream& operator<<(std::ostream& out, CPREDICATE::PredicateType type);
/// The dump of the predicate's own class, as that class tells it; "CPREDICATE(PredicateType::Value)" and so on for a class
/// of another kind, "CPREDICATE()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CPREDICATE* predicate);

}  // namespace MLCore
