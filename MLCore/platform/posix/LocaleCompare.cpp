#include <MLCore/platform/LocaleCompare.h>

namespace MLCore::platform {

bool SystemCompareNoCase(const char*, const char*, short&) noexcept { return false; }

}  // namespace MLCore::platform
