#include "support/Workload.h"

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "support/RatioReporter.h"

namespace bench {

void CheckResult(const std::string& workload, const std::string& who, std::size_t i, std::int64_t result,
                 std::vector<std::int64_t>& results) {
    if (i == results.size()) {
        results.push_back(result);
    } else if (result != results[i]) {
        std::cerr << workload << ", item " << i << ": " << who << " gives " << result << ", not " << results[i] << '\n';
        std::exit(1);
    }
}

int Run(int argc, char** argv) {
    // Given first, so that the command line has the last word.
    std::vector<std::string> arguments = {argv[0], "--benchmark_repetitions=5", "--benchmark_min_time=0.1",
                                          "--benchmark_enable_random_interleaving=true"};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    const bool hasTitles = std::erase(arguments, "--no_titles") == 0;
    std::vector<char*> pointers;
    for (std::string& argument : arguments) {
        pointers.push_back(argument.data());
    }
    auto count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(count, pointers.data())) {
        return 2;
    }
    RATIOREPORTER reporter(hasTitles);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}

}  // namespace bench
