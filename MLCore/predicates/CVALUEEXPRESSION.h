#pragma once

#include <MLCore/predicates/CEXPRESSION.h>
#include <MLCore/values/CVALUE.h>

#include <utility>

namespace MLCore {

/// A constant.
class MLCORE_API CVALUEEXPRESSION : public CEXPRESSION {
    MLCORE_CLASS(CVALUEEXPRESSION, CEXPRESSION)

public:
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create(const CVALUE& value);
    CVALUEEXPRESSION(const CVALUEEXPRESSION&) = default;
    CVALUEEXPRESSION(CVALUEEXPRESSION&& other) : CVALUEEXPRESSION(std::as_const(other)) {}

    [[nodiscard]] const CVALUE& GetValue() const noexcept { return mValue; }
    [[nodiscard]] CVALUE::Type GetType() const noexcept { return mValue.GetType(); }
    [[nodiscard]] int IsNull() const noexcept { return mValue.IsNull(); }

    /// A new value object with the constant.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object, CDICTIONARY& variables) override;
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object) override;

    /// Fails with 138 for a Guid, an Object, a date or time that is none, and a text that the writer cannot write.
    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

    static constexpr const char* kElement = "value";

protected:
    explicit CVALUEEXPRESSION(const CVALUE& value);
    ~CVALUEEXPRESSION() override;

private:
    CVALUEEXPRESSION();

    CVALUE mValue;
};

/// Writes "CVALUEEXPRESSION(5)" with the value's text (AppendValueText), unquoted; "CVALUEEXPRESSION()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CVALUEEXPRESSION* expression);

}  // namespace MLCore
