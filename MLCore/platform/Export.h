// Which symbols leave the shared library.
//
// Everything is hidden unless it is declared with MLCORE_API, so that the binary interface is what the headers say and nothing else.
// MLCORE_BUILDING is defined while the library itself is compiled, MLCORE_STATIC when it is a static library (then
// nothing is imported or exported, and the users of the library define it too: the build files do that for them).
#pragma once

#if defined(MLCORE_STATIC)
#define MLCORE_API
#elif defined(_WIN32)
#if defined(MLCORE_BUILDING)
#define MLCORE_API __declspec(dllexport)
#else
#define MLCORE_API __declspec(dllimport)
#endif
#else
#define MLCORE_API __attribute__((visibility("default")))
#endif
