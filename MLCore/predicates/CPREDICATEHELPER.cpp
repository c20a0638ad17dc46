#include <MLCore/predicates/CPREDICATEHELPER.h>

#include <MLCore/predicates/CCOMPARISONBETWEENPREDICATE.h>
#include <MLCore/predicates/CCOMPARISONBINARYPREDICATE.h>
#include <MLCore/predicates/CCOMPARISONINPREDICATE.h>
#include <MLCore/predicates/CCOMPOUNDPREDICATE.h>
#include <MLCore/predicates/CFUNCTIONEXPRESSION.h>
#include <MLCore/predicates/CKEYEXPRESSION.h>
#include <MLCore/predicates/CLISTEXPRESSION.h>
#include <MLCore/predicates/COBJECTEXPRESSION.h>
#include <MLCore/predicates/CPREDICATEVISITOR.h>
#include <MLCore/predicates/CSEARCHTEXTPREDICATE.h>
#include <MLCore/predicates/CVALUEEXPRESSION.h>
#include <MLCore/predicates/CVALUEPREDICATE.h>
#include <MLCore/predicates/CVARIABLEEXPRESSION.h>
#include <MLCore/predicates/detail/TypedArray.h>
#include <MLCore/values/ValueText.h>

#include <cstddef>
#include <iterator>
#include <sstream>
#include <unordered_set>

namespace MLCore {

namespace {

/// By comparison type.
constexpr const char* kOperators[] = {
    " < ", " <= ", " > ", " >= ", " = ", " != ", " LIKE ", " BEGINS ", " ENDS ", " IN ", " CONTAINS "};

/// By compound type.
constexpr struct {
    const char* begin;
    const char* beforeMember;
    const char* afterMember;
    const char* between;
} kCompounds[] = {{"(", "(", ")", " AND "}, {"(", "(", ")", " OR "}, {"NOT(", "", "", ""}};

// A stream that finds no memory is to say so; unasked, it leaves the rest of the text out.
constexpr std::ios_base::iostate kFailing = std::ios_base::badbit;

std::string OperatorText(CVALUEOBJECT::ComparisonType type) {
    const auto index = static_cast<std::size_t>(type);
    return index < std::size(kOperators) ? kOperators[index] : ' ' + std::to_string(static_cast<int>(type)) + ' ';
}

}  // namespace

/// Operators stand between their operands, so each node writes itself and shows the visitor its children where they belong,
/// rather than have Accept() go on.
class CPREDICATEHELPER::VISITOR : public CPREDICATEVISITOR {
public:
    explicit VISITOR(Quoting quoting) : mIsQuoted(quoting == Quoting::Quoted) { mOutline.exceptions(kFailing); }

    [[nodiscard]] const std::string& GetQuery() const noexcept { return mQuery; }
    [[nodiscard]] std::string GetOutline() const { return mOutline.str(); }
    [[nodiscard]] const std::vector<CKEY>& GetKeys() const noexcept { return mKeys; }

    int VisitExpression(const CEXPRESSION& expression) override {
        return WriteNode<CVALUEEXPRESSION, CKEYEXPRESSION, CLISTEXPRESSION, CFUNCTIONEXPRESSION, CVARIABLEEXPRESSION,
                         COBJECTEXPRESSION>(expression);
    }
    int VisitPredicate(const CPREDICATE& predicate) override {
        return WriteNode<CVALUEPREDICATE, CCOMPOUNDPREDICATE, CCOMPARISONBINARYPREDICATE, CCOMPARISONINPREDICATE,
                         CCOMPARISONBETWEENPREDICATE, CSEARCHTEXTPREDICATE>(predicate);
    }

private:
    /// By the first of the classes that the node is of, or else as its dump. Always 0: the children are written already.
    template <class... Classes, class Node>
    int WriteNode(const Node& node) {
        AddOutlineLine(mDepth, &node);
        ++mDepth;
        if (!(WriteAs<Classes>(node) || ...)) {
            WriteDump(&node);
        }
        --mDepth;
        return 0;
    }
    template <class Node>
    void WriteDump(const Node* node) {
        std::ostringstream dump;
        dump.exceptions(kFailing);
        dump << node;
        mQuery += dump.str();
    }
    template <class Class, class Node>
    bool WriteAs(const Node& node) {
        const auto* const own = dynamic_cast<const Class*>(&node);
        if (own != nullptr) {
            Write(*own);
        }
        return own != nullptr;
    }
    template <class Text>
    void AddOutlineLine(int level, const Text& text) {
        mOutline << std::string(static_cast<std::size_t>(level), '\t') << text << '\n';
    }

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
    std::unordered_set<std::string> mKnownKeys;  // those in mKeys: many comparisons shall not search it one by one
};

void CPREDICATEHELPER::VISITOR::Write(const CCOMPOUNDPREDICATE& compound) {
    const auto index = static_cast<std::size_t>(compound.GetType());
    if (index >= std::size(kCompounds)) {
        WriteDump(&compound);
        return;
    }
    const auto& text = kCompounds[index];
    const int level = mDepth - 1;  // the compound's own
    const char* between = "";
    AddOutlineLine(level, '(');
    mQuery += text.begin;
    ForEachOf<CPREDICATE>(compound.GetPredicates(), [&](const CPREDICATE& member) {
        mQuery.append(between).append(text.beforeMember);
        member.Accept(*this);
        mQuery += text.afterMember;
        between = text.between;
    });
    mQuery += ')';
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
