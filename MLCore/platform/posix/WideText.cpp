#include <MLCore/platform/WideText.h>

#include <MLCore/platform/WinTypes.h>

namespace MLCore::platform {

std::wstring WideText(const char* ansi) { return static_cast<const wchar_t*>(_bstr_t(ansi == nullptr ? "" : ansi)); }

std::string AnsiText(const wchar_t* wide) { return static_cast<const char*>(_bstr_t(wide == nullptr ? L"" : wide)); }

}  // namespace MLCore::platform
