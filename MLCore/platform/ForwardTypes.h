#pragma once

/// \file
/// Names of Windows types that public interfaces mention, declared and not defined, exactly as the Windows headers
/// declare them. A client may include `<windows.h>` and `<comdef.h>` before or after this header, or never.
///
/// A source file that needs the complete types includes MLCore/platform/WinTypes.h.

struct _SYSTEMTIME;
typedef struct _SYSTEMTIME SYSTEMTIME;

struct _GUID;
typedef struct _GUID GUID;

struct IErrorInfo;
class _com_error;
class _variant_t;

struct HINSTANCE__;
typedef struct HINSTANCE__* HINSTANCE;

struct HRSRC__;
typedef struct HRSRC__* HRSRC;
