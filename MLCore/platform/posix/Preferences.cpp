#include <MLCore/platform/File.h>
#include <MLCore/platform/common/AsciiNames.h>
#include <MLCore/platform/common/SystemSide.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string_view>

namespace MLCore::platform {

namespace {

std::string_view Trimmed(std::string_view text) noexcept {
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// The folder of the user's settings, empty when there is none. Relative paths are not valid there by the XDG base
/// directory rules.
std::string SettingsFolder() {
    const char* const configured = std::getenv("XDG_CONFIG_HOME");
    if (configured != nullptr && configured[0] == '/') {
        return configured;
    }
    const char* const home = std::getenv("HOME");
    return home != nullptr && home[0] == '/' ? std::string(home) + "/.config" : std::string();
}

/// The content of a settings file; empty if it is not a plain file or is too large for settings.
std::string ContentOf(const std::string& path) {
    constexpr std::int64_t kMostBytes = 1024 * 1024;
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    const FILEHANDLE file = FileOpen(path.c_str(), kFileRead);
    const std::int64_t size = file != kNoFile ? FileSize(file) : -1;
    std::string content;
    if (size > 0 && size <= kMostBytes && FileSeek(file, 0)) {
        content.resize(static_cast<std::size_t>(size));
        std::size_t done = 0;
        std::int64_t got = 0;
        do {  // a part may come first
            got = FileRead(file, content.data() + done, content.size() - done);
            done += static_cast<std::size_t>(std::max<std::int64_t>(got, 0));
        } while (got > 0);
        content.resize(got == 0 ? done : 0);
    }
    if (file != kNoFile) {
        FileClose(file);
    }
    return content.starts_with(kByteOrderMark) ? content.substr(kByteOrderMark.size()) : content;
}

}  // namespace

std::optional<std::string> SystemPreferenceText(const char* key, const char* name) {
    const std::string folder = SettingsFolder();
    if (folder.empty()) {
        return std::nullopt;
    }
    const std::string_view keyText = key;
    const std::size_t fileEnd = keyText.find('\\');
    const std::string_view section = fileEnd == std::string_view::npos ? "" : keyText.substr(fileEnd + 1);
    std::istringstream file(ContentOf(folder + '/' + std::string(keyText.substr(0, fileEnd)) + ".ini"));
    file.exceptions(std::ios_base::badbit);  // out of memory is not the end of the file
    std::string line;
    bool isInSection = section.empty();
    while (std::getline(file, line)) {
        const std::string_view text = Trimmed(line);
        if (text.empty() || text.front() == ';' || text.front() == '#') {
            continue;
        }
        if (text.front() == '[' && text.back() == ']') {
            isInSection = IsSameName(Trimmed(text.substr(1, text.size() - 2)), section);
            continue;
        }
        const std::size_t equals = text.find('=');
        if (isInSection && equals != std::string_view::npos && IsSameName(Trimmed(text.substr(0, equals)), name)) {
            return std::string(Trimmed(text.substr(equals + 1)));
        }
    }
    return std::nullopt;
}

}  // namespace MLCore::platform
