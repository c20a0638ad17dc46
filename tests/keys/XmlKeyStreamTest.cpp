#include <MLCore/keys/CXMLKEYREADER.h>
#include <MLCore/keys/CXMLKEYWRITER.h>
#include <MLCore/text/CodePage1252.h>
#include <gtest/gtest.h>
#include <keys/ElementTree.h>
#include <streams/Bytes.h>
#include <support/Random.h>
#include <support/TempFile.h>

#include <cstdlib>
#include <sstream>

namespace {

using namespace bytes;

using elementtree::TREE;

/// Of the attributes.
constexpr const char* kNames[] = {"a", "b", "_.-9"};
constexpr const char* kDeclaration = "<?xml version=\"1.0\" encoding=\"windows-1252\"?>\n";

TREE Read(CKEYREADER& reader) { return elementtree::Read(reader, kNames); }

/// Reads from a stream with a position and from one without; what follows the document stays in both. Null: is refused.
void Check(const std::string& xml, const TREE* tree, std::size_t behind = 0) {
    for (const bool hasPosition : {true, false}) {
        INPUT<CXMLKEYREADER> in(xml, hasPosition);
        TREE read;
        EXPECT_EQ(FailureOf([&] { read = Read(in.stream); }), tree != nullptr ? 0 : 138) << xml.substr(0, 500);
        if (tree == nullptr) continue;
        EXPECT_EQ(read, *tree) << xml.substr(0, 500);
        EXPECT_EQ(in.stream.HasElement(), 0) << xml.substr(0, 500);
        EXPECT_EQ(in.buffer.GetPosition(), xml.size() - behind) << hasPosition << xml.substr(0, 500);
    }
}
void Expect(const std::string& xml, const TREE& tree, std::size_t behind = 0) { Check(xml, &tree, behind); }
void ExpectRefused(const std::string& xml) { Check(xml, nullptr); }

constexpr auto XmlOf = [](const TREE& tree) { return Written<CXMLKEYWRITER>([&](auto& out) { Write(out, tree); }); };
std::string Repeated(std::size_t count, const std::string& text) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) all += text;
    return all;
}
void Do(CKEYWRITER& writer, char what, const std::string& name) {
    if (what == '<') writer.BeginElement(name);
    if (what == '>') writer.EndElement();
    if (what == '@') writer.SetAttribute(name, "1");
    if (what == '=') writer.SetAttribute("v", name);
    if (what == '.') writer.SetText(name);
}
void Do(CKEYREADER& reader, char what, const std::string& name) {
    if (what == '<') return reader.BeginElement(name);
    if (what == '>') return reader.EndElement();
    const std::string value = what == '@' ? reader.GetAttribute(name) : "1";
    EXPECT_EQ(what == '.' ? reader.GetText() : what == '=' ? reader.GetElementName() : name, name);
    EXPECT_EQ(value, "1");
}

/// Does these things; those with a '!' must be refused.
void Play(auto&& stream, const std::string& script) {
    std::istringstream steps(script);
    for (std::string step; steps >> step;) {
        const std::size_t at = step.starts_with('!') ? 1 : 0;
        EXPECT_EQ(FailureOf([&] { Do(stream, step[at], step.substr(at + 1)); }), at * 138) << script.substr(0, 500);
    }
}
void PlayXml(const std::string& xml, const std::string& does) { Play(INPUT<CXMLKEYREADER>(xml, true).stream, does); }

const std::string kAll = [] {
    std::string all = "\t\n\r";
    for (int byte = 0x20; byte <= 0xFF; ++byte) all += static_cast<char>(byte);
    return all;
}();
const TREE kLeaf{"d", {{"a", ""}, {"b", "2"}}, "", {}};
const TREE kWorked{"and", {{"a", "<&>\"'\t\n\r\x7F\x81\xE9"}}, "", {{"b", {}, " x ]]>", {}}, {"c", {}, "", {kLeaf}}}};
const std::string kWorkedXml = std::string(kDeclaration) +
                               "<and a=\"&lt;&amp;&gt;&quot;&apos;&#9;&#10;&#13;&#127;&#129;\xE9\">\n"
                               "  <b> x ]]&gt;</b>\n  <c>\n    <d a=\"\" b=\"2\"/>\n  </c>\n</and>\n";

TEST(XmlKeyStreamTest, WritesAndReadsADocument) {
    EXPECT_EQ(XmlOf(kWorked), kWorkedXml);
    Expect(kWorkedXml, kWorked, 1);
    Expect(kWorkedXml + kWorkedXml + std::string(9000, '\0'), kWorked, 1 + kWorkedXml.size() + 9000);
    INPUT<CXMLKEYREADER> two(kWorkedXml + kWorkedXml, true);
    CXMLKEYREADER second(two.buffer);
    EXPECT_EQ(Read(two.stream), kWorked);
    EXPECT_EQ(Read(second), kWorked);
    for (std::size_t size = 0; size < kWorkedXml.size() - 1; ++size) ExpectRefused(kWorkedXml.substr(0, size));
}

TEST(XmlKeyStreamTest, EveryCharacterComesBack) {
    const TREE leaf{"r", {{"a", kAll}, {"b", " "}}, kAll, {}}, tree{"r", {}, "", {leaf, {}, leaf}};
    Expect(XmlOf(leaf), leaf, 1);
    Expect(XmlOf(tree), tree, 1);
    const std::string high = kAll.substr(kAll.find('\x7F')), body = "<r a='" + high + "'>" + high + "</r>";
    Expect(kDeclaration + body, {"r", {{"a", high}}, high, {}});
    Expect(Utf8FromAnsi(body), {"r", {{"a", high}}, high, {}});
}

TEST(XmlKeyStreamTest, ReadsTheXmlOfOthers) {
    Expect("\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8' standalone='no'?><r>\xC3\xA9</r>", {"r", {}, "\xE9", {}});
    Expect(" \r\n<?xml version = \"1.0\"?><r>\xE2\x82\xAC</r>", {"r", {}, "\x80", {}});
    Expect("<?xml version='1.0' encoding='Windows-1252'?><r>\xC3\xA9</r>", {"r", {}, "\xC3\xA9", {}});
    Expect("<!-- -><r/>--> <?go ?\?><!----><r\na = '\"' b\t= \">\"></r >", {"r", {{"a", "\""}, {"b", ">"}}, "", {}});
    Expect("<?xml-?><r>\r\n<!--x--><r>1\r\n2\r3</r> <?x?>\n<r/>\t</r>", {"r", {}, "", {{"r", {}, "1\n2\n3", {}}, {}}});
    Expect("<r>a<!-- -->b<?c?><![CDATA[<&]]]]>]><![CDATA[]]>&amp;</r>", {"r", {}, "ab<&]]]>&", {}});
    Expect("<r>]]&gt;&#93;]></r>", {"r", {}, "]]>]]>", {}});
    Expect("<r a='1\t2\r\n3&#10;&#x0000e9;&#8364;'/>", {"r", {{"a", "1 2 3\n\xE9\x80"}}, "", {}});
}

TEST(XmlKeyStreamTest, RefusesWhatItDoesNotUnderstand) {
    std::ifstream file(MLCORE_SOURCE_DIR "/tests/keys/data/refused.bin", std::ios::binary);
    int count = 0;
    for (std::string xml; std::getline(file, xml); ++count) ExpectRefused(xml);
    EXPECT_EQ(count, 96);
    ExpectRefused("<r>&" + std::string(99999, 'a') + ";</r>");
    ExpectRefused(Repeated(100000, "<b>"));
    ExpectRefused("<r" + Repeated(9999, " a='1'") + "/>");
}

TEST(XmlKeyStreamTest, BothKeepToTheLimits) {
    const std::string most(1 << 20, 'n'), more(most + 'n'), escaped = Repeated(1 << 20, "&#110;"),
                                                            deep = Repeated(256, "<b>") + Repeated(256, "</b>");
    std::string many, asked;
    for (int i = 0; i < 256; ++i) many += " x" + std::to_string(i) + "='1'", asked += " @x" + std::to_string(i);
    Expect("<r a='" + escaped + "'>" + escaped + "</r>", {"r", {{"a", most}}, most, {}});
    Expect("<" + most + "/>", {most, {}, "", {}});
    PlayXml(deep, Repeated(256, "<b ") + Repeated(256, "> "));
    PlayXml("<r" + many + "/>", "<r" + asked + " >");
    PlayXml("<r y=''" + many + "/>", "!<r");
    for (const auto& xml : {"<" + more + "/>", "<r " + more + "=''/>", "<r a='" + more + "'/>", "<r>" + more + "</r>",
                            "<r>" + most + "<![CDATA[n]]></r>", "<r><![CDATA[" + more,
                            "<r>" + std::string(more.size(), ' '), "<b>" + deep + "</b>"})
        ExpectRefused(xml);
    const std::string xml = Written<CXMLKEYWRITER>([&](CKEYWRITER& writer) {
        Play(writer, "!<" + more + Repeated(256, " <b") + " !<b !@" + more + asked + " !@y ." + most + " !.n");
        Play(writer, Repeated(255, "> ") + "<c .again > <d !=" + more + " > >");
    });
    EXPECT_NE(xml.find("1\">" + most + "</b>\n"), xml.npos);
    EXPECT_TRUE(xml.ends_with("  <c>again</c>\n  <d/>\n</b>\n"));
}

TEST(XmlKeyStreamTest, TheReaderWantsAllToBeRead) {
    for (const char* const script : {"!<s", "!>", "!.", "!@a", "=r <r !@b", "<r !>", "<r @a !>", "<r @a <s !>",
                                     "<r <s .t > !>", "<r @a . <s .t . > . > !<r", "<r @a @a =s <s .t > > != !>"})
        PlayXml("<r a='1'><s>t</s> </r><r/>", script);
}

TEST(XmlKeyStreamTest, TheWriterRefusesMisuseAndGoesOn) {
    const std::string xml = Written<CXMLKEYWRITER>([](CKEYWRITER& writer) {
        Play(writer, "!> !@a !. !< !<1 !<-a !<. !<a:b !<\xE9 !<a\xE9 !<a< <r @a !@a !@: <s");
        for (const char control :
             "\1\2\3\4\5\6\a\b\v\f\xE\xF\x10\x11\x12\x13\x14\x15\x16\x17\x18\x19\x1A\x1B\x1C\x1D\x1E\x1F") {
            const std::string text{'x', control};
            for (const char what : {'<', '@', '=', '.'}) EXPECT_EQ(FailureOf([&] { Do(writer, what, text); }), 138);
        }
        Play(writer, ".1 .2 !@b !<t > !@b !. > !<r !> !@a !.");
    });
    EXPECT_EQ(xml, std::string(kDeclaration) + "<r a=\"1\">\n  <s>12</s>\n</r>\n");
}

TREE RandomTree(std::mt19937& random, int depth) {
    const auto text = [&random] {
        std::string made(random() % 9 == 0 ? random() % 6000 : random() % 4, ' ');
        for (char& character : made) character = kAll[random() % kAll.size()];
        return made;
    };
    TREE tree{std::string(1 + random() % 3, static_cast<char>('A' + random() % 26)), {}, "", {}};
    for (const char* const name : kNames)
        if (random() % 2 == 0) tree.attributes[name] = text();
    while (depth > 0 && random() % 4 != 0) tree.children.push_back(RandomTree(random, depth - 1));
    if (tree.children.empty()) tree.text = text();
    return tree;
}

TEST(XmlKeyStreamTest, RandomTreesComeBackAndSpoiltOnesAreRefused) {
    support::RANDOM random(138);
    for (int round = 0; round < 30; ++round) {
        const TREE tree = RandomTree(random, 3);
        std::string xml = XmlOf(tree);
        Expect(xml + "<", tree, 2);
        for (int spoilt = 0; spoilt < 50; ++spoilt) {
            xml[random() % xml.size()] = "<>&;/!?-['\"= a\0\xFF"[random() % 16];
            INPUT<CXMLKEYREADER> in(xml, true);
            const auto failure = FailureOf([&] { return Read(in.stream); });
            EXPECT_TRUE(failure == 0 || failure == 138) << failure << xml;
        }
    }
}

TEST(XmlKeyStreamTest, OthersReadIt) {
    if (std::system("xmllint --version >/dev/null 2>&1") != 0) GTEST_SKIP() << "xmllint is not installed";
    support::RANDOM random(10);
    const support::TEMPFILE file;
    for (const TREE& tree : {kWorked, {"r", {{"a", kAll}}, kAll, {}}, RandomTree(random, 5)}) {
        file.SetContent(XmlOf(tree));
        EXPECT_EQ(std::system(("xmllint --noout '" + file.path + "'").c_str()), 0);
    }
}

}  // namespace
