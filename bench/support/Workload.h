/// Measurements of one workload, done by the library and by its peers.
///
///     WORKLOAD("weekday", dates.size())
///         .Add("MLCore", [&](std::size_t i) { return dates[i].GetDayOfWeek(); })
///         .Add("std::chrono", [&](std::size_t i) { return peerDates[i]...; })
///         .AddLimit("a shift and a mask", [&](std::size_t i) { return ...; });
///     return Run(argc, argv);
#pragma once

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "support/Figures.h"
#include "support/RatioReporter.h"

namespace bench {

/// Keeps the first result for item i, which must be given in order; another one for the same item ends the program.
void CheckResult(const std::string& workload, const std::string& who, std::size_t i, std::int64_t result,
                 std::vector<std::int64_t>& results);

class WORKLOAD {
public:
    /// Called before a measurement, not measured.
    using PREPARATION = void (*)();

    /// `count` is the number of operations in one pass; each does `items` items, and the figures are per item. The name
    /// must not contain '/'.
    WORKLOAD(std::string name, std::size_t count, PREPARATION prepare = nullptr, std::size_t items = 1)
        : mName(std::move(name)), mCount(count), mPrepare(prepare), mItems(items) {}

    /// Registers the way in which `who` does the work: operation(i) gives the result for item i, as an integer. The
    /// first one added is the library's own. Results that differ from the first one's end the program.
    template <class OPERATION>
    WORKLOAD& Add(const std::string& who, OPERATION operation) {
        Check(who, operation);
        const auto pass = [operation, count = mCount, prepare = mPrepare, items = mItems](benchmark::State& state) {
            if (prepare != nullptr) {
                prepare();
            }
            for ([[maybe_unused]] auto iteration : state) {
                std::int64_t sum = 0;
                for (std::size_t i = 0; i < count; ++i) {
                    sum += operation(i);
                }
                benchmark::DoNotOptimize(sum);
            }
            state.SetItemsProcessed(static_cast<std::int64_t>(count * items) * state.iterations());
        };
        benchmark::RegisterBenchmark((mName + '/' + who).c_str(), pass);
        return *this;
    }
    /// The same for work done by hand, which no library of this kind can be expected to beat.
    template <class OPERATION>
    WORKLOAD& AddLimit(const std::string& what, OPERATION operation) {
        return Add(kLimit + what, operation);
    }

private:
    template <class OPERATION>
    void Check(const std::string& who, const OPERATION& operation) {
        for (std::size_t i = 0; i < mCount; ++i) {
            CheckResult(mName, who, i, operation(i), mResults);
        }
    }

    std::string mName;
    std::size_t mCount;
    PREPARATION mPrepare;
    std::size_t mItems;
    std::vector<std::int64_t> mResults;
};

/// One workload with collections of several sizes. Each pass handles kItems items, in as many collections as it takes,
/// so that no size has its data nearer to the processor than another.
class GROWTH {
public:
    static constexpr std::size_t kItems = 1000000;
    static constexpr std::array<std::size_t, 3> kSizes = {10000, 100000, kItems};
    enum class LAW { LINEAR, LOGARITHMIC };

    GROWTH(std::string name, LAW law) : mName(std::move(name)), mLaw(law) {}

    /// pass(size) handles all items, in collections of `size`. Its result is checked as those of WORKLOAD are.
    template <class PASS>
    GROWTH& Add(const std::string& who, PASS pass) {
        for (std::size_t i = 0; i < kSizes.size(); ++i) {
            const std::size_t size = kSizes[i];
            CheckResult(mName, who, i, pass(size), mResults);
            const auto run = [pass, size, law = mLaw](benchmark::State& state) {
                for ([[maybe_unused]] auto iteration : state) {
                    benchmark::DoNotOptimize(pass(size));
                }
                state.SetItemsProcessed(static_cast<std::int64_t>(kItems) * state.iterations());
                state.counters[kSizeCounter] = static_cast<double>(size);
                if (law == LAW::LOGARITHMIC) {
                    state.counters[kLogarithmicCounter] = 1;
                }
            };
            benchmark::RegisterBenchmark((mName + '/' + who).c_str(), run);
        }
        return *this;
    }

private:
    std::string mName;
    LAW mLaw;
    std::vector<std::int64_t> mResults;
};

/// Measures what has been registered and prints it with RATIOREPORTER. Takes the options of Google Benchmark, and
/// --no_titles for a table that another program began. The program's status.
int Run(int argc, char** argv);

}  // namespace bench
