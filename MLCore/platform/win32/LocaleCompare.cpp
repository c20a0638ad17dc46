#include <MLCore/platform/LocaleCompare.h>

#include <MLCore/platform/WinTypes.h>

namespace MLCore::platform {

bool SystemCompareNoCase(const char* left, const char* right, short& order) noexcept {
    const int result = lstrcmpiA(left, right);
    order = static_cast<short>((result > 0) - (result < 0));
    return true;
}

}  // namespace MLCore::platform
