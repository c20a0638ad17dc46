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

/// An operand of a predicate: what yields an object, given the object under test and a dictionary of variables. Expressions
/// do not change after their creation and may be shared, between threads too; to move one is to copy it.
class MLCORE_API CEXPRESSION : public COBJECT, public CKEYSERIALIZABLE {
    MLCORE_CLASS(CEXPRESSION, COBJECT)

public:
    enum class ExpressionType : std::int32_t { Key, Value, List, Variable, Function, Object };

    /// The value for `object` (may be null) and the variables; may be null.
    [[nodiscard]] virtual CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object, CDICTIONARY& variables) = 0;
    /// The same where every variable is null.
    [[nodiscard]] virtual CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object) = 0;
    /// Shows itself to the visitor and, when that wants it, its items.
    virtual void Accept(CPREDICATEVISITOR& visitor) const;

    [[nodiscard]] ExpressionType GetExpressionType() const noexcept { return mExpressionType; }

    /// Reads one expression of any kind but a function. Fails with 138 for what is none.
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create(CKEYREADER& reader);

    CEXPRESSION& operator=(const CEXPRESSION&) = delete;

protected:
    explicit CEXPRESSION(ExpressionType type) noexcept;
    CEXPRESSION(const CEXPRESSION&) = default;
    ~CEXPRESSION() override;

private:
    ExpressionType mExpressionType;
};

/// The dump of the expression's own class, as that class tells it; "CEXPRESSION()" for null and for a class of another kind.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CEXPRESSION* expression);

}  // namespace MLCore
