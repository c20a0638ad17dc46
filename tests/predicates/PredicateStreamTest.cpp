#include <MLCore/core/COBJECTFACTORY.h>
#include <predicates/KeyText.h>
#include <predicates/Trees.h>

#include <limits>
#include <string_view>

namespace {

using namespace predicates_test;

TEST(PredicateStreamTest, PredicatesComeBack) {
    const auto record = Record({{"n", Object(5L)}, {"s", Object("Ren\xE9 & <Fils>")}, {"none", nullptr}});
    const auto variables = Record({{"v", Object(5L)}});
    const EXPRESSION text = Value("ren\xE9 & <fils> \"'");
    std::vector<PREDICATE> all = {CVALUEPREDICATE::True(),
                                  CVALUEPREDICATE::False(),
                                  CSEARCHTEXTPREDICATE::Create(text),
                                  CSEARCHTEXTPREDICATE::Create(Key("s"), text),
                                  CEQUALPREDICATE::Create(COBJECTEXPRESSION::Create("the one"),
                                                          CLISTEXPRESSION::Create({CLISTEXPRESSION::Create()})),
                                  CCOMPARISONBETWEENPREDICATE::Create(Key("s"), Value("A"), Key("s"),
                                                                      CVALUEOBJECT::ComparisonOption::CaseInsensitive)};
    for (const std::string& name : kNames) {
        for (const char* right : {" $v 1", " s 2", " (4,n,$v)", " n", " Null"}) {
            all.insert(all.end(), {Comparison("s " + name + right), Comparison("5 " + name + right)});
        }
    }
    const auto members = CMEMARRAY::Create();
    for (const PREDICATE& each : std::vector<PREDICATE>(all)) {
        members->AddObject(each);
        all.push_back(CNOTPREDICATE::Create(each));
    }
    all.push_back(CANDPREDICATE::Create(CANDPREDICATE::Create({}), CORPREDICATE::Create(*members)));
    for (const PREDICATE& original : all) {
        const std::string written = Written(*original);
        const PREDICATE read = Read<CPREDICATE>(written);
        EXPECT_EQ(Written(*read), written);
        EXPECT_EQ(Outline(read), Outline(original));
        EXPECT_TRUE(read->ClassInfo().IsSame(original->ClassInfo())) << written;
        EXPECT_STREQ(read->GetClassIdentifier(), original->GetClassIdentifier());
        EXPECT_EQ(read->GetPredicateType(), original->GetPredicateType());
        EXPECT_EQ(read->GetUseCount(), 1);
        int before = 0, after = 0;
        const auto failure = FailureOf([&] { return before = original->Evaluate(record, *variables); });
        EXPECT_EQ(FailureOf([&] { return after = read->Evaluate(record, *variables); }), failure) << written;
        EXPECT_EQ(after, before) << written;
    }
    EXPECT_EQ(Written(*Comparison("n in (5,$v) 2")), R"(<?xml version="1.0" encoding="windows-1252"?>
<in compType="diacriticInsentive">
  <key key="n"/>
  <list>
    <value type="long" value="5"/>
    <variable name="v"/>
  </list>
</in>
)");
}

EXPRESSION ReadValue(const std::string& typeAndText) {
    const std::size_t blank = typeAndText.find(' ');
    return Read<CEXPRESSION>("<value type='" + typeAndText.substr(0, blank) + "' value='" +
                             typeAndText.substr(blank + 1) + "'/>");
}

// "type text", as it is written.
const char* const kValues =
    "short -32768|short 32767|uShort 65535|long -2147483648|long 2147483647|uLong 0|uLong 4294967295|bool 0|bool "
    "1|bool -7|"
    "string |string x y|date |date 0000-01-01|date 2024-03-05|date 9999-12-31|time 00:00:00|time 23:59:59|dateTime |"
    "dateTime T07:05:09|dateTime 2024-03-05T23:59:59|float 0.1|float -0|float 3.4028235e+38|float -1e-45|float "
    "inf|float nan|"
    "double 0.1|double -0|double 1e+22|double 1.7976931348623157e+308|double 5e-324|double -inf|double nan";
const char* const kRefusedValues =
    "guid |Long 1| 1|long |long 1 |long 2147483648|uLong -1|short 32768|uShort 65536|bool true|bool 4294967296|double "
    "1,5|"
    "double 1e999|float 1e39|date 2024-02-30|date 05032024|time 24:00:00|time 7:5|dateTime 2024-03-05|dateTime "
    "2024-03-05T1:2:3Z";
// @ stands for a key.
const char* const kRefused =
    "<nor/>|@|<And/>|<equal>@</equal>|<equal>@@@</equal>|<equal>@@|<equal>@<true/></equal>|<equal>@<function/></equal>|"
    "<equal compType='diacriticInsensitive'>@@</equal>|<equal compType=''>@@</equal>|<equal option='1'>@@</equal>|"
    "<equal>@<key/></equal>|<equal>@<variable/></equal>|<equal>@<variable key='n'/></equal>|<equal>@<object "
    "name='n'/></equal>|"
    "<equal>@<value value='1'/></equal>|<equal>@<value "
    "type='long'/></equal>|<equal>@<list><true/></list></equal>|<in>@@<value/></in>|"
    "<between>@@</between>|<between>@@@@</between>|<searchText/>|<searchText>@@@</searchText>|<not/>|<not><true/"
    "><false/></not>|"
    "<and><true/>@</and>|<true x=''/>|<true><true/></true>|<or><or><or>";

TEST(PredicateStreamTest, ValuesComeBack) {
    for (const std::string& text : Split(kValues, '|')) {
        const std::string attribute = "value=\"" + text.substr(text.find(' ') + 1) + '"';
        EXPECT_NE(Written(*ReadValue(text)).find(attribute), std::string::npos) << text;
    }
    CVALUE cleared(1.5);
    cleared.Clear();
    using FLOAT = std::numeric_limits<float>;
    const CVALUE kMade[] = {{},
                            "",
                            cleared,
                            FLOAT::max(),
                            -0.0,
                            CDATE(5, 3, 2024),
                            CDATETIME(CDATE(), CTIME(7, 5, 9)),
                            std::string(100000, 'x'),
                            " a\tb\r\n  c ",
                            "<&>\"'\x80\xFF"};
    for (const CVALUE& value : kMade) {
        const EXPRESSION read = Read<CEXPRESSION>(Written(*Value(value)));
        EXPECT_EQ(dynamic_cast<CVALUEEXPRESSION&>(*read).GetValue(), value) << value.GetType() << ' ' << value;
    }
    const CTIME late(24, 0, 0);
    for (const CVALUE& value : {CVALUE(Object(1L)), CVALUE(CVALUE::Type::Guid, nullptr), CVALUE("a\x01"), CVALUE(late),
                                CVALUE(CDATE(30, 2, 2024)), CVALUE(CDATETIME(CDATE(5, 3, 2024), late))}) {
        EXPECT_EQ(FailureOf([&] { return Written(*Value(value)); }), 138) << value.GetType();
    }
}

TEST(PredicateStreamTest, RefusesWhatItDoesNotKnow) {
    const std::string kKey = "<key key='n'/>";
    for (std::string text : Split(kRefused, '|')) {
        for (std::size_t at; (at = text.find('@')) != std::string::npos;) {
            text.replace(at, 1, kKey);
        }
        const auto failure = FailureOf([&] { return Read<CPREDICATE>(text); });
        EXPECT_EQ(failure, 138) << text;
        EXPECT_NE(failure.text, "") << text;
    }
    for (const std::string& text : Split(kRefusedValues, '|')) {
        const auto failure = FailureOf([&] { return ReadValue(text); });
        EXPECT_EQ(failure, 138) << text;
        EXPECT_NE(failure.text, "") << text;
    }
    EXPECT_EQ(FailureOf([] { return Read<CEXPRESSION>("<function/>"); }), 138);
    for (const char* option : {"caseSensitive", "caseInsensitive", "diacriticInsentive"}) {
        const PREDICATE read =
            Read<CPREDICATE>("<like compType='" + std::string(option) + "'>" + kKey + kKey + "</like>");
        EXPECT_EQ(Dump(dynamic_cast<CCOMPARISONPREDICATE&>(*read).GetComparisonOption()), option);
    }
    // what the factory makes and nobody reads is whole all the same
    for (const char* name :
         {"CEQUALPREDICATE", "CCOMPARISONBETWEENPREDICATE", "CSEARCHTEXTPREDICATE", "CNOTPREDICATE"}) {
        const OBJECT made = COBJECTFACTORY::GetInstance()->CreateObject(("class MLCore::" + std::string(name)).c_str());
        EXPECT_FALSE(Outline(dynamic_cast<CPREDICATE*>(made.Get())).empty());
        static_cast<void>(dynamic_cast<CPREDICATE&>(*made).Evaluate(nullptr));
    }
}

}  // namespace
