// The symbols that the shared library exports.
//
// Everything is hidden unless it is declared with MLCORE_API: the headers declare the whole binary interface.
// MLCORE_BUILDING is defined while the library itself is compiled. MLCORE_STATIC is defined for a static library, which
// imports and exports nothing; users of the library must define it too, and the build files do that for them.
#pragma once

#if __cplusplus < 202002L && (!defined(_MSVC_LANG) || _MSVC_LANG < 202002L)
#error "MLCore needs C++20: compile with -std=c++20 (Visual Studio: /std:c++20)"
#endif

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

// For class templates: on systems that merge equal symbols at load time, all modules share one instance per process.
#if defined(MLCORE_STATIC) || defined(_WIN32)
#define MLCORE_TEMPLATE_API
#else
#define MLCORE_TEMPLATE_API __attribute__((visibility("default")))
#endif

// An instance of a class template that the library exports: declared in a header, defined in one source. Compilers
// differ in which of the two exports it.
#if defined(_MSC_VER) && defined(MLCORE_BUILDING)
#define MLCORE_DECLARE_INSTANCE(...)
#define MLCORE_DEFINE_INSTANCE(...) template class MLCORE_API __VA_ARGS__;
#else
#define MLCORE_DECLARE_INSTANCE(...) extern template class MLCORE_API __VA_ARGS__;
#define MLCORE_DEFINE_INSTANCE(...) template class __VA_ARGS__;
#endif
