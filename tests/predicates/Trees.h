/// Short names to build predicates with, and a visitor that shows all of one.
#pragma once

#include <MLCore/MLCore.h>
#include <gtest/gtest.h>
#include <support/Failure.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace predicates_test {

using namespace MLCore;
using support::FailureOf;
using OBJECT = CSHAREOBJECTPTR<COBJECT>;
using EXPRESSION = CSHAREOBJECTPTR<CEXPRESSION>;
using PREDICATE = CSHAREOBJECTPTR<CPREDICATE>;

inline EXPRESSION Key(const std::string& key) { return CKEYEXPRESSION::Create(key); }
inline EXPRESSION Value(const CVALUE& value) { return CVALUEEXPRESSION::Create(value); }
inline OBJECT Object(const CVALUE& value) { return CVALUEOBJECT::Create(value); }
inline CSHAREOBJECTPTR<CDICTIONARY> Record(const std::map<std::string, OBJECT>& values) {
    const auto record = CMEMDICTIONARY::Create();
    for (const auto& [key, value] : values) {
        record->SetKeyValue(key, value);
    }
    return record;
}
template <class T>
std::string Dump(const T& value) {
    return (std::ostringstream() << value).str();
}

inline std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, separator);) {
        parts.push_back(part);
    }
    return parts;
}

/// 5 and 'x' are constants, $v is a variable, @o an object, (1,'x',k) a list, and all else a key.
inline EXPRESSION Operand(const std::string& text) {
    const std::string inside = text.substr(1, text.size() < 2 ? 0 : text.size() - 2);
    if (text.front() == '(') {
        const auto items = CMEMARRAY::Create();
        for (const std::string& item : Split(inside, ',')) {
            items->AddObject(Operand(item));
        }
        return CLISTEXPRESSION::Create(*items);
    }
    return text.front() == '$'    ? CVARIABLEEXPRESSION::Create(text.substr(1))
           : text.front() == '@'  ? COBJECTEXPRESSION::Create(text.substr(1))
           : text.front() == '\'' ? Value(inside)
           : text.front() <= '9'  ? Value(std::stol(text))
           : text == "Null"       ? Value({})
                                  : Key(text);
}

inline const std::vector<std::string> kNames = Split("< <= > >= = != like begins ends contains in", ' ');

/// "operand comparison operand", with the number of the option behind it if it is not 0.
inline PREDICATE Comparison(const std::string& text) {
    using CREATE = PREDICATE (*)(const EXPRESSION&, const EXPRESSION&, CVALUEOBJECT::ComparisonOption);
    static constexpr CREATE kCreate[] = {
        CLESSERPREDICATE::Create,    CLESSEREQPREDICATE::Create,    CGREATERPREDICATE::Create,
        CGREATEREQPREDICATE::Create, CEQUALPREDICATE::Create,       CNOTEQUALPREDICATE::Create,
        CLIKEPREDICATE::Create,      CBEGINSPREDICATE::Create,      CENDSPREDICATE::Create,
        CCONTAINSPREDICATE::Create,  CCOMPARISONINPREDICATE::Create};
    std::istringstream in(text);
    std::string left, comparison, right;
    int option = 0;
    in >> left >> comparison >> right >> option;
    const auto index = static_cast<std::size_t>(std::find(kNames.begin(), kNames.end(), comparison) - kNames.begin());
    return kCreate[index](Operand(left), Operand(right), CVALUEOBJECT::ComparisonOption{option});
}

/// Shows the whole tree, or only those nodes that it is told to go down to.
class COUTLINE : public CPREDICATEVISITOR {
public:
    int VisitExpression(const CEXPRESSION& expression) override {
        const auto* const key = dynamic_cast<const CKEYEXPRESSION*>(&expression);
        keys += key != nullptr ? key->GetKey() + ' ' : "";
        text += Dump(&expression) + ';';
        return entersLists;
    }
    int VisitPredicate(const CPREDICATE& predicate) override {
        text += Dump(&predicate) + '{';
        return depth++ < deepest;
    }
    void LeavePredicate(const CPREDICATE&) override { --depth, text += '}'; }

    std::string text, keys;
    int entersLists = 1, deepest = 1000, depth = 0;
};

inline std::string Outline(const CPREDICATE* predicate) {
    COUTLINE outline;
    predicate->Accept(outline);
    return outline.text;
}

}  // namespace predicates_test
