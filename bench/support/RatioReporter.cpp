#include "support/RatioReporter.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <ostream>

namespace bench {

namespace {

// In a row of the table: printf knows widths.
template <class... VALUES>
void Print(std::ostream& out, const char* format, VALUES... values) {
    char line[160];
    std::snprintf(line, sizeof line, format, values...);
    out << line;
}

// The processor time per item in each repetition, in nanoseconds, ascending.
std::vector<double> TimesPerItem(const std::vector<benchmark::BenchmarkReporter::Run>& runs) {
    std::vector<double> times;
    for (const auto& run : runs) {
        const auto rate = run.counters.find("items_per_second");
        if (run.run_type == benchmark::BenchmarkReporter::Run::RT_Iteration && rate != run.counters.end()) {
            times.push_back(1e9 / rate->second.value);
        }
    }
    std::sort(times.begin(), times.end());
    return times;
}

}  // namespace

bool RATIOREPORTER::ReportContext(const Context& context) {
    std::ostream& out = GetOutputStream();
    Print(out, "\n%s: %d processors of %.0f MHz", context.executable_name, context.cpu_info.num_cpus,
          context.cpu_info.cycles_per_second / 1e6);
    if (!context.cpu_info.load_avg.empty()) {
        Print(out, ", load %.1f", context.cpu_info.load_avg.front());
    }
    out << '\n';
    return true;
}

void RATIOREPORTER::ReportRuns(const std::vector<Run>& runs) {
    const std::vector<double> times = TimesPerItem(runs);
    if (times.empty()) {
        return;
    }
    const std::string name = runs.front().run_name.function_name;
    const std::size_t slash = name.find('/');
    if (name.substr(0, slash) != mWorkload) {
        mWorkload = name.substr(0, slash);
        mOurs = 0;
        PrintTitle(mWorkload);
    }
    PrintRow(name.substr(slash + 1), {times[times.size() / 2], times.front(), times.back()});
}

void RATIOREPORTER::PrintTitle(const std::string& workload) {
    Print(GetOutputStream(), "\n%-40s %12s %23s %12s\n", workload.c_str(), "ns per item", "least - most",
          "ours/theirs");
}

void RATIOREPORTER::PrintRow(const std::string& who, const FIGURE& figure) {
    std::ostream& out = GetOutputStream();
    Print(out, "  %-38s %12.2f %10.2f - %10.2f", who.c_str(), figure.median, figure.least, figure.most);
    if (mOurs > 0) {
        Print(out, " %12.3g", mOurs / figure.median);
    } else {
        mOurs = figure.median;
    }
    out << std::endl;
}

}  // namespace bench
