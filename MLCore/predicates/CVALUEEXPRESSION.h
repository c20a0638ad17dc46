#pragma once

#include <MLCore/predicates/CEXPRESSION.h>
#include <MLCore/values/CVALUE.h>

namespace MLCore {

/// A constant.
class MLCORE_API CVALUEEXPRESSION : public CEXPRESSION {
    MLCORE_CLASS(CVALUEEXPRESSION, CEXPRESSION)

public:
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create(const CVALUE& value);
    CVALUEEXPRESSION(const CVALUEEXPRESSION&) = default;

    [[nodiscard]] const CVALUE& GetValue() const noexcept { return mValue; }
    [[nodiscard]] CVALUE::Type GetType() const noexcept { return mValue.GetType(); }
    [[nodiscard]] int IsNull() const noexcept { return mValue.IsNull(); }

    /// Returns a new value object that holds the constant. Neither the object nor the variables are used.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object, CDICTIONARY& variables) override;
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object) override;

    /// Fails with kErrValueType (138) for a Guid, an Object, an invalid date or time, and a text that the writer
    /// cannot write.
    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

protected:
    explicit CVALUEEXPRESSION(const CVALUE& value = {});
    ~CVALUEEXPRESSION() override;

private:
    CVALUE mValue;
};

/// Writes "CVALUEEXPRESSION(5)": the value's text as AppendValueText() writes it, unquoted. Writes
/// "CVALUEEXPRESSION()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CVALUEEXPRESSION* expression);

}  // namespace MLCore
