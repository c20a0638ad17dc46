#pragma once

#include <MLCore/predicates/CEXPRESSION.h>
#include <MLCore/values/CVALUE.h>
#include <MLCore/values/CVALUEOBJECT.h>

namespace MLCore {

/// A constant.
class MLCORE_API CVALUEEXPRESSION : public CEXPRESSION {
    MLCORE_CLASS(CVALUEEXPRESSION, CEXPRESSION)

public:
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create(const CVALUE& value);
    CVALUEEXPRESSION(const CVALUEEXPRESSION&) = default;
    CVALUEEXPRESSION(CVALUEEXPRESSION&&) = default;

    [[nodiscard]] const CVALUE& GetValue() const noexcept { return mConstant->GetValue(); }
    [[nodiscard]] CVALUE::Type GetType() const noexcept { return GetValue().GetType(); }
    [[nodiscard]] int IsNull() const noexcept { return GetValue().IsNull(); }

    /// A new value object with the constant.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object, CDICTIONARY& variables) override;
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object) override;
    /// The constant as predicates use it, without a new object each time. Not to be changed; valid while the expression lives.
    [[nodiscard]] CVALUEOBJECT* GetConstant() const noexcept { return mConstant; }

    /// Fails with 138 for a Guid, an Object, a date that is none, and a text with control characters.
    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

    static constexpr const char* kElement = "value";

protected:
    explicit CVALUEEXPRESSION(const CVALUE& value);
    ~CVALUEEXPRESSION() override;

private:
    CVALUEEXPRESSION();

    CSHAREOBJECTPTR<CVALUEOBJECT> mConstant;
};

/// Writes "CVALUEEXPRESSION(5)" with the value's text (AppendValueText), unquoted; "CVALUEEXPRESSION()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CVALUEEXPRESSION* expression);

}  // namespace MLCore
