#include <MLCore/predicates/detail/TEXTEXPRESSION.h>

#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/keys/CKEYWRITER.h>
#include <MLCore/predicates/detail/ExpressionWords.h>

namespace MLCore {

TEXTEXPRESSION::TEXTEXPRESSION(ExpressionType type, const std::string& text) : CEXPRESSION(type), mText(text) {}

TEXTEXPRESSION::~TEXTEXPRESSION() = default;

void TEXTEXPRESSION::DoWriteState(CKEYWRITER& writer) const {
    const EXPRESSIONWORDS& words = WordsOf(GetExpressionType());
    writer.BeginElement(words.element);
    writer.SetAttribute(words.attribute, mText);
    writer.EndElement();
}

void TEXTEXPRESSION::DoInitState(CKEYREADER& reader) {
    const EXPRESSIONWORDS& words = WordsOf(GetExpressionType());
    reader.BeginElement(words.element);
    std::string text = reader.GetAttribute(words.attribute);
    reader.EndElement();
    mText = std::move(text);
}

}  // namespace MLCore
