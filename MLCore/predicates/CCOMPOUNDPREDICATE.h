#pragma once

#include <MLCore/predicates/CPREDICATE.h>
#include <MLCore/values/CARRAY.h>

#include <initializer_list>
#include <memory>
#include <vector>

namespace MLCore {

/// Predicates joined by AND, OR or NOT, held in the order given.
class MLCORE_API CCOMPOUNDPREDICATE : public CPREDICATE {
    MLCORE_CLASS(CCOMPOUNDPREDICATE, CPREDICATE)

public:
    enum class Type : std::int32_t { AND, OR, NOT };

    [[nodiscard]] Type GetType() const noexcept { return mType; }
    [[nodiscard]] const CARRAY& GetPredicates() const noexcept { return *mMembers->array; }

    /// Stops at the first member that decides. Of no members, AND is true and OR false.
    [[nodiscard]] int Evaluate(COBJECT* object, CDICTIONARY& variables) const override;
    [[nodiscard]] int Evaluate(COBJECT* object) const override;
    void Accept(CPREDICATEVISITOR& visitor) const override;

    /// The element "and", "or" or "not" with each member's. An unknown type fails with 138, and so does a NOT of
    /// another number of members than one.
    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

protected:
    explicit CCOMPOUNDPREDICATE(Type type);
    /// Copies the array, not its members. A null member fails with -100, one that is no CPREDICATE with 121.
    CCOMPOUNDPREDICATE(Type type, const CARRAY& predicates);
    /// Shares the list of members.
    CCOMPOUNDPREDICATE(const CCOMPOUNDPREDICATE&) = default;
    ~CCOMPOUNDPREDICATE() override;

    /// For constructors and factories. Null fails with -100.
    void AddPredicate(CSHAREOBJECTPTR<CPREDICATE> predicate);
    void AddPredicates(std::initializer_list<CSHAREOBJECTPTR<CPREDICATE>> predicates);

private:
    template <class Evaluation>
    [[nodiscard]] int Decide(const Evaluation& evaluate) const;
    void FailMemberCount() const;

    struct MEMBERS {
        CSHAREOBJECTPTR<CARRAY> array;
        std::vector<const CPREDICATE*> pointers;  // those in the array, without the cost of asking it
    };

    Type mType;
    std::shared_ptr<MEMBERS> mMembers;  // copies share it
};

/// Writes "COMPOUNDTYPE_AND" and so on; nothing for an unknown one.
MLCORE_API std::ostream& operator<<(std::ostream& out, CCOMPOUNDPREDICATE::Type type);
/// Writes "CCOMPOUNDPREDICATE(COMPOUNDTYPE_AND)"; "CCOMPOUNDPREDICATE()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CCOMPOUNDPREDICATE* predicate);

}  // namespace MLCore
