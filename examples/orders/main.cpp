// Reports on a file of order lines; `orders --help` tells the options. Ends with 0, with 1 when lines were rejected or a
// file cannot be read or written, and with 2 when the command line cannot be understood.

#include <algorithm>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

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

// One line that is written over until it is gone.
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
    const auto period = lines->Filter(IsOrdered(options.from, options.to));
    const auto shipments = JoinLines(*period, options.calendar->create());
    const auto selected = ForFile(options.filter, "applied to the orders", [&] {
        return options.selects ? Select(*shipments, filter, options.sort) : shipments;
    });
    if (!options.report.empty()) {
        WriteReportFile(options.report, *selected);
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

int Run(const std::vector<std::string>& arguments) {
    const OPTIONS options = ReadOptions(arguments);
    if (options.wantsHelp) {
        std::cout << HelpText();
        return 0;
    }
    return Report(options);
}

}  // namespace

int main(int argc, char** argv) {
    int status = 0;
    try {
        status = Run(std::vector<std::string>(argv + std::min(argc, 1), argv + argc));
    } catch (const USAGEERROR& error) {
        std::cerr << "orders: " << error.what() << " (orders --help tells the options)\n";
        return kUsageStatus;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return kDataStatus;
    }
    if (!std::cout.flush()) {
        std::cerr << "orders: cannot write the report\n";
        return kDataStatus;
    }
    return status;
}
