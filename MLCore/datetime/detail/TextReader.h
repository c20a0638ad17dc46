/// How the parsers of dates and times take their texts.
#pragma once

#include <string_view>

namespace MLCore {

/// Reads `value` from `text` by `Reader`, which returns whether it could and otherwise leaves the value unchanged.
/// Returns 1, or 0, also where `text` is null.
template <auto Reader, class Value>
int ReadText(const char* text, Value& value) noexcept {
    if (text == nullptr) {
        return 0;
    }
    return Reader(std::string_view(text), value) ? 1 : 0;
}

}  // namespace MLCore
