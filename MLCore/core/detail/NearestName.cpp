#include <MLCore/core/detail/NearestName.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace MLCore {

namespace {

/// Longer names are not compared.
constexpr std::size_t kMaxLength = 64;

char Lower(char letter) noexcept {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// How many single changes lead from one text to the other: a letter put in, taken out, replaced, or swapped with the
/// next one (the optimal string alignment distance; three rows of its matrix are kept).
std::size_t Distance(std::string_view left, std::string_view right) noexcept {
    using ROW = std::array<std::size_t, kMaxLength + 1>;
    ROW beforeLast{};
    ROW last{};
    ROW row{};
    const auto alike = [&](std::size_t i, std::size_t j) { return Lower(left[i]) == Lower(right[j]); };
    for (std::size_t j = 0; j <= right.size(); ++j) {
        row[j] = j;
    }
    for (std::size_t i = 1; i <= left.size(); ++i) {
        beforeLast = last;
        last = row;
        row[0] = i;
        for (std::size_t j = 1; j <= right.size(); ++j) {
            const std::size_t replaced = last[j - 1] + (alike(i - 1, j - 1) ? 0 : 1);
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
            if (i > 1 && j > 1 && alike(i - 1, j - 2) && alike(i - 2, j - 1)) {
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
            }
        }
    }
    return row[right.size()];
}

}  // namespace

const std::string* NearestName(const std::vector<std::string>& names, std::string_view misspelt) noexcept {
    const std::string* nearest = nullptr;
    std::size_t least = std::max<std::size_t>(misspelt.size() / 3, 1) + 1;
    if (misspelt.empty() || misspelt.size() > kMaxLength) {
        return nullptr;
    }
    for (const std::string& name : names) {
        const std::size_t distance = name.size() > kMaxLength ? least : Distance(name, misspelt);
        const bool isAlike = distance < std::max(name.size(), misspelt.size());  // in one letter at least
        if (isAlike && distance < least) {
            least = distance;
            nearest = &name;
        }
    }
    return nearest;
}

}  // namespace MLCore
