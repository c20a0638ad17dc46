#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <map>
#include <vector>

namespace bench {

/// Collects the repetitions of everybody, which arrive in a random order, and prints at the end what each item took, in
/// the order in which it was registered.
class RATIOREPORTER : public benchmark::BenchmarkReporter {
public:
    /// \param hasTitles  false when other programs print rows of the same table, and one of them the titles.
    explicit RATIOREPORTER(bool hasTitles) : mHasTitles(hasTitles) {}

    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    bool mHasTitles;
    std::map<std::int64_t, std::vector<Run>> mRuns;
};

/// Counters that tell the size of a run that is one of several sizes, and that its law is n log n.
inline constexpr char kSizeCounter[] = "size";
inline constexpr char kLogarithmicCounter[] = "n log n";

}  // namespace bench
