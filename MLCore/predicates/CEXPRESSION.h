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

/// An operand of a predicate. It yields an object when it is given the object under test and a dictionary of variables.
///
/// Expressions do not change after their creation. Predicates and threads may share them; moving one copies it.
/// Dispatch() in Dispatch.h chooses an action by the class of an expression.
class MLCORE_API CEXPRESSION : public COBJECT, public CKEYSERIALIZABLE {
    MLCORE_CLASS(CEXPRESSION, COBJECT)

public:
    enum class ExpressionType : std::int32_t { Key, Value, List, Variable, Function, Object };
    static constexpr std::size_t kExpressionTypeCount = static_cast<std::size_t>(ExpressionType::Object) + 1;

    /// Returns the value for `object` (may be null) and the variables. The value may be null.
    [[nodiscard]] virtual CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object, CDICTIONARY& variables) = 0;
    /// The same, with every variable null.
    [[nodiscard]] virtual CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object) = 0;
    /// Shows the expression to the visitor. A list then shows its items, if the visitor asks for them.
    virtual void Accept(CPREDICATEVISITOR& visitor) const;

    [[nodiscard]] ExpressionType GetExpressionType() const noexcept { return mExpressionType; }

    /// Reads one expression of any class except CFUNCTIONEXPRESSION. Fails with kErrValueType (138) when the reader
    /// stands on another element, on none, or on one that its class cannot read.
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create(CKEYREADER& reader);

    CEXPRESSION& operator=(const CEXPRESSION&) = delete;

protected:
    explicit CEXPRESSION(ExpressionType type) noexcept;
    CEXPRESSION(const CEXPRESSION&) = default;
    ~CEXPRESSION() override;

private:
    ExpressionType mExpressionType;
};

/// Writes the dump of the library's class that the expression is of or derives from; see the `<<` of that class. Writes
/// "CEXPRESSION()" for null and for a class that derives from CEXPRESSION alone.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CEXPRESSION* expression);

}  // namespace MLCore
