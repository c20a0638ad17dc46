// A million lines of six fields in a file, some of them quoted, beside C's own output and the readers of other
// libraries. Whoever reads puts each field into a text of its own. The hand-written loop cuts at every separator and
// knows no quotes: it is the limit, and is given lines without any.

#include <MLCore/streams/CCSVENCODER.h>
#include <MLCore/streams/CFILESTREAM.h>
#include <MLCore/streams/COSTREAMDECORATORFIELD.h>
#include <MLCore/streams/CSTREAMWRITER.h>

#include <cstdio>
#include <cstring>
#include <string>

#if defined MLCORE_HAVE_FCCP
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpragmas"  // clang has no such warning as the next
#pragma GCC diagnostic ignored "-Wunknown-warning-option"
#pragma GCC diagnostic ignored "-Wstringop-truncation"
#include <libfccp/csv.h>
#pragma GCC diagnostic pop
#endif
#if defined MLCORE_HAVE_LIBCSV
#include <csv.h>
#endif

#include "support/FieldLengths.h"
#include "support/ScratchFile.h"
#include "support/Workload.h"

namespace {

using namespace MLCore;
using bench::SCRATCHFILE;

constexpr std::size_t kLines = 1000000;
constexpr int kFields = 6;

struct TEXTS {
    const char* client;
    const char* city;
    const char* remark;
};
constexpr TEXTS kPlain = {"Dupont et fils", "Clermont-Ferrand", "nothing to remark"};
constexpr TEXTS kQuoted = {"Dupont; fils", "Clermont-Ferrand", "the \"old\" town"};

const TEXTS& TextsOf(std::size_t line, bool isQuoted) { return isQuoted && line % 4 == 0 ? kQuoted : kPlain; }

std::int64_t WriteOurs(const SCRATCHFILE& file, bool isQuoted) {
    CFILESTREAM stream(file.GetPath(), CSTREAM::ReadWrite | CSTREAM::Create | CSTREAM::Truncate);
    stream.Open();
    CCSVENCODER encoder;
    COSTREAMDECORATORFIELD fields(stream, ';', encoder);
    CSTREAMWRITER writer(fields);
    for (std::size_t i = 0; i < kLines; ++i) {
        const TEXTS& texts = TextsOf(i, isQuoted);
        writer << static_cast<long>(i) << texts.client << texts.city << static_cast<long>(i % 1000) << short{7}
               << texts.remark << endl;
    }
    stream.Close();
    return file.GetSize();
}

// As C programs write such files: with quotes where they know that they are needed.
std::int64_t WritePeer(const SCRATCHFILE& file, bool isQuoted) {
    std::FILE* const out = std::fopen(file.GetPath(), "wb");
    for (std::size_t i = 0; i < kLines; ++i) {
        const bool hasQuotes = isQuoted && i % 4 == 0;
        std::fprintf(out, hasQuotes ? "%d;\"%s\";%s;%d;%d;\"%s\"\r\n" : "%d;%s;%s;%d;%d;%s\r\n", static_cast<int>(i),
                     hasQuotes ? "Dupont; fils" : kPlain.client, kPlain.city, static_cast<int>(i % 1000), 7,
                     hasQuotes ? "the \"\"old\"\" town" : kPlain.remark);
    }
    std::fclose(out);
    return file.GetSize();
}

// What is read: the sum of all lengths.
std::int64_t ReadOurs(const SCRATCHFILE& file) { return bench::ReadFieldLengths(file.GetPath(), kFields); }

std::int64_t ReadByHand(const SCRATCHFILE& file) {
    std::FILE* const in = std::fopen(file.GetPath(), "rb");
    std::int64_t sum = 0;
    char line[bench::kLongestField];
    std::string field;
    while (std::fgets(line, sizeof line, in) != nullptr) {
        const char* from = line;
        for (int i = 0; i < kFields; ++i) {
            const char* const to = std::strchr(from, i + 1 < kFields ? ';' : '\r');
            field.assign(from, to);
            sum += static_cast<std::int64_t>(field.size());
            from = to + 1;
        }
    }
    std::fclose(in);
    return sum;
}

#if defined MLCORE_HAVE_FCCP
std::int64_t ReadFccp(const SCRATCHFILE& file) {
    io::CSVReader<kFields, io::trim_chars<>, io::double_quote_escape<';', '"'>> in(file.GetPath());
    std::int64_t sum = 0;
    std::string fields[kFields];
    while (in.read_row(fields[0], fields[1], fields[2], fields[3], fields[4], fields[5])) {
        for (const std::string& field : fields) {
            sum += static_cast<std::int64_t>(field.size());
        }
    }
    return sum;
}
#endif

#if defined MLCORE_HAVE_LIBCSV
struct LIBCSVSUM {
    std::string field;
    std::int64_t sum = 0;
};

std::int64_t ReadLibcsv(const SCRATCHFILE& file) {
    csv_parser parser;
    csv_init(&parser, 0);
    csv_set_delim(&parser, ';');
    const auto takeField = [](void* text, std::size_t length, void* data) {
        LIBCSVSUM& into = *static_cast<LIBCSVSUM*>(data);
        into.field.assign(static_cast<const char*>(text), length);
        into.sum += static_cast<std::int64_t>(into.field.size());
    };
    LIBCSVSUM result;
    std::FILE* const in = std::fopen(file.GetPath(), "rb");
    static char buffer[CFILESTREAM::kBufferSize];
    for (std::size_t count = 0; (count = std::fread(buffer, 1, sizeof buffer, in)) != 0;) {
        csv_parse(&parser, buffer, count, takeField, nullptr, &result);
    }
    csv_fini(&parser, takeField, nullptr, &result);
    csv_free(&parser);
    std::fclose(in);
    return result.sum;
}
#endif

}  // namespace

int main(int argc, char** argv) {
    const SCRATCHFILE plain("MLCore.bench.plain.csv");
    const SCRATCHFILE quoted("MLCore.bench.quoted.csv");
    const SCRATCHFILE peers("MLCore.bench.peers.csv");
    for (const bool isQuoted : {true, false}) {
        const SCRATCHFILE& ours = isQuoted ? quoted : plain;
        bench::WORKLOAD(isQuoted ? "write lines, some quoted" : "write lines", 1, nullptr, kLines)
            .Add("MLCore", [&ours, isQuoted](std::size_t) { return WriteOurs(ours, isQuoted); })
            .Add("fprintf", [&peers, isQuoted](std::size_t) { return WritePeer(peers, isQuoted); });
    }
    for (const SCRATCHFILE* const file : {&quoted, &plain}) {
        bench::WORKLOAD workload(file == &quoted ? "read lines, some quoted" : "read lines", 1, nullptr, kLines);
        workload.Add("MLCore", [file](std::size_t) { return ReadOurs(*file); });
#if defined MLCORE_HAVE_FCCP
        workload.Add("fast-cpp-csv-parser", [file](std::size_t) { return ReadFccp(*file); });
#endif
#if defined MLCORE_HAVE_LIBCSV
        workload.Add("libcsv", [file](std::size_t) { return ReadLibcsv(*file); });
#endif
        if (file == &plain) {
            workload.AddLimit("fgets, strchr", [file](std::size_t) { return ReadByHand(*file); });
        }
    }
    return bench::Run(argc, argv);
}
