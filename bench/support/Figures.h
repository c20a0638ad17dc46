#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

namespace bench {

/// What one row of a table tells: a figure per item, and how much its repetitions differ.
struct FIGURE {
    std::string workload;
    std::string who;
    double value;
    /// From the least to the most, in per cent of the value; not printed when negative.
    double spread = -1;
};

/// How the figures of one workload at different sizes lie together.
struct GROWTHFIGURE {
    std::string workload;
    std::string who;
    /// What the time of n items grows with: n log n, or n.
    bool isLogarithmic = false;
    std::vector<std::size_t> sizes;
    std::vector<double> values;
};

/// Begins the name of a row that is no peer, but what the work takes at least.
inline constexpr char kLimit[] = "limit: ";

/// The titles of the columns that PrintFigures() fills.
void PrintTitles(std::ostream& out, const char* unit);
/// A row for each figure. Those of a workload follow each other, ours first: the others are told how ours compares, and
/// all how they compare with the limit.
void PrintFigures(std::ostream& out, const std::vector<FIGURE>& figures);
/// A table of its own: the figures at each size, and each by what the first one and the law of growth tell.
void PrintGrowth(std::ostream& out, const std::vector<GROWTHFIGURE>& figures);

}  // namespace bench
