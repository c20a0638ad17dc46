#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/platform/GlobalMemory.h>
#include <MLCore/streams/CBUFFERSTREAM.h>
#include <MLCore/streams/CISTREAMDECORATOR.h>
#include <MLCore/streams/COSTREAMDECORATOR.h>
#include <MLCore/streams/CSTREAMREADER.h>
#include <MLCore/streams/CSTREAMSAVER.h>
#include <MLCore/streams/CSTREAMWRITER.h>
#include <gtest/gtest.h>
#include <support/Failure.h>

#include <climits>
#include <fstream>
#include <sstream>

namespace {

using namespace MLCore;
using namespace std::string_literals;
using support::FailureOf;

/// Is written at its end and read from the front, knows no size, and notes what raw reads asked for. Counts lines.
struct CPIPE : CISTREAM, COSTREAM {
    explicit CPIPE(std::string its = {}) : CISTREAM(ReadWrite), COSTREAM(ReadWrite), bytes(std::move(its)) {}
    using CISTREAM::GetValue;
    using COSTREAM::SetValue;
    int IsEnd() const override { return position == bytes.size() ? 1 : 0; }
    long GetValue(void* buffer, long count) override {
        asked.push_back(count), most = std::max(most, count);
        const std::size_t given = bytes.copy(static_cast<char*>(buffer), static_cast<unsigned>(count), position);
        position += given;
        return static_cast<long>(given);
    }
    void SetValue(const void* data, long count) override {
        bytes.append(static_cast<const char*>(data), unsigned(count));
    }
    void Skip(long count) override { position += static_cast<unsigned>(count); }
    void Rewind() override { position = 0; }
    void GetNextLine() override { ++lines; }
    void ReadLine(std::string& line) override { line = "line", ++lines; }
    void WriteLine(const std::string& line) override { bytes += line, ++lines; }
    void SetNextLine() override { ++lines; }
    std::string bytes;
    std::size_t position = 0;
    std::vector<long> asked;
    long lines = 0, most = 0;
};

/// Encrypts bytes with a key; of the single values, `long` goes through it too.
template <char key>
struct CXOR : CISTREAMDECORATOR {
    using CISTREAMDECORATOR::CISTREAMDECORATOR;
    using CISTREAMDECORATOR::GetValue;
    long GetValue(void* buffer, long count) override {
        const long given = GetComponent().GetValue(buffer, count);
        for (long at = 0; at < given; ++at) static_cast<char*>(buffer)[at] ^= key;
        return given;
    }
    void GetValue(long& value) override { CISTREAM::GetValue(value); }
};

/// A number, and another node.
class CNODE : public CSERIALIZABLEOBJECT {
    MLCORE_CLASS(CNODE, CSERIALIZABLEOBJECT)
public:
    explicit CNODE(short its = 0, CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> below = {}) : number(its), child(below) {}
    void ReadState(CREADER& reader) override { reader >> number, child = reader.GetObject(); }
    void WriteState(CWRITER& writer) const override { writer << number, writer.SetObject(child); }
    short number;
    CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> child;
};
struct CNAMED : CNODE {
    explicit CNAMED(const char* its) : identifier(its) {}
    const char* ClassIdentifier() const override { return identifier; }
    const char* const identifier;
};

MLCORE_REGISTER_CLASS(CNODE)

int NumberOf(const CSHAREOBJECTPTR<CSERIALIZABLEOBJECT>& node) { return dynamic_cast<const CNODE&>(*node).number; }

/// Expects the value to be these bytes by every way in and out, `all` among them; bytes that come short fill its start.
template <class Value>
void Check(const Value& value, const std::string& bytes, CPIPE& all) {
    CPIPE pipe;
    COSTREAMDECORATOR inner(pipe), outer(static_cast<COSTREAM&>(inner));
    CSTREAMWRITER first(outer), writer(first);
    all << value;
    pipe << value;
    writer.SetValue(value);
    writer << value;
    EXPECT_EQ(pipe.bytes, bytes + bytes + bytes);
    for (std::size_t size = 0; size <= 2 * bytes.size() + 1; ++size) {
        CPIPE cut(bytes.substr(0, size / 2));
        CISTREAMDECORATOR innerIn(cut), outerIn(static_cast<CISTREAM&>(innerIn));
        CSTREAMREADER firstReader(outerIn), reader(firstReader);
        Value back;
        char* const memory = static_cast<char*>(std::memset(static_cast<void*>(&back), 0xEE, sizeof(back)));
        const auto read = [&] { size % 2 == 0 ? void(reader >> back) : reader.GetValue(back); };
        EXPECT_EQ(FailureOf(read), cut.bytes != bytes ? -110 : 0) << bytes << size;
        EXPECT_NE(cut.IsEnd(), 0) << bytes << size;
        EXPECT_TRUE(cut.bytes != bytes || back == value) << bytes << size;
        cut.bytes.append(bytes.size() - cut.bytes.size(), '\xEE');
        EXPECT_EQ(std::string(memory, bytes.size()), cut.bytes) << size;
    }
}

TEST(StreamModelTest, ValuesLieAsInMemoryAndAsInTheKeptFile) {
    CPIPE out;
    Check('A', "A", out);
    Check(short{-2}, "\xFE\xFF", out);
    Check(static_cast<unsigned short>(65534), "\xFE\xFF", out);
    Check(-2L, "\xFE\xFF\xFF\xFF", out);
    Check(2147483647L, "\xFF\xFF\xFF\x7F", out);
    Check(4294967294UL, "\xFE\xFF\xFF\xFF", out);
    Check(-0.5, "\0\0\0\0\0\0\xE0\xBF"s, out);
    Check(5e-324, "\1\0\0\0\0\0\0\0"s, out);
    Check(CDATE(5, 3, 2024), "\5\0\3\0\xE8\7"s, out);
    Check(CTIME(7, 5, 9), "\xA5\x63\0\0"s, out);
    Check(CDATETIME(CDATE(5, 3, 2024), CTIME(7, 5, 9)), "\5\0\3\0\xE8\7\xA5\x63\0\0"s, out);
    if (sizeof(long) > 4) {
        EXPECT_EQ(FailureOf([&] { out << static_cast<long>(5000000000LL); }), 126);
        EXPECT_EQ(FailureOf([&] { out << static_cast<unsigned long>(-1LL); }), 126);
    }
    CSTREAMWRITER writer(out);
    writer.SetValueBOOL(-2);
    writer.SetObject(AdoptObject(new CNODE(258)));
    writer.SetValue(static_cast<void*>(nullptr));
    writer << "abc";
    writer << "a\0b"s;
    out.SetValue(static_cast<const char*>(nullptr));
    // Put together from the description of the format.
    std::ifstream file(MLCORE_SOURCE_DIR "/tests/streams/data/values.bin", std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), out.bytes);
    CSTREAMREADER reader(out);
    int flag = 0;
    out.Skip(53);
    reader.GetValueBOOL(flag);
    EXPECT_EQ(flag + NumberOf(reader.GetObject()), -2 + 258);
    EXPECT_EQ(FailureOf([&] { CPIPE("abc").GetValueBOOL(flag); }), -110);
}

TEST(StreamModelTest, TextsAndBlocksAreTakenExactly) {
    std::string text = "kept";
    char buffer[32769] = "";
    for (const long length : {-1L, LONG_MIN, 4L, 32767L, 2147483647L, LONG_MAX}) {
        CPIPE pipe("abc");
        EXPECT_EQ(FailureOf([&] { pipe.GetValue(text, length); }), -110) << length;
        EXPECT_EQ(FailureOf([&] { pipe.GetValue(buffer, std::min(length, -1L)); }), -110);
        EXPECT_LE(pipe.most, 16L << 20) << "taken before it is seen to be there";
    }
    EXPECT_EQ(text + buffer, "kept");
    CPIPE pipe(std::string(32770, 'x'));
    CSTREAMREADER reader(pipe);
    buffer[32768] = '!';
    reader >> buffer;
    EXPECT_EQ(buffer + std::string(1, buffer[32768]), std::string(32767, 'x') + "!");
    pipe.GetValue(buffer, 0L);
    pipe.GetValue(text, 0);
    EXPECT_EQ(text + buffer, "");
    pipe.position = 3;
    reader >> text;
    EXPECT_EQ(text.size(), 32767);
    EXPECT_NE(pipe.IsEnd(), 0);
    const std::string large = "\1\0\100\1"s + std::string((20 << 20) + 1, 'm');
    for (const std::string& bytes :
         {"\0\0\0\0"s, "\5\0\0\0\0\1\n\r\xFF"s, large, ""s, "\0\0\0"s, "\1\0\0\0"s, "\5\0\0\0@"s, "\xFF\x7F\0\0@"s,
          "\xFF\xFF\xFF\x7F@"s, "\0\0\0\x80@"s, "\xFF\xFF\xFF\xFF@"s}) {
        const bool isTrue = bytes.size() > 5 || bytes == "\0\0\0\0"s;
        CPIPE in(bytes), out;
        CBUFFERSTREAM seekable(static_cast<unsigned long>(bytes.size()), bytes.data());
        seekable.Open();
        for (CISTREAM* const stream : {static_cast<CISTREAM*>(&in), static_cast<CISTREAM*>(&seekable)}) {
            void* block = &in;
            EXPECT_EQ(FailureOf([&] { CISTREAMDECORATOR(*stream).GetValue(block); }), isTrue ? 0 : -110)
                << bytes.substr(0, 4);
            EXPECT_TRUE(isTrue || block == &in) << "set on success only";
            if (isTrue) {
                EXPECT_EQ(platform::GlobalBlockSize(block), bytes.size() - 4);
                COSTREAMDECORATOR(out).SetValue(block);
                platform::GlobalBlockFree(block);
            }
        }
        EXPECT_EQ(out.bytes, isTrue ? bytes + bytes : "") << bytes.substr(0, 4);
        EXPECT_LE(in.most, 16L << 20) << "taken before it is seen to be there";
        EXPECT_TRUE(isTrue || seekable.GetPosition() <= 4);
    }
}

TEST(StreamModelTest, ObjectsAreCreatedAgain) {
    const std::string bytes = "\5\0CNODE\2\1\5\0CNODE\4\3\0\0"s;
    CPIPE pipe(bytes);
    CISTREAMDECORATOR in(pipe);
    COSTREAMDECORATOR out(pipe);
    CSTREAMREADER reader(in);
    CSTREAMWRITER writer(out);
    writer.SetObject(reader.GetObject());
    out.SetObject(in.GetObject());
    out.SetObject(nullptr);
    const auto read = pipe.GetObject();
    CNODE& node = dynamic_cast<CNODE&>(*read);
    EXPECT_EQ(node.number * NumberOf(node.child), 0x0102 * 0x0304);
    EXPECT_EQ(reader.GetObject(), nullptr);
    for (int i = 0; i < 2; ++i, node.number = 0) {
        i == 0 ? void(out << node) : void(writer << node);
        node = CNODE();
        i == 0 ? void(in >> node) : void(reader >> node);
        EXPECT_EQ(node.number * NumberOf(node.child), i == 0 ? 0x0102 * 0x0304 : 0);
    }
    EXPECT_EQ(pipe.bytes, bytes + bytes + bytes + "\0\0"s + bytes.substr(7) + "\0\0"s + bytes.substr(9));
    CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> chain;
    std::string chained = "\0\0"s;
    for (int depth = 1; depth <= 258; ++depth) {
        chain = AdoptObject(new CNODE(7, chain));
        pipe.bytes = chained = "\5\0CNODE\7\0"s + chained;
        pipe.Rewind();
        EXPECT_EQ(FailureOf([&] { return pipe.GetObject(); }), depth > 256 ? 138 : 0);
        pipe.bytes.clear();
        EXPECT_EQ(FailureOf([&] { writer.SetObject(chain); }), depth > 256 ? 138 : 0);
        EXPECT_EQ(pipe.bytes == chained, depth <= 256) << depth;
    }
}

TEST(StreamModelTest, WhatIsNoObjectIsRefused) {
    const std::string longest(32767, 'N'), node = "\5\0CNODE\2\1\5\0CNODE\4\3\0\0"s;
    for (std::size_t size = 0; size < node.size(); ++size) {
        EXPECT_EQ(FailureOf([&] { return CPIPE(node.substr(0, size)).GetObject(); }), -110) << size;
    }
    for (const std::string& start : {"\xFF\xFF"s, "\0\x80"s, "\xFF\x7F"s}) {
        EXPECT_EQ(FailureOf([&] { return CPIPE(start + "CNODE").GetObject(); }), -110);
    }
    COBJECTFACTORY& factory = *COBJECTFACTORY::GetInstance();
    factory.RegisterClass("nothing", "NOTHING", [] { return CSHAREOBJECTPTR<COBJECT>(); });
    for (const std::string& start : {"\xFF\x7F" + longest, "\5\0CNODF"s, "\5\0cnode"s, "\6\0CNODE"s, "\11\0CMEMARRAY"s,
                                     "\7\0NOTHING"s, "\23\0CSERIALIZABLEOBJECT"s, "\5\0CNODE##\11\0CMEMARRAY"s}) {
        EXPECT_EQ(FailureOf([&] { return CPIPE(start + std::string(20, '\0')).GetObject(); }), 123) << start;
    }
    factory.UnregisterClass("nothing");
    const auto written = [](const char* identifier) {
        CPIPE pipe;
        const auto object = AdoptObject(new CNAMED(identifier));
        return std::to_string(FailureOf([&] { pipe.SetObject(object); }).msg).append(pipe.bytes);
    };
    EXPECT_EQ(written(nullptr) + written(""), "0\0\0000\0\0"s);
    EXPECT_EQ(written(longest.c_str()), "0\xFF\x7F" + longest + "\0\0\0\0"s);
    EXPECT_EQ(written((longest + 'N').c_str()), "-111");
}

TEST(StreamModelTest, CopiesInStepsAndBridges) {
    for (const unsigned size : {0U, 1024U, 1025U, 2500U}) {
        CPIPE in(std::string(size, 'c')), out;
        EXPECT_EQ(in.GetValue(out), static_cast<long>(size));
        EXPECT_EQ(in.asked, std::vector<long>((size + 1023) / 1024, 1024));
        EXPECT_EQ(out.bytes, in.bytes);
    }
    const std::string bytes = " a b\n\r\n\0 \xFF\t"s;
    CPIPE pipe;
    CISTREAMDECORATOR inner(pipe);
    COSTREAMDECORATOR outer(pipe);
    CSTREAMWRITER writer(outer);
    CSTREAMREADER reader(inner);
    std::stringstream in(bytes), failed("lost"), out;
    failed.setstate(std::ios::failbit);
    in >> writer;
    failed >> writer;
    out << reader << reader;
    EXPECT_EQ(pipe.bytes + out.str(), bytes + bytes);
    using namespace std;
    string line;
    writer << 'x' << endl << endl;
    reader >> endl >> endl;
    writer.WriteLine("written");
    reader.ReadLine(line);
    EXPECT_EQ(to_string(pipe.lines) + line + pipe.bytes.substr(11), "6linexwritten");
}

TEST(StreamModelTest, DecoratorsStack) {
    class CDERIVED : public CBUFFERSTREAM {
    } buffer;
    CXOR<0x11> inner(buffer);
    CXOR<0x22> middle(inner);
    CXOR<0x40> outer(middle);
    COSTREAMDECORATOR out(buffer);
    CPIPE rest;
    EXPECT_EQ(outer.GetValue(rest) + outer.IsOpen() + out.IsOpen(), 0) << "closed: at its end";
    out.Open();
    EXPECT_EQ(outer.IsOpen() * middle.IsOpen() * buffer.IsOpen() * outer.GetOpenMode() * out.GetOpenMode(), 1);
    out << "rsssA\0\0"s;
    outer.Rewind();
    std::string line = "kept";
    long number = 0;
    char letter = 0;
    outer >> number >> letter >> rest;
    EXPECT_EQ(std::to_string(number) + letter + rest.bytes, "1Ass")
        << "a letter has the component's form; copies do not";
    EXPECT_EQ(outer.IsEnd() * outer.IsEndOfLine(), 1);
    outer.Skip(-2);
    outer.ReadLine(line);
    outer.GetNextLine();
    out.WriteLine("lost");
    out.SetNextLine();
    EXPECT_EQ(buffer.GetPosition() * 100 + buffer.GetSize() * 10 + line.size(), 574U) << "bytes have no lines";
    outer.Close();
    EXPECT_EQ(buffer.IsOpen() + middle.IsOpen() + out.IsOpen(), 0);
    EXPECT_EQ(FailureOf([&] { outer >> number; }), 141);
}

TEST(StreamModelTest, SaversPutThePositionBack) {
    CBUFFERSTREAM stream(9, "012345678");
    stream.Open();
    // Where the stream is after a scope that came at 4 and that `action` may leave by a failure.
    const auto after = [&stream](int expectedFailure, auto action) {
        stream.SetPosition(4);
        const auto scope = [&] {
            CSTREAMSAVER saver(stream);
            stream.SetPosition(7);
            action(saver);
            saver.Restore();
        };
        EXPECT_EQ(FailureOf(scope), expectedFailure);
        return stream.GetPosition();
    };
    EXPECT_EQ(after(7, [](CSTREAMSAVER&) { FailOSErr(7); }), 4U);
    EXPECT_EQ(after(0, [&](CSTREAMSAVER& saver) { saver.Restore(), stream.SetPosition(6); }), 4U);
    EXPECT_EQ(after(0, [](CSTREAMSAVER& saver) { saver.Reset(); }), 7U);
    EXPECT_EQ(after(-110, [&](CSTREAMSAVER&) { stream.SetSize(3); }), 3U);
    stream.SetSize(9);
    EXPECT_EQ(after(141, [&](CSTREAMSAVER&) { stream.Close(); }), 0U);
}

}  // namespace
