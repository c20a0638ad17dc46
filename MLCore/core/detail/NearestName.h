#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace MLCore {

/// The one of `names` that `misspelt` was most likely meant to be, or null: at most one letter in three is missing, too many,
/// wrong or swapped with its neighbour, where the case of A to Z does not count. Of several, the first.
[[nodiscard]] const std::string* NearestName(const std::vector<std::string>& names, std::string_view misspelt) noexcept;

}  // namespace MLCore
