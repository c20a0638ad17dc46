#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace bench {

/// Prints for each workload the time per item of everybody who does it, and for each peer of the first one how the
/// first one's time compares.
class RATIOREPORTER : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

private:
    struct FIGURE {
        double median;
        double least;
        double most;
    };

    void PrintTitle(const std::string& workload);
    void PrintRow(const std::string& who, const FIGURE& figure);

    std::string mWorkload;
    double mOurs = 0;
};

}  // namespace bench
