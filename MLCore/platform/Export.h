#pragma once

/// \file
/// What a declaration says to be visible outside the library. Everything else stays hidden.
///
/// - `MLCORE_API` goes before every function, class and variable that a client may use.
/// - `MLCORE_TEMPLATE_API` goes before class templates whose instances must have one identity in all modules of a
///   process (one type information, one static member). Windows shares no template instances between modules, so there
///   the macro is empty.
///
/// The build of the library defines `MLCORE_BUILDING`; a static library and its clients define `MLCORE_STATIC`.

#if defined(_WIN32)
#if defined(MLCORE_STATIC)
#define MLCORE_API
#elif defined(MLCORE_BUILDING)
#define MLCORE_API __declspec(dllexport)
#else
#define MLCORE_API __declspec(dllimport)
#endif
#define MLCORE_TEMPLATE_API
#else
#define MLCORE_API __attribute__((visibility("default")))
#define MLCORE_TEMPLATE_API __attribute__((visibility("default")))
#endif
