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

/// The text of the failure, which is the same from a stream with a position and from one without.
std::string TextOf(const std::string& xml) {
    std::string texts[2];
    for (const bool hasPosition : {true, false}) {
        INPUT<CXMLKEYREADER> in(xml, hasPosition);
        texts[hasPosition ? 0 : 1] = FailureOf([&] { return Read(in.stream); }).text;
    }
    EXPECT_EQ(texts[0], texts[1]) << xml.substr(0, 500);
    return texts[0];
}

TEST(XmlKeyStreamTest, FailuresOfTheTextNamePlaceAndReason) {
    const struct {
        const char* xml;
        const char* text;
    } kRows[] = {
        {"", "line 1, column 1: the document ends here, wanted <"},
        {" x", "line 1, column 2: 'x' found, wanted <"},
        {"\xEFx", "line 1, column 2: neither '<' nor a byte-order mark of UTF-8 found"},
        {"<!-- -->\n x", "line 2, column 2: 'x' found, wanted an element"},
        {"<!DOCTYPE r>", "line 1, column 1: a comment or '<![CDATA[' is wanted after '<!': a document type is refused"},
        {"<![CDATA[]]>", "line 1, column 1: a CDATA section found, an element wanted"},
        {"</r>", "line 1, column 1: </r> found, an element wanted"},
        {"<r>\n <and>\n  <or/>\n </compound>", "line 4, column 2, in <and>: </compound> found, </and> wanted"},
        {"<r>\r\n<s>", "line 2, column 4, in <s>: the document ends too early"},
        {"<r", "line 1, column 3: the document ends here, wanted >"},
        {"<r>\n<\xE9/>",
         "line 2, column 2, in <r>: bytes found that are not UTF-8, or a character that code page 1252 lacks"},
        {"<r>\n<\xC3\xA9/>", "line 2, column 2, in <r>: '\xE9' found, wanted a name"},
        {"<r>\xC3\xA9\xE2\x82\xAC \x01", "line 1, column 7, in <r>: control character '\\x01' found"},
        {"<r>\xC3\xA9\xC4\x80",
         "line 1, column 5, in <r>: bytes found that are not UTF-8, or a character that code page 1252 lacks"},
        {"<r>]]></r>", "line 1, column 6, in <r>: ']]>' found in a text"},
        {"<r>\n text <s/></r>", "line 2, column 7, in <r>: text 'text' found beside elements"},
        {"<-r/>", "line 1, column 4: '-r' is not a name: a name begins with a letter or '_'"},
        {"<r a=1/>", "line 1, column 6: '1' found, wanted a value in quotes"},
        {"<r a='<'/>", "line 1, column 7: '<' found in the value of an attribute"},
        {"<r a='' a=''/>", "line 1, column 13: the tag has the attribute 'a' twice"},
        {"<r>a & b</r>", "line 1, column 7, in <r>: '&' found, wanted '&amp;', '&lt;'"},
        {"<r>&eacute;",
         "line 1, column 12, in <r>: '&eacute' found, wanted '&amp;', '&lt;', '&gt;', '&quot;', '&apos;' or a number "
         "as '&#233;'"},
        {"<?xml version='1.1'?><r/>", "line 1, column 1: XML version '1.1' found, 1.0 wanted"},
        {"<?xml encoding='UTF-8'?><r/>", "line 1, column 1: the declaration does not begin with the version"},
        {"<?xml version='1.0' encoding='latin1'?>",
         "line 1, column 1: encoding 'latin1' found, UTF-8 or windows-1252 wanted"},
        {"\xEF\xBB\xBF<?xml version='1.0' encoding='windows-1252'?>",
         "line 1, column 1: encoding 'windows-1252' found after a byte-order mark of UTF-8"},
        {"<?xml version='1.0' standalone='maybe'?>",
         "line 1, column 1: unexpected 'standalone' with the value 'maybe' in the declaration"},
        {"<r><?xml?></r>", "line 1, column 4, in <r>: <?xml found: a declaration is <?xml, at the beginning only"},
        {"<r><?x+?></r>", "line 1, column 7, in <r>: '+' found, wanted a blank or '?>'"},
        {"<r><s/>\n<s>t</s><s b='2' c='3'/></r>", "line 2, column 9, in <s>: unexpected attribute 'c'"}};
    for (const auto& row : kRows) {
        const std::string text = TextOf(row.xml);
        EXPECT_EQ(text.substr(0, std::string(row.text).size()), row.text) << text;
    }
    // Where the bytes are read in pieces.
    for (std::size_t lines = 1; lines < 9000; lines += 997) {
        const std::string place = "line " + std::to_string(lines + 1) + ", column 2, in <r>: ";
        EXPECT_EQ(TextOf("<r>" + std::string(lines, '\n') + " </s>").substr(0, place.size()), place);
        const std::string column = "line 1, column " + std::to_string(lines + 4) + ", in <r>: ";
        EXPECT_EQ(TextOf("<r>" + Repeated(lines, "\xC3\xA9") + "</s>").substr(0, column.size()), column);
    }
    const std::string name(1000, 'n');
    EXPECT_EQ(TextOf("<r><" + name + "></r>"),
              "line 1, column 1006, in <" + name.substr(0, 60) + ">: </r> found, </" + name.substr(0, 60) + "> wanted");
}

TEST(XmlKeyStreamTest, FailuresOfTheCallerNamePlaceAndReason) {
    const auto textOf = [](const std::string& xml, const auto& action) {
        INPUT<CXMLKEYREADER> in(xml, true);
        return FailureOf([&] { return action(in.stream), 0; }).text;
    };
    EXPECT_EQ(textOf("\n<r/>", [](auto& reader) { reader.BeginElement("s"); }),
              "line 2, column 1: element 'r' found, 's' wanted");
    EXPECT_EQ(textOf("<r/>", [](auto& reader) { reader.EndElement(); }),
              "line 1, column 1: no element has been entered");
    EXPECT_EQ(textOf("<r><s/></r>", [](auto& reader) { reader.BeginElement("r"), reader.EndElement(); }),
              "line 1, column 4, in <r>: unexpected element 's'");
    EXPECT_EQ(textOf("<r>\n t\tu \n</r>", [](auto& reader) { reader.BeginElement("r"), reader.EndElement(); }),
              "line 3, column 1, in <r>: unexpected text 't\\x09u'");
    EXPECT_EQ(textOf("<r>\n<s/></r>",
                     [](auto& reader) {
                         reader.BeginElement("r"), reader.BeginElement("s");
                         static_cast<void>(reader.GetAttribute("compType"));
                     }),
              "line 2, column 1, in <s>: attribute 'compType' is missing");
    EXPECT_EQ(textOf("<r></r>", [](auto& reader) { reader.BeginElement("r"), reader.BeginElement("key"); }),
              "line 1, column 4, in <r>: no further element, 'key' is wanted");
    EXPECT_EQ(
        textOf("<r></r>", [](auto& reader) { reader.BeginElement("r"), static_cast<void>(reader.GetElementName()); }),
        "line 1, column 4, in <r>: no further element, one is wanted");
    EXPECT_EQ(textOf(Repeated(257, "<b>"),
                     [](auto& reader) {
                         for (int i = 0; i < 257; ++i) reader.BeginElement("b");
                     }),
              "line 1, column 769, in <b>: element 'b' is nested too deep: 256 is the limit");
    EXPECT_EQ(
        textOf("<r a='1'>", [](auto& reader) { reader.BeginElement("r"), reader.FailHere(7, " is ", Quoted("odd")); }),
        "line 1, column 1, in <r>: 7 is 'odd'");
}

TEST(XmlKeyStreamTest, TheWriterNamesElementAndReason) {
    const auto textOf = [](const std::string& script, char what, const std::string& name) {
        std::string text;
        Written<CXMLKEYWRITER>([&](CKEYWRITER& writer) {
            Play(writer, script);
            text = FailureOf([&] { return Do(writer, what, name), 0; }).text;
            for (auto begun = std::count(script.begin(), script.end(), '<'); begun > 0; --begun) writer.EndElement();
        });
        return text;
    };
    const std::string rule = " is not a name: letters of ASCII, digits, '_', '-' and '.', the first a letter or '_'";
    EXPECT_EQ(textOf("", '<', "a b"), "'a b'" + rule);
    EXPECT_EQ(textOf("", '>', ""), "no element has been begun");
    EXPECT_EQ(textOf("<r .t", '<', "s"), "in <r>: element 's' after a text: an element has text or children");
    EXPECT_EQ(textOf("<r <s", '@', "1"), "in <s>: '1'" + rule);
    EXPECT_EQ(textOf("<r @a", '@', "a"), "in <r>: attribute 'a' twice");
    EXPECT_EQ(textOf("<r .t", '@', "a"), "in <r>: attribute 'a' after a text or a child");
    EXPECT_EQ(textOf("<r", '=', "\x1B"), "in <r>: the text '\\x1B' holds a control character");
    EXPECT_EQ(textOf("<r", '.', std::string(1 << 20, 'x') + 'x'),
              "in <r>: a text of 1048577 characters, 1048576 is the limit");
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
