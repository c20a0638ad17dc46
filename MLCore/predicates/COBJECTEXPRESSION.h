#pragma once

#include <MLCore/predicates/CEXPRESSION.h>

#include <string>
#include <utility>

namespace MLCore {

/// The name of an object. It is carried, written and read, and has no value.
class MLCORE_API COBJECTEXPRESSION : public CEXPRESSION {
    MLCORE_CLASS(COBJECTEXPRESSION, CEXPRESSION)

public:
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create(const std::string& name);
    COBJECTEXPRESSION(const COBJECTEXPRESSION&) = default;
    COBJECTEXPRESSION(COBJECTEXPRESSION&& other) : COBJECTEXPRESSION(std::as_const(other)) {}

    [[nodiscard]] const std::string& GetName() const noexcept { return mName; }

    /// Null.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object, CDICTIONARY& variables) override;
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object) override;

    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

    static constexpr const char* kElement = "object";

protected:
    explicit COBJECTEXPRESSION(const std::string& name);
    ~COBJECTEXPRESSION() override;

private:
    COBJECTEXPRESSION();

    std::string mName;
};

/// Writes "COBJECTEXPRESSION(name)"; "COBJECTEXPRESSION()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const COBJECTEXPRESSION* expression);

}  // namespace MLCore
