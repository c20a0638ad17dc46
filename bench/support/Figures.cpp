#include "support/Figures.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace bench {

namespace {

constexpr int kWorkloadWidth = 44;
constexpr int kWhoWidth = 34;
// More than this above the law of growth is told.
constexpr double kTolerance = 1.15;

// printf knows widths.
template <class... VALUES>
std::string Format(const char* format, VALUES... values) {
    char text[160];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}

std::string Names(const std::string& workload, const std::string& who) {
    return Format("%-*s %-*s", kWorkloadWidth, workload.c_str(), kWhoWidth, who.c_str());
}

bool IsLimit(const FIGURE& figure) { return figure.who.rfind("limit", 0) == 0; }

std::string Ratio(double value, double other) { return Format(" %12.3g", value / other); }

const std::string kNoRatio(13, ' ');

using POSITION = std::vector<FIGURE>::const_iterator;

void PrintWorkload(std::ostream& out, POSITION begin, POSITION end) {
    const POSITION limit = std::find_if(begin, end, IsLimit);
    for (POSITION row = begin; row != end; ++row) {
        out << Names(row == begin ? row->workload : "", row->who) << Format(" %10.2f", row->value)
            << (row->spread < 0 ? "        " : Format(" %5.0f %%", row->spread))
            << (row == begin || row == limit ? kNoRatio : Ratio(begin->value, row->value))
            << (limit == end || row == limit ? "" : Ratio(row->value, limit->value)) << '\n';
    }
}

double Law(const GROWTHFIGURE& figure, std::size_t i) {
    return figure.isLogarithmic
               ? std::log(static_cast<double>(figure.sizes[i])) / std::log(static_cast<double>(figure.sizes.front()))
               : 1.0;
}

}  // namespace

void PrintTitles(std::ostream& out, const char* unit) {
    out << Names("Workload", "Who") << Format(" %10s  spread  ours/theirs  times limit\n", unit);
}

void PrintFigures(std::ostream& out, const std::vector<FIGURE>& figures) {
    for (POSITION begin = figures.begin(); begin != figures.end();) {
        const POSITION end = std::find_if(
            begin, figures.end(), [&begin](const FIGURE& figure) { return figure.workload != begin->workload; });
        PrintWorkload(out, begin, end);
        begin = end;
    }
    out.flush();
}

void PrintGrowth(std::ostream& out, const std::vector<GROWTHFIGURE>& figures) {
    if (figures.empty()) {
        return;
    }
    out << '\n' << Names("Growth: ns per item, in collections of", "");
    for (const std::size_t size : figures.front().sizes) {
        out << Format(" %10zu", size);
    }
    out << "  times what the first and the law tell\n";
    for (const GROWTHFIGURE& figure : figures) {
        out << Names(figure.workload, figure.who);
        for (const double value : figure.values) {
            out << Format(" %10.2f", value);
        }
        bool isWithin = true;
        out << ' ';
        for (std::size_t i = 1; i < figure.values.size(); ++i) {
            const double excess = figure.values[i] / figure.values.front() / Law(figure, i);
            isWithin = isWithin && excess <= kTolerance;
            out << Format(" %5.2f", excess);
        }
        out << (isWithin ? "  " : "  more than ") << (figure.isLogarithmic ? "n log n\n" : "linear\n");
    }
    out.flush();
}

}  // namespace bench
