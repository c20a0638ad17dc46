#include <MLCore/platform/RandomBytes.h>

#include <MLCore/platform/WinTypes.h>

#include <wincrypt.h>

#include <algorithm>

namespace MLCore::platform {

bool RandomBytes(void* buffer, std::size_t size) noexcept {
    // A context for verification needs no key container, which a user may not have.
    HCRYPTPROV provider = 0;
    if (!CryptAcquireContextA(&provider, nullptr, nullptr, PROV_RSA_FULL, CRYPT_VERIFYCONTEXT | CRYPT_SILENT)) {
        return false;
    }
    constexpr std::size_t kMostAtOnce = 1U << 30;
    BYTE* at = static_cast<BYTE*>(buffer);
    bool isFilled = true;
    while (isFilled && size != 0) {
        const std::size_t count = std::min(size, kMostAtOnce);
        isFilled = CryptGenRandom(provider, static_cast<DWORD>(count), at) != 0;
        at += count;
        size -= count;
    }
    const DWORD error = GetLastError();
    CryptReleaseContext(provider, 0);
    SetLastError(error);
    return isFilled;
}

}  // namespace MLCore::platform
