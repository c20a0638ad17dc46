#include "support/Workload.h"

#include <string>
#include <vector>

#include "support/RatioReporter.h"

namespace bench {

int Run(int argc, char** argv) {
    // Given first, so that the command line has the last word.
    std::vector<std::string> arguments = {argv[0], "--benchmark_repetitions=5", "--benchmark_min_time=0.1"};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    std::vector<char*> pointers;
    for (std::string& argument : arguments) {
        pointers.push_back(argument.data());
    }
    auto count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(count, pointers.data())) {
        return 2;
    }
    RATIOREPORTER reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}

}  // namespace bench
