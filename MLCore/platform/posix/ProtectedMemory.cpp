#include <MLCore/platform/ProtectedMemory.h>

#include <MLCore/platform/RandomBytes.h>
#include <sodium.h>

#include <mutex>

namespace MLCore::platform {

namespace {

static_assert(sizeof(MEMORYSEAL::nonce) == crypto_stream_xchacha20_NONCEBYTES);

bool IsSealable(std::size_t size) noexcept { return size % kSealBlockSize == 0; }

/// A refusal is not the last word: asked again, the library tries again.
bool IsReady() noexcept { return sodium_init() >= 0; }

unsigned char* MakeKey() noexcept {
    void* const memory = IsReady() ? sodium_malloc(crypto_stream_xchacha20_KEYBYTES) : nullptr;
    if (memory != nullptr && !RandomBytes(memory, crypto_stream_xchacha20_KEYBYTES)) {
        sodium_free(memory);
        return nullptr;
    }
    if (memory != nullptr) {
        sodium_mprotect_readonly(memory);
    }
    return static_cast<unsigned char*>(memory);
}

constinit std::mutex gKeyMutex;

/// The process's key, made at its first use and never freed: secrets may outlive every other static object.
const unsigned char* ProcessKey() noexcept {
    static const unsigned char* key = nullptr;
    const std::lock_guard guard(gKeyMutex);
    key = key != nullptr ? key : MakeKey();
    return key;
}

/// The stream cipher is its own inverse.
bool Cipher(void* memory, std::size_t size, const MEMORYSEAL& seal) noexcept {
    const unsigned char* const key = ProcessKey();
    if (key == nullptr) {
        return false;
    }
    unsigned char* const bytes = static_cast<unsigned char*>(memory);
    return crypto_stream_xchacha20_xor(bytes, bytes, size, seal.nonce, key) == 0;
}

}  // namespace

void* AllocateSecret(std::size_t size) noexcept {
    if (size == 0 || !IsSealable(size) || !IsReady()) {
        return nullptr;
    }
    void* const memory = sodium_malloc(size);
    if (memory != nullptr) {
        sodium_memzero(memory, size);
    }
    return memory;
}

void FreeSecret(void* memory, std::size_t) noexcept {
    sodium_free(memory);  // wipes, and knows the size
}

bool SealMemory(void* memory, std::size_t size, MEMORYSEAL& seal) noexcept {
    MEMORYSEAL fresh;
    if (!IsSealable(size) || !RandomBytes(fresh.nonce, sizeof(fresh.nonce)) || !Cipher(memory, size, fresh)) {
        return false;
    }
    seal = fresh;
    return true;
}

bool OpenMemory(void* memory, std::size_t size, const MEMORYSEAL& seal) noexcept {
    return IsSealable(size) && Cipher(memory, size, seal);
}

void WipeMemory(void* memory, std::size_t size) noexcept { sodium_memzero(memory, size); }

}  // namespace MLCore::platform
