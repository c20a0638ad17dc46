/// Measurements of one workload, done by the library and by its peers.
///
///     WORKLOAD("weekday", dates.size())
///         .Add("MLCore", [&](std::size_t i) { return dates[i].GetDayOfWeek(); })
///         .Add("std::chrono", [&](std::size_t i) { return peerDates[i]...; });
///     return Run(argc, argv);
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

namespace bench {

class WORKLOAD {
public:
    /// Called before a measurement, not measured.
    using PREPARATION = void (*)();

    /// `count` is the number of operations in one pass; each does `items` items, which the figures are told for. The name
    /// must hold no '/'.
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

private:
    template <class OPERATION>
    void Check(const std::string& who, const OPERATION& operation) {
        const bool isFirst = mResults.empty();
        for (std::size_t i = 0; i < mCount; ++i) {
            const std::int64_t result = operation(i);
            if (isFirst) {
                mResults.push_back(result);
            } else if (result != mResults[i]) {
                std::cerr << mName << ", item " << i << ": " << who << " gives " << result << ", not " << mResults[i]
                          << '\n';
                std::exit(1);
            }
        }
    }

    std::string mName;
    std::size_t mCount;
    PREPARATION mPrepare;
    std::size_t mItems;
    std::vector<std::int64_t> mResults;
};

/// Measures what has been registered and prints it with RATIOREPORTER. Takes the options of Google Benchmark. The
/// program's status.
int Run(int argc, char** argv);

}  // namespace bench
