#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/keys/CKEYSERIALIZABLE.h>
#include <MLCore/platform/Export.h>

#include <cstddef>
#include <cstdint>
#include <iosfwd>

namespace MLCore {

class CDICTIONARY;
class CPREDICATEVISITOR;

/// A condition that an object meets or does not meet; CARRAY::Filter() evaluates it for each element.
///
///     const auto isLarge =
///         CGREATERPREDICATE::Create(CKEYEXPRESSION::Create("amount"), CVALUEEXPRESSION::Create(1000L));
///     const auto large = orders->Filter(isLarge);
///
/// Predicates do not change after their creation and may be shared. Any number of threads may evaluate one
/// concurrently, as far as the objects under test allow it. Dispatch() in Dispatch.h chooses an action by the class
/// of a predicate.
class MLCORE_API CPREDICATE : public COBJECT, public CKEYSERIALIZABLE {
    MLCORE_CLASS(CPREDICATE, COBJECT)

public:
    enum class PredicateType : std::int32_t { Value, Compound, Comparison, SearchText };
    static constexpr std::size_t kPredicateTypeCount = static_cast<std::size_t>(PredicateType::SearchText) + 1;

    /// Returns a value other than 0 when `object` (may be null) meets the condition; `variables` holds the values of
    /// the variables. Fails as the object's GetKeyPathValue() does, and with kErrValueType (138) for values that
    /// cannot be compared.
    [[nodiscard]] virtual int Evaluate(COBJECT* object, CDICTIONARY& variables) const = 0;
    /// The same, with every variable null.
    [[nodiscard]] virtual int Evaluate(COBJECT* object) const = 0;
    /// Shows the predicate to the visitor, and then its members or operands, if the visitor asks for them.
    virtual void Accept(CPREDICATEVISITOR& visitor) const;

    [[nodiscard]] PredicateType GetPredicateType() const noexcept { return mPredicateType; }

    /// These two fail with kErrValueType unless the class overrides them: key streams cannot hold an application's own
    /// predicates.
    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

    /// Reads one predicate of any class of the library. Fails with kErrValueType when the reader stands on another
    /// element, on none, or on one that its class cannot read.
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(CKEYREADER& reader);

    CPREDICATE& operator=(const CPREDICATE&) = delete;

protected:
    explicit CPREDICATE(PredicateType type) noexcept;
    CPREDICATE(const CPREDICATE&) = default;
    ~CPREDICATE() override;

private:
    PredicateType mPredicateType;
};

/// Writes "PredicateType::Value" and so on; nothing for an unknown type.
MLCORE_API std::ostream& operator<<(std::ostream& out, CPREDICATE::PredicateType type);
/// Writes the dump of the library's class that the predicate is of or derives from; see the `<<` of that class. For a
/// class that derives from CPREDICATE alone it writes "CPREDICATE(PredicateType::Value)" and so on, for null
/// "CPREDICATE()".
MLCORE_API std::ostream& operator<<(std::ostream& out, const CPREDICATE* predicate);

}  // namespace MLCore
