// The examples of the folder's headers: see header_examples.cmake.

#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/platform/GlobalMemory.h>
#include <MLCore/streams/CBUFFERSTREAM.h>
#include <MLCore/streams/CCSVENCODER.h>
#include <MLCore/streams/CFILESTREAM.h>
#include <MLCore/streams/CHANDLESTREAM.h>
#include <MLCore/streams/CISTREAMDECORATORFIELD.h>
#include <MLCore/streams/CISTREAMDECORATORTEXT.h>
#include <MLCore/streams/COSTREAMDECORATORFIELD.h>
#include <MLCore/streams/COSTREAMDECORATORTEXT.h>
#include <MLCore/streams/CRESOURCESTREAM.h>
#include <MLCore/streams/CSTREAMREADER.h>
#include <MLCore/streams/CSTREAMSAVER.h>
#include <MLCore/streams/CSTREAMWRITER.h>
#include <MLCore/streams/FIELDSCANNER.h>
#include <gtest/gtest.h>
#include <streams/Bytes.h>

#include <filesystem>

namespace serializable_example {

using namespace MLCore;

// In place of the members.
long mNumber = 0;
CDATE mDate;
#include "header_examples/CSERIALIZABLEOBJECT.inc"
MLCORE_REGISTER_CLASS(CORDER)

}  // namespace serializable_example

namespace state_example {

using namespace MLCore;

struct CORDER {
    void ReadState(CREADER& reader);
    void WriteState(CWRITER& writer) const;

    long mNumber = 0;
    CDATE mDate;
    double mAmount = 0;
};
#include "header_examples/CREADER.inc"
//
#include "header_examples/CWRITER.inc"

}  // namespace state_example

namespace {

using namespace MLCore;

std::string Content(const CBUFFERSTREAM& stream) {
    return {static_cast<const char*>(stream.GetBuffer()), static_cast<std::size_t>(stream.GetSize())};
}

TEST(StreamsExamplesTest, Buffer) {
#include "header_examples/CBUFFERSTREAM.inc"
    EXPECT_EQ(buffer.GetPosition(), 0);
    EXPECT_EQ(Content(buffer), std::string("\7\0\0\0seven", 9));
}

TEST(StreamsExamplesTest, Handle) {
#include "header_examples/CHANDLESTREAM.inc"
    EXPECT_EQ(platform::GlobalBlockSize(block), 4);
    platform::GlobalBlockFree(block);
}

TEST(StreamsExamplesTest, File) {
    {
#include "header_examples/CFILESTREAM.inc"
    } EXPECT_EQ(std::filesystem::file_size("report.csv"), 12);
    std::filesystem::remove("report.csv");
}

TEST(StreamsExamplesTest, Resource) {
#include "header_examples/CRESOURCESTREAM.inc"
    EXPECT_GT(rates.GetSize(), 0);
}

TEST(StreamsExamplesTest, Saver) {
    for (const bool isHeader : {false, true}) {
        CBUFFERSTREAM stream;
        stream.Open();
        stream << "header and more";
        stream.Open();
        const auto ReadHeader = [isHeader](CRANDOMSTREAM& from) { return from.SetPosition(6), isHeader; };
        {
#include "header_examples/CSTREAMSAVER.inc"
        } EXPECT_EQ(stream.GetPosition(), isHeader ? 6 : 0);
    }
}

TEST(StreamsExamplesTest, Text) {
    CBUFFERSTREAM file;
    file.Open();
    {
#include "header_examples/COSTREAMDECORATORTEXT.inc"
    } EXPECT_EQ(Content(file), "Orders of " + CDATE::Today().ToString() + "\r\n");
    file.Open();
    std::string line;
#include "header_examples/CISTREAMDECORATORTEXT.inc"
    EXPECT_EQ(line, "Orders of " + CDATE::Today().ToString());
}

TEST(StreamsExamplesTest, Fields) {
    CBUFFERSTREAM file;
    file.Open();
    {
#include "header_examples/COSTREAMDECORATORFIELD.inc"
    } EXPECT_EQ(Content(file), "1;\"a;b\"\r\n");
    file.Open();
    std::string field;
#include "header_examples/CISTREAMDECORATORFIELD.inc"
    EXPECT_EQ(field, "a;b");
}

TEST(StreamsExamplesTest, StatesAsTexts) {
    using serializable_example::mNumber;
    const auto object = AdoptObject(new serializable_example::CORDER);
    CSERIALIZABLEOBJECT& order = *object;
    CBUFFERSTREAM file;
    CCSVENCODER encoder;
    file.Open();
    mNumber = 7;
    {
        COSTREAMDECORATORFIELD text(file, ';', encoder);
#include "header_examples/COSTREAMDECORATORTEXT.2.inc"
    }
    EXPECT_EQ(Content(file), "7;\r\n");
    file.Open();
    mNumber = 0;
    CISTREAMDECORATORFIELD text(file, ';', encoder);
#include "header_examples/CISTREAMDECORATORTEXT.2.inc"
    EXPECT_EQ(mNumber, 7);
}

TEST(StreamsExamplesTest, Scanner) {
#include "header_examples/FIELDSCANNER.inc"
    EXPECT_EQ(fields, (std::vector<std::string>{"1", "\"a;b\""}));
}

TEST(StreamsExamplesTest, Encoder) {
    const auto Encode = [](const char* text) { return CCSVENCODER().Encode(text); };
#include "header_examples/CCSVENCODER.inc"
    EXPECT_EQ(Encode("a;b"), "\"a;b\"");
    EXPECT_EQ(Encode("say \"hi\""), "\"say \"\"hi\"\"\"");
}

TEST(StreamsExamplesTest, States) {
    using serializable_example::mNumber;
    const auto order = AdoptObject(new serializable_example::CORDER);
    state_example::CORDER amount;
    amount.mNumber = mNumber = 7;
    amount.mAmount = 2.5;
    CBUFFERSTREAM buffer;
    buffer.Open();
    CSTREAMWRITER writer(buffer);
    order->WriteState(writer);
    amount.WriteState(writer);
    amount = {};
    mNumber = 0;
    buffer.Open();
    CSTREAMREADER reader(buffer);
    order->ReadState(reader);
    amount.ReadState(reader);
    EXPECT_EQ(mNumber, 7);
    EXPECT_EQ(amount.mNumber, 7);
    EXPECT_EQ(amount.mAmount, 2.5);
}

}  // namespace
