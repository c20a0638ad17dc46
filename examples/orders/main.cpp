// Reports on a file of order lines; `orders --help` lists the options. Ends with 0, with 1 when lines were rejected or
// a file cannot be read or written, and with 2 when the command line cannot be understood.

#include <algorithm>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "Journal.h"
#include "Options.h"
#include "Order.h"
#include "OrderFile.h"
#include "RecordFile.h"
#include "Report.h"
#include "Selection.h"

namespace {

using namespace MLCore;
using namespace orders;

constexpr int kDataStatus = 1;
constexpr int kUsageStatus = 2;

// One line that is overwritten, and erased at the end.
class PROGRESSLINE {
public:
    explicit PROGRESSLINE(const OPTIONS& options) : mIsShown(options.showsProgress), mName(options.file) {}
    PROGRESSLINE(const PROGRESSLINE&) = delete;
    PROGRESSLINE& operator=(const PROGRESSLINE&) = delete;
    ~PROGRESSLINE() {
        if (mPercent >= 0) {
            std::cerr << '\r' << std::string(Text().size(), ' ') << '\r' << std::flush;
        }
    }

    void Show(int percent) {
        if (mIsShown && percent != mPercent) {
            mPercent = percent;
            std::cerr << '\r' << Text() << std::flush;
        }
    }

private:
    [[nodiscard]] std::string Text() const { return "reading " + mName + ": " + std::to_string(mPercent) + " %"; }

    bool mIsShown;
    std::string mName;
    int mPercent = -1;
};

CSHAREOBJECTPTR<CARRAY> ReadLines(const OPTIONS& options, REJECTS& rejects) {
    PROGRESSLINE line(options);
    return ReadOrders(options.file, rejects, [&line](int percent) { line.Show(percent); });
}

int Report(const OPTIONS& options) {
    const auto filter = MakeFilter(options);
    if (!options.save.empty()) {
        SaveFilter(options.save, *filter);
    }
    REJECTS rejects(options.rejects);
    const auto lines = ReadLines(options, rejects);
    rejects.Write(std::cerr);
    LogEvent(LogEventType::INFO, options.file + ": " + std::to_string(lines->GetCount()) + " lines read");
    const auto period = lines->Filter(IsOrdered(options.from, options.to));
    const auto shipments = JoinLines(*period, options.calendar->create());
    const auto selected = ForFile(options.filter, "applied to the orders", [&] {
        return options.selects ? Select(*shipments, filter, options.sort) : shipments;
    });
    if (!options.report.empty()) {
        WriteReportFile(options.report, *selected);
        LogEvent(LogEventType::INFO, options.report + ": " + std::to_string(selected->GetCount()) + " orders written");
    }
    options.selects ? WriteSelection(std::cout, *shipments, *selected, *filter, options)
                    : WriteReport(std::cout, *shipments, options);
    if (rejects.GetCount() == 0) {
        return 0;
    }
    std::cerr << options.file << ": " << rejects.GetCount() << " of " << rejects.GetCount() + lines->GetCount()
              << " lines rejected" << (options.rejects.empty() ? " (--rejects FILE keeps them)\n" : "\n");
    return kDataStatus;
}

int Run(const OPTIONS& options) {
    StartJournal(options.log);
    const int status = Report(options);
    if (!std::cout.flush()) {
        throw std::runtime_error("orders: cannot write the report");
    }
    return status;
}

// Ends with the counts and the files, also after a failure.
int RunAndClose(const OPTIONS& options) {
    int status = kDataStatus;
    try {
        status = Run(options);
    } catch (const std::exception& error) {
        LogEvent(LogEventType::ERREUR, error.what());
        std::cerr << error.what() << '\n';
    }
    WriteClosing(std::cerr);
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const OPTIONS options = ReadOptions(std::vector<std::string>(argv + std::min(argc, 1), argv + argc));
        if (options.answer == nullptr) {
            return RunAndClose(options);
        }
        return std::cout << options.answer() << std::flush ? 0 : kDataStatus;
    } catch (const USAGEERROR& error) {
        std::cerr << "orders: " << error.what() << " (--help lists the options)\n";
    }
    return kUsageStatus;
}
