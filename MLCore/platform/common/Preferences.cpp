#include <MLCore/platform/Preferences.h>

#include <MLCore/platform/common/SystemSide.h>

#include <charconv>
#include <string_view>

namespace MLCore::platform {

namespace {

/// The same texts on every system; where a key names a file, also none outside the folder.
bool IsUsable(const char* text) noexcept {
    const std::string_view view = text == nullptr ? "" : text;
    return !view.empty() && view.front() != '.' && view.front() != '\\' &&
           view.find_first_of("/\r\n") == std::string_view::npos;
}

}  // namespace

std::optional<std::string> ReadPreferenceText(const char* key, const char* name) {
    return IsUsable(key) && IsUsable(name) ? SystemPreferenceText(key, name) : std::nullopt;
}

std::optional<std::int32_t> ReadPreferenceNumber(const char* key, const char* name) {
    const std::optional<std::string> text = ReadPreferenceText(key, name);
    if (!text) {
        return std::nullopt;
    }
    const bool hasPlus = text->size() > 1 && (*text)[0] == '+' && (*text)[1] != '-';
    const char* const end = text->data() + text->size();
    std::int32_t number = 0;
    const auto [stop, error] = std::from_chars(text->data() + (hasPlus ? 1 : 0), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

}  // namespace MLCore::platform
