#pragma once

#include <MLCore/predicates/CEXPRESSION.h>

#include <string>

namespace MLCore {

/// An expression that holds one text: a key path or a name. In a key stream it is an element with one attribute;
/// ExpressionWords.h has the words.
class MLCORE_API TEXTEXPRESSION : public CEXPRESSION {
public:
    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

protected:
    TEXTEXPRESSION(ExpressionType type, const std::string& text);
    TEXTEXPRESSION(const TEXTEXPRESSION&) = default;
    ~TEXTEXPRESSION() override;

    [[nodiscard]] const std::string& GetHeldText() const noexcept { return mText; }

private:
    std::string mText;
};

}  // namespace MLCore
