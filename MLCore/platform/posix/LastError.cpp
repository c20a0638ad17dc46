#include <MLCore/platform/LastError.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace MLCore::platform {

namespace {

/// An `errno` value beside the Win32 code that means the same. The first row with an `errno` gives its code, the first
/// row with a code gives its `errno`; the rows that follow for the same `errno` are other codes that its text
/// describes.
struct ERRORPAIR {
    int errorNumber;
    unsigned int code;
};

/// Win32 codes: Microsoft's public list of system error codes. Sockets: its list of Windows Sockets error codes.
constexpr auto kErrorPairs = std::to_array<ERRORPAIR>({
    {ENOTTY, 1},
    {ENOENT, 2},
    {ENOENT, 3},
    {EMFILE, 4},
    {ENFILE, 4},
    {EACCES, 5},
    {EPERM, 5},
    {EBADF, 6},
    {ENOMEM, 8},
    {ENOMEM, 14},
    {ENOMEM, 1455},
    {E2BIG, 10},
    {EBADMSG, 13},
    {ENODEV, 55},
    {ENODEV, 15},
    {EXDEV, 17},
    {EROFS, 19},
    {ENXIO, 20},
    {EBUSY, 170},
    {EBUSY, 32},
    {ETXTBSY, 32},
    {ENOSPC, 112},
    {ENOSPC, 39},
    {EOPNOTSUPP, 50},
    {ENOTSUP, 50},
    {EEXIST, 80},
    {EEXIST, 183},
    {EINVAL, 87},
    {EINVAL, 123},
    {EDOM, 87},
    {EPIPE, 109},
    {EPIPE, 232},
    {ENOSYS, 120},
    {ECHILD, 128},
    {ESPIPE, 132},
    {ENOTEMPTY, 145},
    {ENOEXEC, 193},
    {ENAMETOOLONG, 206},
    {EFBIG, 223},
    {ENOTDIR, 267},
    {EISDIR, 336},
    {ERANGE, 534},
    {EOVERFLOW, 534},
    {EFAULT, 998},
    {EFAULT, 487},
    {ESTALE, 1006},
    {ENOMEDIUM, 1112},
    {EILSEQ, 1113},
    {EIO, 1117},
    {EDEADLK, 1131},
    {EMLINK, 1142},
    {ESRCH, 1168},
    {ECANCELED, 1223},
    {ECANCELED, 995},
    {EAGAIN, 1237},
    {EAGAIN, 33},
    {EDQUOT, 1295},
    {ENOLCK, 1450},
    {ETIMEDOUT, 1460},
    {ETIMEDOUT, 121},
    {ETIMEDOUT, 10060},
    {ELOOP, 1921},
    {EINTR, 10004},
    {EINPROGRESS, 10036},
    {EALREADY, 10037},
    {ENOTSOCK, 10038},
    {EDESTADDRREQ, 10039},
    {EMSGSIZE, 10040},
    {EPROTOTYPE, 10041},
    {ENOPROTOOPT, 10042},
    {EPROTONOSUPPORT, 10043},
    {ESOCKTNOSUPPORT, 10044},
    {EPFNOSUPPORT, 10046},
    {EAFNOSUPPORT, 10047},
    {EADDRINUSE, 10048},
    {EADDRNOTAVAIL, 10049},
    {ENETDOWN, 10050},
    {ENETUNREACH, 10051},
    {ENETRESET, 10052},
    {ECONNABORTED, 10053},
    {ECONNRESET, 10054},
    {ENOBUFS, 10055},
    {EISCONN, 10056},
    {ENOTCONN, 10057},
    {ESHUTDOWN, 10058},
    {ECONNREFUSED, 10061},
    {EHOSTDOWN, 10064},
    {EHOSTUNREACH, 10065},
});

/// The code for a failure without a counterpart: "a device attached to the system is not functioning", the general one.
constexpr unsigned int kGeneralFailure = 31;

struct RESULTTEXT {
    unsigned int code;
    const char* text;
};

/// HRESULTs outside the Win32 facility; codes from Microsoft's public lists of COM error codes.
constexpr auto kResultTexts = std::to_array<RESULTTEXT>({
    {0x8000000A, "The data is not available yet"},
    {0x8000FFFF, "Unexpected failure"},
    {0x80004001, "Not implemented"},
    {0x80004002, "No such interface supported"},
    {0x80004003, "Invalid pointer"},
    {0x80004004, "Operation aborted"},
    {0x80004005, "Unspecified error"},
    {0x80010106, "The threading mode cannot be changed after it is set"},
    {0x8001010E, "The interface belongs to another thread"},
    {0x80020001, "Unknown interface"},
    {0x80020003, "Member not found"},
    {0x80020004, "Parameter not found"},
    {0x80020005, "Type mismatch"},
    {0x80020006, "Unknown name"},
    {0x80020008, "Bad variable type"},
    {0x80020009, "An exception occurred"},
    {0x8002000A, "Out of the present range"},
    {0x8002000B, "Invalid index"},
    {0x8002000E, "Invalid number of parameters"},
    {0x80020012, "Division by zero"},
    {0x80030002, "The file could not be found"},
    {0x80030005, "Access denied"},
    {0x80030070, "Not enough space on the disk"},
    {0x80040110, "The class does not support aggregation"},
    {0x80040154, "The class is not registered"},
    {0x800401F0, "COM has not been initialised"},
    {0x800401F3, "Invalid class name"},
});

/// An HRESULT of the Win32 facility is this plus the Win32 code in its low 16 bits.
constexpr unsigned int kWin32Facility = 0x80070000;
constexpr unsigned int kCodeMask = 0xFFFF;

}  // namespace

unsigned int LastError() noexcept {
    const int errorNumber = errno;
    if (errorNumber == 0) {
        return 0;
    }
    for (const ERRORPAIR& pair : kErrorPairs) {
        if (pair.errorNumber == errorNumber) {
            return pair.code;
        }
    }
    return kGeneralFailure;
}

std::string SystemMessage(unsigned int code) {
    if ((code & ~kCodeMask) == kWin32Facility) {
        for (const ERRORPAIR& pair : kErrorPairs) {
            if (pair.code == (code & kCodeMask)) {
                return strerrordesc_np(pair.errorNumber);
            }
        }
        return {};
    }
    for (const RESULTTEXT& row : kResultTexts) {
        if (row.code == code) {
            return row.text;
        }
    }
    return {};
}

}  // namespace MLCore::platform
