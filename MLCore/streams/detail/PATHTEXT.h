#pragma once

#include <MLCore/core/FAILUREPART.h>

#include <string_view>

namespace MLCore {

/// A path for the text of a failure, in two parts. A quoted text is cut at its end, where a path has the file's name:
/// here a long path loses its front instead.
struct PATHTEXT {
    explicit constexpr PATHTEXT(std::string_view path) noexcept
        : lead(path.size() > kMostShown ? "..." : ""),
          end(Quoted(path.substr(path.size() > kMostShown ? path.size() - kMostShown : 0))) {}

    static constexpr std::size_t kMostShown = 60;

    const char* lead;
    QUOTED end;
};

}  // namespace MLCore
