#include <MLCore/streams/CCOUNTINGSTREAM.h>
#include <MLCore/streams/CISTREAMDECORATORTEXT.h>
#include <MLCore/streams/COSTREAMDECORATORTEXT.h>
#include <streams/Bytes.h>
#include <support/Random.h>

#include <array>

namespace {

using namespace bytes;
using TEXTINPUT = INPUT<CISTREAMDECORATORTEXT>;

template <class Write>
std::string TextOf(const Write& write) {
    return Written<COSTREAMDECORATORTEXT>(write);
}

TEST(TextStreamTest, RawReadsLoseEveryCr) {
    support::RANDOM random(91);
    for (int i = 0; i < 3000; ++i) {
        std::string data(random() % 20, ' ');
        std::generate(data.begin(), data.end(), [&random] { return "\r\r\na\0"[random() % 5]; });
        TEXTINPUT input(data, true);
        std::string read(random() % 20, ' ');
        const auto count = static_cast<long>(read.size());
        const long got = input.stream.GetValue(static_cast<void*>(read.data()), count);
        EXPECT_TRUE(got == count || input.stream.IsEnd() != 0);
        read.resize(static_cast<std::size_t>(got));
        const auto copy = [&input](COSTREAM& out) { input.stream >> out; };
        std::erase(data, '\r');
        EXPECT_EQ(read + Written<COSTREAMDECORATOR>(copy), data);
    }
}

TEST(TextStreamTest, EachCrAndLfWrittenEndsALine) {
    const auto write = [](COSTREAM& text) {
        text.SetValueBOOL(-5);
        text << "a\rb\nc\r\n" << std::string("\nd\0e\nf\r\n"sv);
        text.SetValue(static_cast<const void*>("gh\n"), 2L);  // the bytes after it are not looked at
        text.SetValue(static_cast<const void*>("i"), -1L);
        text.SetNextLine();
        text.WriteLine("j");
        COSTREAMDECORATORTEXT(text).SetNextLine();  // CR and LF for the text below, and that one's own
    };
    EXPECT_EQ(TextOf(write), "-5a\r\nb\r\nc\r\n\r\n\r\nd\0e\nf\r\ngh\r\nj\r\n\r\n\r\n\r\n"sv);
}

TEST(TextStreamTest, TakesTheBytesOfItsOwnComponent) {
    class CDERIVED : public CBUFFERSTREAM {};  // does not lend its memory, and moves it all the same
    CBUFFERSTREAM own;
    CDERIVED derived;
    for (CBUFFERSTREAM* const buffer : {&own, static_cast<CBUFFERSTREAM*>(&derived)}) {
        buffer->Open();
        std::string expected;
        for (int line = 0; line < 30000; ++line) {
            expected += "line\r\n";
            buffer->SetValue(std::string("line\n"));
        }
        COSTREAMDECORATORTEXT(*buffer).SetValue(buffer->GetBuffer(), 150000L);
        const std::string written(static_cast<const char*>(buffer->GetBuffer()), buffer->GetSize());
        EXPECT_EQ(written.substr(150000), expected);
    }
}

TEST(TextStreamTest, AsksADerivedClassBeforeEachCharacter) {
    class CSHORT : public CISTREAMDECORATORTEXT {
    public:
        CSHORT(CBUFFERSTREAM& stream) : CSTREAM(ReadWrite), CISTREAMDECORATORTEXT(stream), mStream(stream) {}
        int IsEnd() const override { return mStream.GetPosition() >= 7 ? 1 : 0; }
        CBUFFERSTREAM& mStream;
    };
    class CDERIVED : public CBUFFERSTREAM {
        using CBUFFERSTREAM::CBUFFERSTREAM;
        int IsEndOfLine() const override { return GetPosition() == 2 ? 1 : 0; }
    };
    CBUFFERSTREAM plain(11, "abc\ndefGHI\n");
    CDERIVED derived(11, "abc\ndefGHI\n");
    for (CBUFFERSTREAM* const stream : {&plain, static_cast<CBUFFERSTREAM*>(&derived)}) {
        stream->Open();
        CSHORT text(*stream);
        std::string first, second;
        text.ReadLine(first);
        stream->SetPosition(4);
        text.ReadLine(second);
        EXPECT_EQ(first + second, stream == &plain ? "abcdef" : "abdef");
        EXPECT_EQ(stream->GetPosition(), 7U);
    }
    CISTREAMDECORATORTEXT text(plain);
    EXPECT_EQ(FailureOf([&] { text.GetValue(static_cast<char*>(nullptr), 3); }), -100);
    EXPECT_EQ(FailureOf([&] { text.GetValue(static_cast<void*>(nullptr), 3L); }), -100);
    EXPECT_EQ(FailureOf([&] { plain.GetValue(static_cast<char*>(nullptr), 0); }), -100);
}

TEST(TextStreamTest, EndsWithAStreamThatReadsPastItsEnd) {
    CCOUNTINGSTREAM counting;
    counting.Open();
    counting.SetSize(100);
    CISTREAMDECORATORTEXT text(counting);
    std::string line(9, 'x');
    text.GetValue(line, 9);
    EXPECT_EQ(line, std::string(9, '\0')) << "what is not read is zero, and not of the stack";
    text.ReadLine(line);
    EXPECT_EQ(line, std::string(91, '\0')) << line.size();
    EXPECT_NE(text.IsEnd(), 0) << line.size();
    EXPECT_EQ(counting.GetPosition(), 100) << line.size();
    counting.Rewind();
    counting.GetValue(line, 50);
    EXPECT_EQ(line, std::string(50, '\0'));
}

TEST(TextStreamTest, ReadsLinesAndStandsBehindThem) {
    const std::string lengthy(100000, 'x');
    const std::pair<std::string, std::string> rows[] = {{"", ""},  // and the lines, with "|" after each
                                                        {"a\r\nbc\r\n", "a|bc|"},
                                                        {"\n\r\n\r\nd", "|||d|"},
                                                        {"a\rb\r\r\nc\n\rd", "ab|c|d|"},
                                                        {"a\n\r", "a||"},
                                                        {std::string("\0a\0\nb\r"sv), std::string("\0a\0|b|"sv)},
                                                        {lengthy + "\r\n" + lengthy, lengthy + "|" + lengthy + "|"}};
    for (const bool hasPosition : {true, false}) {
        for (const auto& [data, expected] : rows) {
            TEXTINPUT input(data, hasPosition);
            std::string line;
            std::string lines;
            for (std::size_t behind = 0; input.stream.IsEnd() == 0; lines += line + '|') {
                input.stream.ReadLine(line);
                behind = std::min(data.find('\n', behind), data.size() - 1) + 1;
                EXPECT_EQ(input.buffer.GetPosition(), behind);
            }
            EXPECT_EQ(lines, expected);
        }
    }
}

TEST(TextStreamTest, ADerivedClassSaysWhereTheTextEnds) {
    const std::string content(1000, 'a');
    CBUFFERSTREAM buffer(1000, content.data());
    buffer.Open();
    struct SECTION : CISTREAMDECORATORTEXT {
        explicit SECTION(CBUFFERSTREAM& stream) : CISTREAMDECORATORTEXT(stream), component(stream) {}
        int IsEnd() const override { return component.GetPosition() >= 128 ? 1 : CISTREAMDECORATORTEXT::IsEnd(); }
        CBUFFERSTREAM& component;
    } section(buffer);
    std::string line;
    section.ReadLine(line);
    EXPECT_EQ(line.size(), 128U);
    EXPECT_EQ(buffer.GetPosition(), 128U);
}

TEST(TextStreamTest, StaysAtTheEndOfALineUntilTold) {
    for (const bool hasPosition : {true, false}) {
        TEXTINPUT input("abc\r\nd\n\r-5\ntrue\nf\r", hasPosition);
        CSTREAMREADER reader(input.stream);
        std::string values[3] = {"old", "old", "old"};
        char buffer[] = ".....";
        char characters[] = "????";
        int boolean = 7;
        long number = 7;
        EXPECT_EQ(FailureOf([&] { input.stream.GetValue(values[0], -1); }), -110);
        input.stream.GetValue(buffer, 2);
        EXPECT_EQ(std::string(buffer, 5), "ab\0.."sv);
        reader >> characters[0] >> values[1];
        EXPECT_EQ(input.stream.IsEndOfLine(), 1);
        reader >> endl >> characters[1] >> characters[2];  // d and LF
        input.stream.ReadLine(values[2]);
        EXPECT_EQ(std::vector<std::string>(values, values + 3), (std::vector<std::string>{"old", "", ""}));
        EXPECT_EQ(input.stream.IsEndOfLine(), 0);
        reader.GetValueBOOL(boolean);
        reader >> number;  // still on that line, of which nothing is left
        input.stream.ClearEndOfLine();
        EXPECT_EQ(FailureOf([&] { reader.GetValueBOOL(boolean); }), 138);
        EXPECT_EQ(number - boolean, 5);
        reader >> endl >> characters[3];
        EXPECT_EQ(FailureOf([&] { reader >> characters[0]; }), -110);  // after a last CR
        EXPECT_EQ(FailureOf([&] { reader.GetValueBOOL(boolean); }), -110);
        input.stream.Close();
        EXPECT_EQ(FailureOf([&] { reader.GetValueBOOL(boolean); }), 141);
        EXPECT_STREQ(characters, "cd\nf");
    }
}

/// The failure, or 0, of reading a line as a value that was `value` before, and what is written of it afterwards.
template <class Value>
std::string Reread(std::string_view line, Value value) {
    TEXTINPUT input(std::string(line) + "\n5", true);
    const auto read = [&value, &stream = input.stream] { stream >> value; };
    const auto failure = static_cast<long>(FailureOf(read).msg);
    const std::string result = TextOf([&](COSTREAM& text) { text << failure << ' ' << value; });
    EXPECT_EQ(input.buffer.GetPosition(), line.size() + 1);
    return result;
}

TEST(TextStreamTest, ReadsAndWritesWholeValues) {
    // "7" or what stands for it is there before, and stays when the line is no value.
    const auto expect = [](auto old, const std::string& oldText, const auto& good, const auto& bad) {
        for (const auto& row : good) {
            EXPECT_EQ(Reread(row[0], old), "0 " + std::string(row[1])) << row[0];
        }
        for (const auto& line : bad) {
            EXPECT_EQ(Reread(line, old), "138 " + oldText) << line;
        }
    };
    using GOOD = std::vector<std::array<std::string_view, 2>>;
    using BAD = std::vector<std::string_view>;
    expect(short{7}, "7", GOOD{{"-32768", "-32768"}, {" \t032767\r", "32767"}, {"+1", "1"}, {" \r\t", "0"}},
           BAD{"32768", "-32769", "1 2", "1.0", "-", "x"});
    expect(static_cast<unsigned short>(7), "7", GOOD{{"65535", "65535"}, {"-0", "0"}}, BAD{"65536", "-1", "0x1"});
    expect(7L, "7", GOOD{{"-2147483648", "-2147483648"}, {"2147483647", "2147483647"}},
           BAD{"2147483648", "-2147483649", "9223372036854775808", "1\0"sv});
    expect(7UL, "7", GOOD{{"4000000000", "-294967296"}, {"-2147483648", "-2147483648"}, {"4294967295", "-1"}},
           BAD{"4294967296", "-2147483649", "1u"});
    expect(7.0, "7", GOOD{{"-1e22", "-1e+22"}, {"0.1", "0.1"}, {" .5 ", "0.5"}, {"5e-324", "5e-324"}},
           BAD{"0,1", "1e400", "0x1p3", "1e", "1 e3", "1\0"sv});
    const CDATETIME old(CDATE(1, 2, 2003), CTIME(4, 5, 6));
    expect(old.GetDate(), "01022003", GOOD{{"05032024", "05032024"}, {" 2024-03-05", "05032024"}, {"", ""}},
           BAD{"31022024", "day", "05032024\0"sv});
    expect(old.GetTime(), "04:05:06", GOOD{{"070509", "07:05:09"}}, BAD{"24:00:00", "7:05:09", "07:05:09\0"sv});
    expect(old, "01022003 04:05:06", GOOD{{"05032024 07:05:09", "05032024 07:05:09"}, {"", ""}},
           BAD{"05032024", "05032024 24:00:00", "05032024 07:05:09Z"});
    const auto large = static_cast<unsigned long>(1ULL << 32);  // 0 where `long` has 32 bits
    EXPECT_EQ(FailureOf([&] { TextOf([&](COSTREAM& text) { text << static_cast<long>(large); }); }), large ? 126 : 0);
    EXPECT_EQ(FailureOf([&] { TextOf([&](COSTREAM& text) { text << large; }); }), large ? 126 : 0);
    const auto writeBlock = [](COSTREAM& text) { text.SetValue(static_cast<void*>(nullptr)); };
    EXPECT_EQ(TextOf(writeBlock), "\0\0\0\0"sv);  // in its binary form
}

}  // namespace
