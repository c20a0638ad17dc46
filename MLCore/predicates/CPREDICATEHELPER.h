#pragma once

#include <MLCore/platform/Export.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace MLCore {

class CPREDICATE;

/// Writes a predicate as the condition of a query and as an outline, and lists the keys that it uses.
///
///     const auto isHe = CEQUALPREDICATE::Create(CKEYEXPRESSION::Create("name"), CVALUEEXPRESSION::Create("O'Brien"));
///     const CPREDICATEHELPER helper(isHe);
///     helper.GetStrSQL();  // name = 'O''Brien'
///     helper.GetStr();     // CCOMPARISONPREDICATE(ComparisonType::Equal)
///                          //     CKEYEXPRESSION(name)
///                          //     CVALUEEXPRESSION(O'Brien)
///
/// The constructor walks the predicate once. The predicate is not used afterwards. The cost is linear in the length of
/// the texts.
///
/// | Predicate        | Query text (without the double quotes)                                   |
/// |------------------|--------------------------------------------------------------------------|
/// | true, false      | 1=1, 1=0                                                                 |
/// | AND, OR          | ((a) AND (b)), ((a) OR (b) OR (c)); without members ()                   |
/// | NOT              | NOT(a)                                                                   |
/// | comparison       | a < b; also <= > >= = != LIKE BEGINS ENDS CONTAINS, or the unknown type's number |
/// | IN               | a IN [1 , 2 ,  ]                                                         |
/// | BETWEEN          | "a BETWEEN (1,5 ) "                                                      |
/// | search text      | " FREETEXT(*,'x' )", with a field " FREETEXT(*,a,'x' )"                  |
///
/// | Expression       | Query text                                                               |
/// |------------------|--------------------------------------------------------------------------|
/// | value            | as AppendValueText() writes it                                           |
/// | key              | its path, unchanged                                                      |
/// | list             | each item and " , " after it, also after the last                        |
/// | function         | its name and "(TODO)": calls are not written                             |
/// | variable, object | its name, unchanged                                                      |
///
/// An application's own predicates and expressions are written as their dumps, which no database accepts as a
/// condition. If the Accept() of such a class shows another node in its place, that node is written.
///
/// *Only texts are quoted.* Keys and names must come from the program, never from its user: they could hold a
/// condition.
class MLCORE_API CPREDICATEHELPER {
public:
    enum class Quoting {
        Quoted,  ///< Texts stand in "'", and each "'" inside is written twice.
        Raw,     ///< Texts are unchanged: for readers, not for queries.
    };

    /// A key path.
    class CKEY {
    public:
        CKEY(std::string key) noexcept : mKey(std::move(key)) {}

        [[nodiscard]] const std::string& GetKey() const noexcept { return mKey; }

        [[nodiscard]] friend bool operator==(const CKEY& a, const CKEY& b) noexcept = default;

    private:
        std::string mKey;
    };

    /// For null, both texts are empty and there are no keys. `quoting` applies to the query text only.
    explicit CPREDICATEHELPER(const CPREDICATE* predicate, Quoting quoting = Quoting::Quoted);
    CPREDICATEHELPER(const CPREDICATEHELPER& other);
    CPREDICATEHELPER& operator=(const CPREDICATEHELPER& other);
    virtual ~CPREDICATEHELPER();

    /// The condition.
    [[nodiscard]] std::string GetStrSQL() const;
    /// The outline: for each predicate and expression a line with a tab for each level, its dump and "\n". "(" and
    /// ")" on separate lines enclose the members of AND, OR and NOT. Texts are not quoted.
    [[nodiscard]] std::string GetStr() const;
    /// The path of each key expression once, in the order of the query text.
    [[nodiscard]] std::vector<CKEY> GetDistinctKeyExpressionKeys() const;

private:
    class VISITOR;

    std::shared_ptr<const VISITOR> mVisitor;  // as it is after its walk
};

}  // namespace MLCore
