// What failures of streams say: where, what was found and what was wanted.

#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/streams/CCOUNTINGSTREAM.h>
#include <MLCore/streams/CCSVENCODER.h>
#include <MLCore/streams/CFILESTREAM.h>
#include <MLCore/streams/CHANDLESTREAM.h>
#include <MLCore/streams/CISTREAMDECORATORFIELD.h>
#include <MLCore/streams/CMEMSTREAM.h>
#include <MLCore/streams/COSTREAMDECORATORTEXT.h>
#include <MLCore/streams/CRESOURCESTREAM.h>
#include <streams/Bytes.h>
#include <support/TempFile.h>

#include <filesystem>
#include <functional>
#include <memory>

namespace {

using namespace bytes;
using support::SAYING;
using support::Saying;

CCSVENCODER csv;

/// An open stream over these bytes, of the library's own class.
std::unique_ptr<CBUFFERSTREAM> Opened(std::string_view bytes) {
    auto stream = std::make_unique<CBUFFERSTREAM>(static_cast<unsigned long>(bytes.size()), bytes.data());
    stream->Open();
    return stream;
}

struct ROW {
    SAYING expected;
    std::function<void()> action;
};

void Check(const std::vector<ROW>& rows) {
    for (const ROW& row : rows) {
        EXPECT_EQ(FailureOf(row.action), row.expected);
    }
}

template <class Value>
std::function<void()> Reads(std::string_view bytes) {
    return [bytes] {
        const auto stream = Opened(bytes);
        Value value{};
        *stream >> value;
    };
}

TEST(StreamFailureTest, BinaryReads) {
    std::string text;
    void* block = nullptr;
    Check({
        {Saying(-110, "4 bytes wanted, and the stream ended after 3 of them at byte 3"), Reads<long>("abc")},
        {Saying(-110, "8 bytes wanted, and the stream ended after 0 of them at byte 0"), Reads<double>("")},
        {Saying(-110, "6 bytes wanted", "after 5 of them at byte 5"), Reads<CDATE>("abcde")},
        {Saying(-110, "9 bytes wanted", "after 7 of them at byte 7"), [&] { Opened("1234567")->GetValue(text, 9); }},
        {Saying(-110, "cannot read a text of -3 characters"), [&] { Opened("abc")->GetValue(text, -3); }},
        {Saying(-100, "the buffer to read into is null", "4 bytes"),
         [] { Opened("abc")->GetValue(static_cast<void*>(nullptr), 4L); }},
        {Saying(-110, "a memory block of 5 bytes at byte 4, where the stream has 2 bytes left"),
         [&] { Opened("\5\0\0\0ab"sv)->GetValue(block); }},
        {Saying(-110, "a memory block of 4294967295 bytes at byte 4", "at most 2147483647"),
         [&] { Opened("\xFF\xFF\xFF\xFF"sv)->GetValue(block); }},
        {Saying(-110, "a class identifier of -2 characters before byte 2"),
         [] { static_cast<void>(Opened("\xFE\xFF"sv)->GetObject()); }},
        {Saying(123, "'CNOBODY'"), [] { static_cast<void>(Opened("\7\0CNOBODY"sv)->GetObject()); }},
        {Saying(123, "is not that of a CSERIALIZABLEOBJECT"),
         [] { static_cast<void>(Opened("\11\0CMEMARRAY"sv)->GetObject()); }},
        {Saying(123, "'C\\x00D'", "zero byte"), [] { static_cast<void>(Opened("\3\0C\0D"sv)->GetObject()); }},
    });
    const auto bytes = Opened("abcdefgh");
    CISTREAMDECORATOR inner(*bytes);
    CISTREAMDECORATOR outer(static_cast<CISTREAM&>(inner));
    bytes->SetPosition(6);
    long number = 0;
    EXPECT_EQ(FailureOf([&] { outer >> number; }), Saying(-110, "after 2 of them at byte 8")) << "through decorators";
}

template <class Value>
std::function<void()> ReadsField(std::string_view bytes) {
    return [bytes] {
        const auto stream = Opened(bytes);
        CISTREAMDECORATORFIELD fields(*stream, ';', csv);
        std::string skipped;
        while (fields.IsEnd() == 0 && skipped != "x") {
            fields.GetValue(skipped, 99);
            if (fields.IsEndOfLine() != 0) {
                fields.GetNextLine();
            }
        }
        Value value{};
        fields >> value;
    };
}

TEST(StreamFailureTest, ReadsOfValuesInText) {
    std::string lengthy = "x;" + std::string(100, '9');
    Check({
        {Saying(138, "'12a' is not a whole number from -32768 to 32767 at line 1, column 3 (byte 2)"),
         ReadsField<short>("x;12a;7")},
        {Saying(138, "'70000' is not a whole number from 0 to 65535 at line 3, column 3 (byte 10)"),
         ReadsField<unsigned short>("ab;\r\nc\r\nx; 70000 \r\n")},
        {Saying(138, "'-1x' is not a whole number from -2147483648 to 2147483647"), ReadsField<long>("x;-1x")},
        {Saying(138, "'1,5' is not a number at line 2, column 1 (byte 3)"), ReadsField<double>("x\r\n1,5")},
        {Saying(138, "'31022024' is not a date at"), ReadsField<CDATE>("x;31022024")},
        {Saying(138, "'25:00:00' is not a time of day at"), ReadsField<CTIME>("x;25:00:00")},
        {Saying(138, "'05032024' is not a date and a time of day at"), ReadsField<CDATETIME>("x;05032024")},
        {Saying(138, "999...' is not a whole number"), ReadsField<long>(lengthy)},
        {Saying(-110, "the text has ended at byte 2: wanted a whole number"), ReadsField<long>("x;")},
        {Saying(-110, "the text has ended at byte 2: wanted a date"), ReadsField<CDATE>("x;")},
        {Saying(-110, "the text has ended at byte 2: wanted a character"), ReadsField<char>("x;")},
    });
    const auto hidden = Opened("5;no");
    CISTREAMDECORATOR plain(*hidden);
    CISTREAMDECORATORFIELD fields(plain, ';', csv);
    CISTREAMDECORATORTEXT lines(plain);
    std::string text;
    long number = 0;
    fields >> number;
    EXPECT_EQ(FailureOf([&] { fields >> number; }), Saying(138, "'no' is not", "before byte 4")) << "read one by one";
    EXPECT_EQ(FailureOf([&] { fields.ReadNextValue(text, -1); }), Saying(-110, "-1 characters"));
    EXPECT_EQ(FailureOf([&] { lines.GetValue(text, -2); }), Saying(-110, "-2 characters"));
    EXPECT_EQ(FailureOf([&] { lines.GetValue(static_cast<char*>(nullptr), 2); }), Saying(-100, "2 characters is null"));
    EXPECT_EQ(FailureOf([&] { COSTREAMDECORATORTEXT(*hidden).SetValue(static_cast<const void*>(nullptr), 1L); }),
              Saying(-100, "the buffer to write from is null"));
}

TEST(StreamFailureTest, ALineFarBehindIsNamedByItsByte) {
    const std::string before(2 << 20, '\n');
    const auto stream = Opened(before + "no");
    CISTREAMDECORATORTEXT text(*stream);
    long number = 0;
    stream->SetPosition(before.size());
    EXPECT_EQ(FailureOf([&] { text >> number; }), Saying(138, "'no'", "at byte 2097152"));
    stream->SetPosition(7);
    stream->SetValue(std::string("ab"));
    stream->SetPosition(7);
    EXPECT_EQ(FailureOf([&] { text >> number; }), Saying(138, "'ab'", "at line 8, column 1 (byte 7)"));
}

TEST(StreamFailureTest, Positions) {
    char area[8] = {};
    CMEMSTREAM memory(8, area);
    CCOUNTINGSTREAM counting;
    const auto buffer = Opened("0123456789");
    memory.Open();
    memory.SetPosition(6);
    counting.Open();
    Check({
        {Saying(-110, "cannot go to byte 12: the stream has 10 bytes"), [&] { buffer->SetPosition(12); }},
        {Saying(-110, "cannot go to 11 bytes before the end: the stream has 10 bytes"),
         [&] { buffer->SetPositionFromEnd(11); }},
        {Saying(-110, "cannot move by -1 bytes from byte 0"), [&] { buffer->OffsetPosition(-1); }},
        {Saying(-110, "cannot move by 3 bytes from byte 6: the stream has 8 bytes"), [&] { memory.OffsetPosition(3); }},
        {Saying(-110, "cannot move by -1 bytes from byte 0"), [&] { counting.OffsetPosition(-1); }},
        {Saying(-111, "no room for 3 bytes at byte 6 of a memory of 8 bytes"), [&] { memory << "abc"; }},
        {Saying(-111, "cannot set the size to 9: the memory has 8 bytes"), [&] { memory.SetSize(9); }},
        {Saying(-100, "no memory for a block of"), [&] { buffer->SetSize(1ULL << 60); }},
        {Saying(-100, "the memory of 5 bytes for a stream is null"), [] { CMEMSTREAM(5, nullptr); }},
        {Saying(-100, "the 5 bytes to copy"), [] { CBUFFERSTREAM(5, nullptr); }},
        {Saying(-100, "no resource 'NOBODY' of type 10"), [] { CRESOURCESTREAM(nullptr, "NOBODY", 10); }},
        {Saying(-100, "no resource 77 of type 3"),
         [] { CRESOURCESTREAM(nullptr, reinterpret_cast<const char*>(std::uintptr_t{77}), 3); }},
    });
}

TEST(StreamFailureTest, ClosedStreams) {
    CBUFFERSTREAM buffer;
    CHANDLESTREAM handle;
    CCOUNTINGSTREAM counting;
    const support::TEMPFILE scratch;
    CFILESTREAM file(scratch.path);
    long number = 0;
    std::string line;
    const std::string ofFile = std::filesystem::path(scratch.path).filename().string() + "' is closed";
    Check({
        {Saying(141, "cannot read: the stream is closed"), [&] { buffer >> number; }},
        {Saying(141, "cannot write: the stream is closed"), [&] { handle << 1L; }},
        {Saying(141, "cannot set the position: the stream is closed"), [&] { buffer.SetPosition(0); }},
        {Saying(141, "cannot move the position: the stream is closed"), [&] { counting.Skip(1); }},
        {Saying(141, "cannot set the size: the stream is closed"), [&] { counting.SetSize(1); }},
        {Saying(141, "cannot copy the stream: the stream is closed"),
         [&] { buffer >> static_cast<COSTREAM&>(counting); }},
        {Saying(141, "cannot get the buffer: the stream is closed"), [&] { static_cast<void>(buffer.GetBuffer()); }},
        {Saying(141, "cannot read: the stream is closed"), [&] { CISTREAMDECORATORTEXT(buffer).ReadLine(line); }},
        {Saying(141, "cannot flush: the stream of", ofFile.c_str()), [&] { file.Flush(); }},
        {Saying(141, "cannot set the position: the stream of", ofFile.c_str()), [&] { file.Rewind(); }},
    });
}

TEST(StreamFailureTest, FilesNameTheirPathAndTheReason) {
    const std::string missing = "no-such-folder/and-a-name-so-long-that-its-beginning-is-left-out/orders.csv";
    const auto failure = FailureOf([&] { CFILESTREAM(missing).Open(); });
    EXPECT_TRUE(failure.code == 2 || failure.code == 3) << failure.code;
    EXPECT_EQ(failure, Saying(failure.msg, "cannot open '...", "is-left-out/orders.csv': "));
    EXPECT_GT(failure.text.size(), failure.text.find("': ") + 3) << "the system's reason";

    const support::TEMPFILE scratch;
    scratch.SetContent("abc");
    const std::string name = std::filesystem::path(scratch.path).filename().string();
    CFILESTREAM reader(scratch.path);
    CFILESTREAM appender(scratch.path, CSTREAM::ReadWrite | CSTREAM::Append);
    reader.Open();
    const auto refused = FailureOf([&] { reader << "text"; });
    EXPECT_EQ(refused, Saying(-3005, "cannot write to", name.c_str(), "opened for reading only"));
    EXPECT_EQ(refused.code, 5U);
    reader.Close();
    appender.Open();
    EXPECT_EQ(FailureOf([&] { appender.SetSize(1); }),
              Saying(-3005, "cannot set the size of", name.c_str(), "opened for appending only"));
    EXPECT_EQ(FailureOf([] { CFILESTREAM(static_cast<const char*>(nullptr)); }), Saying(-100, "path"));
}

}  // namespace
