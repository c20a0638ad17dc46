#include "support/RatioReporter.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "support/Figures.h"

namespace bench {

namespace {

using RUN = benchmark::BenchmarkReporter::Run;

// The processor time per item in each repetition, in nanoseconds, ascending.
std::vector<double> TimesPerItem(const std::vector<RUN>& runs) {
    std::vector<double> times;
    for (const RUN& run : runs) {
        const auto rate = run.counters.find("items_per_second");
        if (run.run_type == RUN::RT_Iteration && rate != run.counters.end()) {
            times.push_back(1e9 / rate->second.value);
        }
    }
    std::sort(times.begin(), times.end());
    return times;
}

// Puts `value` behind those of the same workload and who.
void AddSize(std::vector<GROWTHFIGURE>& growth, const FIGURE& figure, const RUN& run) {
    if (growth.empty() || growth.back().workload != figure.workload || growth.back().who != figure.who) {
        growth.push_back({figure.workload, figure.who, run.counters.count(kLogarithmicCounter) != 0, {}, {}});
    }
    growth.back().sizes.push_back(static_cast<std::size_t>(run.counters.at(kSizeCounter).value));
    growth.back().values.push_back(figure.value);
}

}  // namespace

void RATIOREPORTER::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        mRuns[run.family_index].push_back(run);
    }
}

void RATIOREPORTER::Finalize() {
    std::vector<FIGURE> figures;
    std::vector<GROWTHFIGURE> growth;
    for (const auto& [index, runs] : mRuns) {
        const std::vector<double> times = TimesPerItem(runs);
        if (times.empty()) {
            continue;
        }
        const std::string& name = runs.front().run_name.function_name;
        const std::size_t slash = name.find('/');
        const double median = times[times.size() / 2];
        const FIGURE figure{name.substr(0, slash), name.substr(slash + 1), median,
                            100 * (times.back() - times.front()) / median};
        if (runs.front().counters.count(kSizeCounter) != 0) {
            AddSize(growth, figure, runs.front());
        } else {
            figures.push_back(figure);
        }
    }
    if (mHasTitles && !figures.empty()) {
        PrintTitles(GetOutputStream(), "ns per item");
    }
    PrintFigures(GetOutputStream(), figures);
    PrintGrowth(GetOutputStream(), growth);
}

}  // namespace bench
