// A million objects of three classes in turn, written to memory with their classes and read back as new objects, beside
// QDataStream, which writes a number for the class and makes the object in a hand-written switch. The limit copies the
// fields by hand.

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/streams/CBUFFERSTREAM.h>
#include <MLCore/streams/CREADER.h>
#include <MLCore/streams/CSERIALIZABLEOBJECT.h>
#include <MLCore/streams/CWRITER.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#if defined MLCORE_HAVE_QT
#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#endif

#include "support/Workload.h"

namespace {

using namespace MLCore;

constexpr std::size_t kCount = 1000000;

struct STATE {
    std::int32_t number = 0;
    double amount = 0;
    std::int16_t kind = 0;
};

STATE StateOf(std::size_t i) {
    return {static_cast<std::int32_t>(i), static_cast<double>(i % 1000), static_cast<std::int16_t>(i % 3)};
}
std::int64_t SumOf(const STATE& state) { return state.number + static_cast<std::int64_t>(state.amount) + state.kind; }

class CRECORD : public CSERIALIZABLEOBJECT {
    MLCORE_CLASS(CRECORD, CSERIALIZABLEOBJECT)

public:
    void ReadState(CREADER& reader) override {
        long number = 0;
        reader >> number >> mState.amount >> mState.kind;
        mState.number = static_cast<std::int32_t>(number);
    }
    void WriteState(CWRITER& writer) const override { writer << long{mState.number} << mState.amount << mState.kind; }

    STATE mState;
};
MLCORE_REGISTER_CLASS(CRECORD)

class CORDER : public CRECORD {
    MLCORE_CLASS(CORDER, CRECORD)
};
MLCORE_REGISTER_CLASS(CORDER)

class CINVOICE : public CRECORD {
    MLCORE_CLASS(CINVOICE, CRECORD)
};
MLCORE_REGISTER_CLASS(CINVOICE)

struct RECORD {
    virtual ~RECORD() = default;
    [[nodiscard]] virtual std::int8_t GetClass() const { return 0; }
    STATE state;
};
struct ORDER : RECORD {
    [[nodiscard]] std::int8_t GetClass() const override { return 1; }
};
struct INVOICE : RECORD {
    [[nodiscard]] std::int8_t GetClass() const override { return 2; }
};
std::unique_ptr<RECORD> MakeRecord(std::int8_t number) {
    switch (number) {
        case 1:
            return std::make_unique<ORDER>();
        case 2:
            return std::make_unique<INVOICE>();
        default:
            return std::make_unique<RECORD>();
    }
}

std::vector<CSHAREOBJECTPTR<CRECORD>> MakeOurs() {
    std::vector<CSHAREOBJECTPTR<CRECORD>> records;
    for (std::size_t i = 0; i < kCount; ++i) {
        records.push_back(i % 3 == 0   ? AdoptObject(new CRECORD)
                          : i % 3 == 1 ? CSHAREOBJECTPTR<CRECORD>(AdoptObject(new CORDER))
                                       : CSHAREOBJECTPTR<CRECORD>(AdoptObject(new CINVOICE)));
        records.back()->mState = StateOf(i);
    }
    return records;
}

std::vector<std::unique_ptr<RECORD>> MakePeers() {
    std::vector<std::unique_ptr<RECORD>> records;
    for (std::size_t i = 0; i < kCount; ++i) {
        records.push_back(MakeRecord(static_cast<std::int8_t>(i % 3)));
        records.back()->state = StateOf(i);
    }
    return records;
}

void WriteOurs(CBUFFERSTREAM& stream, const std::vector<CSHAREOBJECTPTR<CRECORD>>& records) {
    stream.Open();
    for (const CSHAREOBJECTPTR<CRECORD>& record : records) {
        stream.SetObject(record.Get());
    }
}

std::int64_t ReadOurs(CBUFFERSTREAM& stream) {
    stream.Open();
    std::int64_t sum = 0;
    while (stream.IsEnd() == 0) {
        const CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> object = stream.GetObject();
        sum += SumOf(static_cast<const CRECORD&>(*object).mState);
    }
    return sum;
}

#if defined MLCORE_HAVE_QT
void WriteQt(QByteArray& bytes, const std::vector<std::unique_ptr<RECORD>>& records) {
    bytes.clear();
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (const std::unique_ptr<RECORD>& record : records) {
        const STATE& state = record->state;
        stream << qint8{record->GetClass()} << state.number << state.amount << state.kind;
    }
}

std::int64_t ReadQt(const QByteArray& bytes) {
    QDataStream stream(bytes);
    std::int64_t sum = 0;
    while (!stream.atEnd()) {
        qint8 number = 0;
        stream >> number;
        const std::unique_ptr<RECORD> record = MakeRecord(number);
        STATE& state = record->state;
        stream >> state.number >> state.amount >> state.kind;
        sum += SumOf(state);
    }
    return sum;
}
#endif

constexpr std::size_t kStateSize = 14;
constexpr std::size_t kRecordSize = 1 + kStateSize;

void WriteByHand(std::vector<char>& bytes, const std::vector<std::unique_ptr<RECORD>>& records) {
    bytes.resize(records.size() * kRecordSize);
    char* to = bytes.data();
    for (const std::unique_ptr<RECORD>& record : records) {
        *to = record->GetClass();
        std::memcpy(to + 1, &record->state.number, 4);
        std::memcpy(to + 5, &record->state.amount, 8);
        std::memcpy(to + 13, &record->state.kind, 2);
        to += kRecordSize;
    }
}

std::int64_t ReadByHand(const std::vector<char>& bytes) {
    std::int64_t sum = 0;
    for (std::size_t at = 0; at < bytes.size(); at += kRecordSize) {
        const char* const from = bytes.data() + at;
        const std::unique_ptr<RECORD> record = MakeRecord(*from);
        std::memcpy(&record->state.number, from + 1, 4);
        std::memcpy(&record->state.amount, from + 5, 8);
        std::memcpy(&record->state.kind, from + 13, 2);
        sum += SumOf(record->state);
    }
    return sum;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<CSHAREOBJECTPTR<CRECORD>> ours = MakeOurs();
    const std::vector<std::unique_ptr<RECORD>> peers = MakePeers();
    CBUFFERSTREAM stream;
    std::vector<char> bytes;
    WriteOurs(stream, ours);
    WriteByHand(bytes, peers);
#if defined MLCORE_HAVE_QT
    QByteArray qtBytes;
    WriteQt(qtBytes, peers);
#endif
    // Every form has its own size: what is checked are the objects that come back.
    bench::WORKLOAD("write objects", 1, nullptr, kCount)
        .Add("MLCore",
             [&](std::size_t) {
                 WriteOurs(stream, ours);
                 return std::int64_t{kCount};
             })
#if defined MLCORE_HAVE_QT
        .Add("QDataStream",
             [&](std::size_t) {
                 WriteQt(qtBytes, peers);
                 return std::int64_t{kCount};
             })
#endif
        .AddLimit("a switch and memcpy", [&](std::size_t) {
            WriteByHand(bytes, peers);
            return std::int64_t{kCount};
        });
    bench::WORKLOAD("read objects", 1, nullptr, kCount)
        .Add("MLCore", [&](std::size_t) { return ReadOurs(stream); })
#if defined MLCORE_HAVE_QT
        .Add("QDataStream", [&](std::size_t) { return ReadQt(qtBytes); })
#endif
        .AddLimit("a switch and memcpy", [&](std::size_t) { return ReadByHand(bytes); });
    return bench::Run(argc, argv);
}
