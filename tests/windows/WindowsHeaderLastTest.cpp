#include <MLCore/MLCore.h>
// After the library's headers.
#include <windows.h>
#include <windows/WindowsClient.h>

TEST(WindowsHeaderTest, Last) { UseLibraryAndSystem(); }
