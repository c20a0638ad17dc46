#pragma once

#include <MLCore/predicates/CEXPRESSION.h>

#include <string>
#include <utility>

namespace MLCore {

/// The value at a key path of the object under test.
class MLCORE_API CKEYEXPRESSION : public CEXPRESSION {
    MLCORE_CLASS(CKEYEXPRESSION, CEXPRESSION)

public:
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create(const std::string& key);
    CKEYEXPRESSION(const CKEYEXPRESSION&) = default;
    CKEYEXPRESSION(CKEYEXPRESSION&& other) : CKEYEXPRESSION(std::as_const(other)) {}

    [[nodiscard]] const std::string& GetKey() const noexcept { return mKey; }

    /// The object's GetKeyPathValue() of the key, with its failures; null for a null object. Variables do not matter.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object, CDICTIONARY& variables) override;
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object) override;

    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

    static constexpr const char* kElement = "key";

protected:
    explicit CKEYEXPRESSION(const std::string& key);
    ~CKEYEXPRESSION() override;

private:
    CKEYEXPRESSION();

    std::string mKey;
};

/// Writes "CKEYEXPRESSION(key)"; "CKEYEXPRESSION()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CKEYEXPRESSION* expression);

}  // namespace MLCore
