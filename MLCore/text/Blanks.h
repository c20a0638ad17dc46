/// \file
/// The characters between words and around values.
#pragma once

#include <string_view>

namespace MLCore {

/// Space, tab, LF, VT, FF and CR.
inline constexpr std::string_view kBlanks = " \t\n\v\f\r";

}  // namespace MLCore
