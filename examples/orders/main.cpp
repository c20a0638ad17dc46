// Reports on a file of order lines; `orders --help` tells the options. Ends with 0, with 1 when the data or a file cannot
// be read or written, and with 2 when the command line cannot be understood.

#include <algorithm>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "Csv.h"
#include "Options.h"
#include "OrderFile.h"
#include "Report.h"

namespace {

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

std::vector<ORDER> ReadPeriod(const OPTIONS& options) {
    PROGRESSLINE line(options);
    std::vector<ORDER> read = ReadOrders(options.file, [&line](int percent) { line.Show(percent); });
    std::erase_if(
        read, [&options](const ORDER& order) { return order.ordered < options.from || order.ordered > options.to; });
    return read;
}

int Report(const OPTIONS& options) {
    try {
        WriteReport(std::cout, ReadPeriod(options), options);
    } catch (const DATAERROR& error) {
        std::cerr << options.file << ':' << error.GetLine() << ": " << error.what() << '\n';
        return kDataStatus;
    } catch (const std::exception& error) {
        std::cerr << options.file << ": " << error.what() << '\n';
        return kDataStatus;
    }
    return 0;
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
    }
    if (!std::cout.flush()) {
        std::cerr << "orders: cannot write the report\n";
        return kDataStatus;
    }
    return status;
}
