#include <MLCore/predicates/CPREDICATEHELPER.h>

#include <MLCore/predicates/CPREDICATEVISITOR.h>
#include <MLCore/predicates/Dispatch.h>
#include <MLCore/predicates/detail/PredicateWords.h>
#include <MLCore/predicates/detail/TypedArray.h>
#include <MLCore/values/ComparisonWords.h>
#include <MLCore/values/ValueText.h>

#include <cstddef>
#include <sstream>
#include <unordered_set>

namespace MLCore {

namespace {

// Without it, a stream that finds no memory would silently lose the rest of the text.
constexpr std::ios_base::iostate kFailing = std::ios_base::badbit;

std::string OperatorText(CVALUEOBJECT::ComparisonType type) {
    const COMPARISONWORDS* const words = WordsOf(type);
    const bool isOperator = words != nullptr && words->queryOperator != nullptr;
    return isOperator ? words->queryOperator : ' ' + std::to_string(static_cast<int>(type)) + ' ';
}

}  // namespace

/// Operators stand between their operands, so each node writes itself and shows the visitor its children at their
/// places, instead of leaving that to Accept().
class CPREDICATEHELPER::VISITOR : public CPREDICATEVISITOR {
public:
    explicit VISITOR(Quoting quoting) : mIsQuoted(quoting == Quoting::Quoted) { mOutline.exceptions(kFailing); }

    [[nodiscard]] const std::string& GetQuery() const noexcept { return mQuery; }
    [[nodiscard]] std::string GetOutline() const { return mOutline.str(); }
    [[nodiscard]] const std::vector<CKEY>& GetKeys() const noexcept { return mKeys; }

    int VisitExpression(const CEXPRESSION& expression) override { return WriteNode(expression); }
    int VisitPredicate(const CPREDICATE& predicate) override { return WriteNode(predicate); }

private:
    /// Always 0: the children are written already.
    template <class Node>
    int WriteNode(const Node& node) {
        AddOutlineLine(mDepth, &node);
        ++mDepth;
        Dispatch(node, [this](const auto& own) { this->Write(own); });
        --mDepth;
        return 0;
    }
    template <class Node>
    void WriteDump(const Node& node) {
        std::ostringstream dump;
        dump.exceptions(kFailing);
        dump << &node;
        mQuery += dump.str();
    }
    template <class Text>
    void AddOutlineLine(int level, const Text& text) {
        mOutline << std::string(static_cast<std::size_t>(level), '\t') << text << '\n';
    }

    void Write(const CEXPRESSION& other) { WriteDump(other); }
    void Write(const CVALUEEXPRESSION& value) { AppendValueText(mQuery, value.GetValue(), mIsQuoted); }
    void Write(const CKEYEXPRESSION& key) {
        mQuery += key.GetKey();
        if (mKnownKeys.insert(key.GetKey()).second) {
            mKeys.emplace_back(key.GetKey());
        }
    }
    void Write(const CLISTEXPRESSION& list) {
        ForEachOf<CEXPRESSION>(list.GetExpressions(), [this](const CEXPRESSION& item) {
            item.Accept(*this);
            mQuery += " , ";
        });
    }
    void Write(const CFUNCTIONEXPRESSION& function) { mQuery += function.GetName() + "(TODO)"; }
    void Write(const CVARIABLEEXPRESSION& variable) { mQuery += variable.GetName(); }
    void Write(const COBJECTEXPRESSION& object) { mQuery += object.GetName(); }

    void Write(const CPREDICATE& other) { WriteDump(other); }
    void Write(const CVALUEPREDICATE& value) { mQuery += value.GetValue() != 0 ? "1=1" : "1=0"; }
    void Write(const CCOMPOUNDPREDICATE& compound);
    void Write(const CCOMPARISONBINARYPREDICATE& comparison) {
        comparison.GetLeftOperande()->Accept(*this);
        mQuery += OperatorText(comparison.GetComparisonType());
        comparison.GetRightOperande()->Accept(*this);
    }
    void Write(const CCOMPARISONINPREDICATE& in) {
        in.GetExpressionIn()->Accept(*this);
        mQuery += " IN [";
        in.GetExpressionSet()->Accept(*this);
        mQuery += " ]";
    }
    void Write(const CCOMPARISONBETWEENPREDICATE& between) {
        between.GetExpression()->Accept(*this);
        mQuery += " BETWEEN (";
        between.GetLowerBound()->Accept(*this);
        mQuery += ',';
        between.GetUpperBound()->Accept(*this);
        mQuery += " ) ";
    }
    void Write(const CSEARCHTEXTPREDICATE& search) {
        mQuery += " FREETEXT(*,";
        if (search.GetField() != nullptr) {
            search.GetField()->Accept(*this);
            mQuery += ',';
        }
        search.GetText()->Accept(*this);
        mQuery += " )";
    }

    bool mIsQuoted;
    int mDepth = 0;
    std::string mQuery;
    std::ostringstream mOutline;
    std::vector<CKEY> mKeys;
    std::unordered_set<std::string> mKnownKeys;  // those in mKeys, so that many comparisons cost linear time
};

void CPREDICATEHELPER::VISITOR::Write(const CCOMPOUNDPREDICATE& compound) {
    const COMPOUNDWORDS* const words = WordsOf(compound.GetType());
    if (words == nullptr) {
        WriteDump(compound);
        return;
    }
    const int level = mDepth - 1;  // the compound's own
    const char* between = "";
    AddOutlineLine(level, '(');
    mQuery += words->queryBegin;
    ForEachOf<CPREDICATE>(compound.GetPredicates(), [&](const CPREDICATE& member) {
        mQuery.append(between).append(words->queryBeforeMember);
        member.Accept(*this);
        mQuery += words->queryAfterMember;
        between = words->queryBetween;
    });
    mQuery += words->queryEnd;
    AddOutlineLine(level, ')');
}

CPREDICATEHELPER::CPREDICATEHELPER(const CPREDICATE* predicate, Quoting quoting) {
    const auto visitor = std::make_shared<VISITOR>(quoting);
    if (predicate != nullptr) {
        predicate->Accept(*visitor);
    }
    mVisitor = visitor;
}

CPREDICATEHELPER::CPREDICATEHELPER(const CPREDICATEHELPER& other) = default;

CPREDICATEHELPER& CPREDICATEHELPER::operator=(const CPREDICATEHELPER& other) = default;

CPREDICATEHELPER::~CPREDICATEHELPER() = default;

std::string CPREDICATEHELPER::GetStrSQL() const { return mVisitor->GetQuery(); }

std::string CPREDICATEHELPER::GetStr() const { return mVisitor->GetOutline(); }

std::vector<CPREDICATEHELPER::CKEY> CPREDICATEHELPER::GetDistinctKeyExpressionKeys() const {
    return mVisitor->GetKeys();
}

}  // namespace MLCore
