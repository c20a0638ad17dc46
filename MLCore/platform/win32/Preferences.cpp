#include <MLCore/platform/common/SystemSide.h>

#include <MLCore/platform/WinTypes.h>

#include <cstdint>
#include <cstring>

namespace MLCore::platform {

std::optional<std::string> SystemPreferenceText(const char* key, const char* name) {
    const std::string path = std::string("Software\\") + key;
    constexpr DWORD kTypes = RRF_RT_REG_DWORD | RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND;
    std::string bytes(256, '\0');
    DWORD type = 0;
    LSTATUS status = ERROR_MORE_DATA;
    while (status == ERROR_MORE_DATA) {  // the value may grow between two calls
        DWORD size = static_cast<DWORD>(bytes.size());
        status = RegGetValueA(HKEY_CURRENT_USER, path.c_str(), name, kTypes, &type, bytes.data(), &size);
        if (status == ERROR_MORE_DATA) {
            bytes.resize(std::string::size_type{size} + 1);
        }
    }
    if (status != ERROR_SUCCESS) {
        return std::nullopt;
    }
    if (type == REG_DWORD) {
        std::int32_t number = 0;
        std::memcpy(&number, bytes.data(), sizeof(number));
        return std::to_string(number);
    }
    return std::string(bytes.c_str());
}

}  // namespace MLCore::platform
