#pragma once

#include <MLCore/platform/Export.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace MLCore {

class CPREDICATE;

/// What a database or a log has to know of a predicate: a condition for a query, an outline of the tree, and the keys used.
///
///     const auto isHe = CEQUALPREDICATE::Create(CKEYEXPRESSION::Create("name"), CVALUEEXPRESSION::Create("O'Brien"));
///     const CPREDICATEHELPER helper(isHe);
///     helper.GetStrSQL();  // name = 'O''Brien'
///     helper.GetStr();     // CCOMPARISONPREDICATE(ComparisonType::Equal)
///                          //     CKEYEXPRESSION(name)
///                          //     CVALUEEXPRESSION(O'Brien)
///
/// The predicate is walked once, by the constructor, and not needed afterwards. The cost is linear in what is written.
///
/// | Predicate        | Query text (without the double quotes)                                   |
/// |------------------|--------------------------------------------------------------------------|
/// | true, false      | 1=1, 1=0                                                                 |
/// | AND, OR          | ((a) AND (b)), ((a) OR (b) OR (c)); of none ()                           |
/// | NOT              | NOT(a)                                                                   |
/// | comparison       | a < b; also <= > >= = != LIKE BEGINS ENDS CONTAINS, or the unknown type's number |
/// | IN               | a IN [1 , 2 ,  ]                                                         |
/// | BETWEEN          | "a BETWEEN (1,5 ) "                                                      |
/// | search text      | " FREETEXT(*,'x' )", with a field " FREETEXT(*,a,'x' )"                  |
///
/// | Expression       | Query text                                                               |
/// |------------------|--------------------------------------------------------------------------|
/// | value            | as AppendValueText() writes it                                           |
/// | key              | its path as it stands                                                    |
/// | list             | each item and " , " behind it, the last one too                          |
/// | function         | its name and "(TODO)": calls are not rendered                            |
/// | variable, object | its name as it stands                                                    |
///
/// Predicates and expressions of other kinds, as an application writes them, stand with their dump, which no database takes
/// for a condition; one whose Accept() shows another in its place is written as that one.
///
/// *Only texts are quoted.* Keys and names must come from the program, never from its user: they could hold a condition.
class MLCORE_API CPREDICATEHELPER {
public:
    enum class Quoting {
        Quoted,  ///< texts in "'", each "'" inside written twice
        Raw,     ///< texts as they are, for reading; not for queries
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

    /// Of null, both texts are empty and there are no keys. `quoting` is that of the query text only.
    explicit CPREDICATEHELPER(const CPREDICATE* predicate, Quoting quoting = Quoting::Quoted);
    CPREDICATEHELPER(const CPREDICATEHELPER& other);
    CPREDICATEHELPER& operator=(const CPREDICATEHELPER& other);
    virtual ~CPREDICATEHELPER();

    /// The condition.
    [[nodiscard]] std::string GetStrSQL() const;
    /// A line for each predicate and expression: a tab for each level, its dump and "\n". "(" and ")" on lines of their own
    /// enclose the members of AND, OR and NOT. Texts are not quoted.
    [[nodiscard]] std::string GetStr() const;
    /// The path of each key expression once, in the order in which the query text has them.
    [[nodiscard]] std::vector<CKEY> GetDistinctKeyExpressionKeys() const;

private:
    class VISITOR;

    std::shared_ptr<const VISITOR> mVisitor;  // as it is after its walk
};

}  // namespace MLCore
