#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace MLCore {

/// The one of `names` that `misspelt` was most likely meant to be, or null. At most one letter in three is missing,
/// additional, wrong or swapped with its neighbour (one letter in a shorter text), and at least one letter is right;
/// the case of A to Z does not count. Of several nearest names, the first.
[[nodiscard]] const std::string* NearestName(const std::vector<std::string>& names, std::string_view misspelt) noexcept;

}  // namespace MLCore
