#include <MLCore/platform/Preferences.h>

#include <charconv>

namespace MLCore::platform {

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
