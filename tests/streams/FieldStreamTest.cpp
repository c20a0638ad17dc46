#include <MLCore/streams/CCSVENCODER.h>
#include <MLCore/streams/CFILESTREAM.h>
#include <MLCore/streams/CISTREAMDECORATORFIELD.h>
#include <MLCore/streams/CNULLENCODER.h>
#include <MLCore/streams/COSTREAMDECORATORFIELD.h>
#include <streams/Bytes.h>
#include <support/Random.h>
#include <support/TempFile.h>

#include <bit>
#include <cmath>
#include <fstream>
#include <iterator>
#include <tuple>

namespace {

using namespace bytes;
using FIELDINPUT = INPUT<CISTREAMDECORATORFIELD>;

CCSVENCODER csv;

template <class Write>
std::string FieldsOf(const Write& write) {
    return Written<COSTREAMDECORATORFIELD>(write, ';', csv);
}

TEST(FieldStreamTest, ReadsFieldsAndLines) {
    const std::string lengthy(40000, 'x');
    const std::pair<std::string, std::string> rows[] = {
        {"x;\"y;z\";w\r\n", "x|y;z|w|/"},  // the fields, with "|" after each, "/" after each line
        {"a;b;\r\n;\n\nc", "a|b||/||/|/c|/"},
        {"a;b;", "a|b|/"},  // the end after the last separator looks like the end of b
        {"a\r;\rb\r\r\n\rc\r", "a|b|/c|/"},
        {"\"one\ntwo;2\";3", "\"one|/two|2\";3|/"},
        {"\"open;1\n2;3", "\"open;1|/2|3|/"},
        {"a\"b;c\"d;e", "a\"b;c\"d|e|/"},
        {std::string("\0;b\0\n"sv), std::string("\0|b\0|/"sv)},
        {lengthy + ";b", lengthy.substr(0, 32767) + "|" + lengthy.substr(32767) + "|b|/"}};
    for (const bool hasPosition : {true, false}) {
        for (const auto& [data, expected] : rows) {
            FIELDINPUT input(data, hasPosition, ';', csv);
            std::string field;
            std::string fields;
            for (; input.stream.IsEnd() == 0; input.stream.GetNextLine(), fields += '/') {
                do {
                    input.stream.GetValue(field, 32767);
                    fields += field + '|';
                } while (input.stream.IsEndOfLine() == 0);
            }
            EXPECT_EQ(fields, expected);
        }
    }
}

TEST(FieldStreamTest, ReadsTheSameAheadInMemoryAndByteByByte) {
    class CASKED : public CBUFFERSTREAM {  // no class of the library's: what it holds is not looked at
        using CBUFFERSTREAM::CBUFFERSTREAM;
    };
    support::RANDOM random(20);
    const std::string_view pieces[] = {"a", "longer text", ";", ";", "\"", "\r", "\n", "\r\n"};
    std::string data;
    while (data.size() < 3 * CFILESTREAM::kBufferSize) {
        data += pieces[random() % std::size(pieces)];
    }
    const support::TEMPFILE content;
    content.SetContent(data);
    CFILESTREAM file(content.path);
    CBUFFERSTREAM buffer(static_cast<unsigned long>(data.size()), data.data());
    CASKED asked(static_cast<unsigned long>(data.size()), data.data());
    CISTREAMDECORATOR hidden(asked);
    const auto read = [&](CRANDOMIOSTREAM& stream, CISTREAM& component) {
        component.Open();
        CISTREAMDECORATORFIELD fields(component, ';', csv);
        std::string all;
        std::string field;
        for (int i = 0; fields.IsEnd() == 0; ++i) {
            i % 7 == 0 ? fields.ReadLine(field) : fields.GetValue(field, i % 3 == 0 ? 2 : 32767);
            all += field + '|' + std::to_string(stream.GetPosition() * 2 + (fields.IsEndOfLine() != 0 ? 1U : 0U)) + '/';
            if (i % 5 == 0) {
                fields.ClearEndOfLine();
            }
            if (i % 11 == 0) {
                fields.GetNextLine();
            }
        }
        return all;
    };
    const std::string expected = read(asked, hidden);
    EXPECT_TRUE(read(asked, asked) == expected);
    EXPECT_TRUE(read(buffer, buffer) == expected);
    EXPECT_TRUE(read(file, file) == expected);
}

/// Makes texts longer, which must not make them longer than a caller's buffer.
class CDOUBLINGENCODER : public CNULLENCODER {
public:
    std::string Decode(const std::string& text) override { return text + text; }
};

TEST(FieldStreamTest, BoundsFieldsByTheirLength) {
    CDOUBLINGENCODER doubling;
    for (const bool hasPosition : {true, false}) {
        FIELDINPUT input("abc;d\ne;fg", hasPosition, ';', doubling);
        std::string field;
        std::string fields;
        for (const long length : {2L, 1L, 0L, 1L, 9L, 9L}) {
            input.stream.ReadNextValue(field, length);
            fields += field + '|';
        }
        EXPECT_EQ(fields, "abab|cc|||dd||");
        EXPECT_EQ(FailureOf([&] { input.stream.ReadNextValue(field, -1); }), -110);
        input.stream.GetNextLine();
        char buffer[] = "......";
        input.stream.GetValue(buffer, 4);
        EXPECT_EQ(std::string(buffer, 6), "ee\0..."sv);
        input.stream.GetValue(buffer, 3);
        EXPECT_EQ(std::string(buffer, 6), "fgf\0.."sv);
        input.stream.Rewind();
        input.stream.ReadLine(field);
        EXPECT_EQ(field, "abc;d");
    }
}

TEST(FieldStreamTest, TakesAFieldForEachValue) {
    FIELDINPUT input("xyz;;\"\"\"\";x1; 13;", true, ';', csv);
    char characters[] = "???";
    long number = 7;
    input.stream >> characters[0] >> characters[1] >> characters[2];
    EXPECT_EQ(std::string(characters, 3), "x\0\""sv);
    EXPECT_EQ(FailureOf([&] { input.stream >> number; }), 138);
    EXPECT_EQ(number, 7);
    input.stream >> number;
    EXPECT_EQ(number, 13);
    EXPECT_EQ(FailureOf([&] { input.stream >> number; }), -110);
    EXPECT_EQ(FailureOf([&] { input.stream >> characters[0]; }), -110);
}

using RECORD = std::tuple<char, unsigned long, double, CDATETIME, std::string>;

RECORD RandomRecord(std::mt19937_64& random) {
    const auto number = std::bit_cast<double>(random());
    const CTIMESPAN span(static_cast<long>(random() % 2147483647));
    std::string text;
    while (random() % 12 != 0) {
        text += ";a\t\0\xE9\","[random() % (text.ends_with('"') ? 5 : 7)];  // the encoding joins quotes
    }
    return {"a;\"\0 9"[random() % 6], static_cast<std::uint32_t>(random()), std::isfinite(number) ? number : 0.5,
            random() % 4 != 0 ? CDATETIME(CDATE(1, 1, 1904), CTIME()) + span : CDATETIME(), text};
}

void Write(COSTREAM& fields, const RECORD& record) {
    CSTREAMWRITER writer(fields);
    std::apply([&writer](const auto&... values) { (writer << ... << values) << endl; }, record);
}

RECORD Read(CISTREAM& fields) {
    CSTREAMREADER reader(fields);
    RECORD record;
    std::apply([&reader](auto&... values) { (reader >> ... >> values) >> endl; }, record);
    return record;
}

TEST(FieldStreamTest, ReadsWhatItWroteAndFailsWhereAFileIsCut) {
    support::RANDOM64 random(11);
    std::vector<RECORD> records(500);
    std::generate(records.begin(), records.end(), [&random] { return RandomRecord(random); });
    const std::string data = FieldsOf([&records](COSTREAM& fields) {
        std::for_each(records.begin(), records.end(), [&fields](const RECORD& its) { Write(fields, its); });
    });
    for (std::size_t length = 0; length <= 301; ++length) {  // the first and the last are not cut
        const std::string_view text = std::string_view(data).substr(0, length % 301 != 0 ? length : data.size());
        FIELDINPUT input(text, length % 2 == 0, ';', csv);
        const auto count = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
        for (std::size_t i = 0; i < count; ++i) {
            EXPECT_EQ(Read(input.stream), records[i]);
        }
        const auto failure = FailureOf([&input] { return Read(input.stream); });
        EXPECT_TRUE(failure == -110 || failure == 138 || (failure == 0 && !text.ends_with('\n'))) << failure;
    }
}

TEST(FieldStreamTest, WritesTheSameBytesEverywhere) {
    std::ifstream file(MLCORE_SOURCE_DIR "/tests/streams/data/fields.csv", std::ios::binary);
    const auto write = [](COSTREAM& fields) {
        fields << 1L << "a;b";
        fields.SetNextLine();
        fields << "" << static_cast<const char*>(nullptr) << '"' << CDATE() << std::string("say \"hi\"");
        fields.SetNextLine();
        fields.WriteLine("raw;line");
        fields << "first\nagain";
        Write(fields, {'\0', 4000000000UL, -1.5e-300, CDATETIME(CDATE(31, 12, 1999), CTIME(23, 0, 0)), "\xE9t\xE9"});
    };
    EXPECT_EQ(FieldsOf(write), std::string(std::istreambuf_iterator<char>(file), {}));
}

TEST(FieldStreamTest, WritesSpecialCharactersTheSameWhoeverEncodes) {
    class CASKED : public CCSVENCODER {};  // asked for each field
    CASKED asked;
    for (const char special : "\r\n\";\t\x0E\x80\xBB"sv) {
        const auto write = [special](COSTREAM& fields) {
            for (std::size_t size = 1; size <= 20; ++size) {
                for (std::size_t at = 0; at < size; ++at) {
                    std::string text(size, 'x');
                    text[at] = special;
                    fields << text << long{-2147483647} << text.c_str();
                }
                fields.SetNextLine();
            }
        };
        EXPECT_EQ(FieldsOf(write), Written<COSTREAMDECORATORFIELD>(write, ';', asked));
    }
}

}  // namespace
