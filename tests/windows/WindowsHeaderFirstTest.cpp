#include <windows.h>
// Before the library's headers.
#include <MLCore/MLCore.h>
#include <windows/WindowsClient.h>

TEST(WindowsHeaderTest, First) { UseLibraryAndSystem(); }
