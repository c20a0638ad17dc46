#include <MLCore/platform/ModuleResources.h>
#include <MLCore/streams/CBUFFERSTREAM.h>
#include <MLCore/streams/CRESOURCESTREAM.h>
#include <depot/Depot.h>
#include <gtest/gtest.h>
#include <support/Failure.h>

namespace {

using namespace MLCore;
using support::FailureOf;

// The library of another module, which holds modules/depot/catalogue.bin twice.
TEST(ResourceStreamTest, ReadsFromAnotherModule) {
    const HINSTANCE depot = platform::ModuleOf(&depot::CITEM::ClassInfoStatic());
    CRESOURCEINFO info(nullptr, nullptr);
    EXPECT_EQ(info.GetResource(), nullptr);
    EXPECT_EQ(info.GetSize(), 0);
    EXPECT_EQ(FailureOf([&] { CRESOURCESTREAM stream(info); }), -100);
    info = CRESOURCEINFO(depot, platform::FindModuleResource(depot, "#123", 300));
    EXPECT_EQ(info.GetSize(), 14);
    CRESOURCESTREAM named(depot, "catalogue", 10), numbered(depot, "#123", 300), informed(info);
    for (CRESOURCESTREAM* const stream : {&named, &numbered, &informed}) {
        CBUFFERSTREAM out;
        out.Open();
        EXPECT_EQ(FailureOf([&] { stream->GetValue(static_cast<void*>(&out), 0); }), 141);
        EXPECT_EQ(FailureOf([&] { *stream >> out; }), 141);
        EXPECT_EQ(FailureOf([&] { stream->SetSize(1); }), 141);
        EXPECT_EQ(FailureOf([&] { stream->SetPosition(1); }), 141);
        EXPECT_EQ(FailureOf([&] { stream->OffsetPosition(1); }), 141);
        EXPECT_EQ(FailureOf([&] { stream->SetPositionFromEnd(1); }), 141);
        EXPECT_EQ(stream->GetSize() + stream->GetPosition() + static_cast<unsigned>(stream->GetOpenMode()), 0U);
        stream->Open();
        stream->SetSize(3);
        stream->SetPosition(4);
        EXPECT_EQ(stream->GetPosition(), 4U);
        stream->Rewind();
        long number = 0;
        *stream >> number;
        EXPECT_EQ(number, -2);
        EXPECT_EQ(FailureOf([&] { stream->Skip(-5); }), -110);
        EXPECT_EQ(FailureOf([&] { stream->SetPositionFromEnd(15); }), -110);
        EXPECT_EQ(stream->GetValue(out) * stream->IsEnd(), 10);
        EXPECT_EQ(std::string(static_cast<const char*>(out.GetBuffer()), 10), std::string("cat\r\n\x1A\0end", 10));
        stream->Open();
        EXPECT_EQ(stream->GetPosition(), 0U);
    }
    for (const char* name : {"catalog", "#124", "123", "#123", "", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(FailureOf([&] { CRESOURCESTREAM(depot, name, 10); }), -100);
    }
#if !defined(MLCORE_STATIC)
    EXPECT_EQ(FailureOf([&] { CRESOURCESTREAM(nullptr, "CATALOGUE", 10); }), -100) << "the program has none";
#endif
}

}  // namespace
