#pragma once

#include <MLCore/predicates/CPREDICATE.h>
#include <MLCore/values/CARRAY.h>

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <vector>

namespace MLCore {

/// Predicates that AND, OR or NOT combines, in the order given.
class MLCORE_API CCOMPOUNDPREDICATE : public CPREDICATE {
    MLCORE_CLASS(CCOMPOUNDPREDICATE, CPREDICATE)

public:
    enum class Type : std::int32_t { AND, OR, NOT };
    static constexpr std::size_t kTypeCount = static_cast<std::size_t>(Type::NOT) + 1;

    [[nodiscard]] Type GetType() const noexcept { return mType; }
    /// The members in order. Must not be changed.
    [[nodiscard]] const CARRAY& GetPredicates() const noexcept { return *mMembers->array; }

    /// Evaluates the members in order, up to the first one that decides. AND without members is true, OR without
    /// members false.
    [[nodiscard]] int Evaluate(COBJECT* object, CDICTIONARY& variables) const override;
    [[nodiscard]] int Evaluate(COBJECT* object) const override;
    void Accept(CPREDICATEVISITOR& visitor) const override;

    /// The element "and", "or" or "not" with the element of each member. Fails with kErrValueType (138) for an unknown
    /// type, and for a NOT that does not have exactly one member.
    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

protected:
    explicit CCOMPOUNDPREDICATE(Type type);
    /// Copies the array, but not its members. Fails with kErrNull (-100) for a null member, and with kErrBadCast
    /// (121) for a member that is not a CPREDICATE.
    CCOMPOUNDPREDICATE(Type type, const CARRAY& predicates);
    /// Fails with kErrNull for a null member.
    CCOMPOUNDPREDICATE(Type type, std::initializer_list<CSHAREOBJECTPTR<CPREDICATE>> predicates);
    /// The copy shares the list of members: a member that AddPredicate() adds to one belongs to both.
    CCOMPOUNDPREDICATE(const CCOMPOUNDPREDICATE&) = default;
    ~CCOMPOUNDPREDICATE() override;

    /// For constructors and factories only. Null fails with kErrNull and changes nothing.
    void AddPredicate(CSHAREOBJECTPTR<CPREDICATE> predicate);

private:
    template <class Evaluation>
    [[nodiscard]] int Decide(const Evaluation& evaluate) const;
    [[nodiscard]] bool HasRightCount() const;

    struct MEMBERS {
        CSHAREOBJECTPTR<CARRAY> array;
        std::vector<const CPREDICATE*> pointers;  // those in the array, without the cost of asking it
    };

    Type mType;
    std::shared_ptr<MEMBERS> mMembers;  // copies share it
};

/// Writes "COMPOUNDTYPE_AND" and so on; nothing for an unknown type.
MLCORE_API std::ostream& operator<<(std::ostream& out, CCOMPOUNDPREDICATE::Type type);
/// Writes "CCOMPOUNDPREDICATE(COMPOUNDTYPE_AND)"; "CCOMPOUNDPREDICATE()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CCOMPOUNDPREDICATE* predicate);

}  // namespace MLCore
