#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/platform/ProtectedMemory.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

namespace MLCore {

/// A secret text that is unreadable in memory except while it is used, with generators of new passwords.
///
///     const std::unique_ptr<CPASSWORD> password = CPASSWORD::CreateSecure(16);
///     password->Lock();    // readable from here
///     Send(static_cast<const char*>(*password));
///     password->Unlock();  // to here
///
/// The names have this meaning on purpose: Lock() opens, Unlock() seals. MLCore/platform/ProtectedMemory.h says what
/// sealing protects against. Memory is wiped before it is freed, also after a failure.
///
/// Use **CreateSecure** for every new password. Create and CreateStrong exist for passwords that must be generated the
/// old way. Both draw with the runtime's `rand()`, seeded with 32 random bits. So neither is stronger than 32 bits,
/// whatever its length; anybody who learns later numbers of `rand()` can compute the password; and the program's own
/// sequence of `rand()` starts again. In addition, Create uses only the first `length` characters of the alphabet.
///
/// The alphabet has 66 characters in four classes, without letters that are easily confused: upper case
/// "ABCDEFGHJKLMNPQRSTWXYZ", lower case "abcdefgijkmnopqrstwxyz", digits "123456789", symbols "*$-+?_&=!%{}/".
///
/// Failures are FrameworkExceptions: the system's last error when it gives no random bytes or does not protect memory,
/// and kErrNull (-100) without memory for secrets. Without other memory, std::bad_alloc is thrown. Their texts never
/// describe the content. A failed call leaves the password unchanged, with one exception: memory that the system
/// refuses to seal stays readable until the next Unlock() seals it.
///
/// One object must be used by one thread at a time. Each object takes whole pages of memory: the class is meant for a
/// few thousand secrets at most.
class MLCORE_API CPASSWORD {
public:
    /// A password of `length` characters, all among the first `length` of the alphabet: Create(8) only draws from
    /// "ABCDEFGH". Weak; see above. Fails with kErrInvalidArgument (132) for lengths outside 0 to 66. (A literal 0
    /// needs its type: `short{0}`.)
    [[nodiscard]] static std::unique_ptr<CPASSWORD> Create(short length);
    /// A password of `length` characters, at least one of each class. Weak; see above. Fails with kErrInvalidArgument
    /// for lengths below 4.
    [[nodiscard]] static std::unique_ptr<CPASSWORD> CreateStrong(short length);
    /// A password of `length` characters from the system's cryptographic generator. All texts over the alphabet with at
    /// least one character of each class are equally likely. Fails with kErrInvalidArgument for lengths below 4, and
    /// with kErrRuntime (128) when the generator keeps repeating itself.
    [[nodiscard]] static std::unique_ptr<CPASSWORD> CreateSecure(short length);
    /// The strength of CreateSecure(length) in bits: the binary logarithm of the number of texts that it chooses from.
    /// 4 characters have 20.4 bits, 12 have 72.1, 16 have 96.5. Fails with kErrInvalidArgument for lengths below 4.
    [[nodiscard]] static double SecureEntropy(short length);

    /// A copy of `text`. Fails with kErrNull for null and with kErrInvalidArgument for a text of nearly 2 GiB. The
    /// caller must wipe its own copy (platform::WipeMemory).
    [[nodiscard]] static std::unique_ptr<CPASSWORD> Create(const char* text);
    /// A copy of `size` bytes, which may hold zeros. Fails with kErrNull when `data` is null and `size` is not 0, and
    /// with kErrInvalidArgument for a negative size or one of nearly 2 GiB.
    [[nodiscard]] static std::unique_ptr<CPASSWORD> Create(const void* data, long size);

    CPASSWORD(const CPASSWORD&) = delete;
    CPASSWORD& operator=(const CPASSWORD&) = delete;
    /// Moves content, buffers and state. `other` then has no content and size 0 and converts to null; its Lock() and
    /// Unlock() do nothing.
    CPASSWORD(CPASSWORD&& other) noexcept;
    CPASSWORD& operator=(CPASSWORD&& other) noexcept;
    virtual ~CPASSWORD();

    /// A sealed password with the same content. This one may be open or sealed, and keeps its state.
    [[nodiscard]] std::unique_ptr<CPASSWORD> Clone();

    /// Makes the content readable until Unlock() has been called as often as Lock().
    void Lock();
    /// Reverses one Lock(), also when it fails. The last one seals the content. Does nothing on a sealed password.
    void Unlock();

    /// The length of the content in bytes plus 1 for its terminating zero.
    [[nodiscard]] long GetSize() const noexcept { return mLength; }

    /// The content with a zero after it, readable only between Lock() and Unlock(). Owned by the password.
    operator const char*() const noexcept;
    /// The content as wide characters, converted at the first call from the ANSI code page on Windows, from code page
    /// 1252 elsewhere. The password may be open or sealed then. Readable and owned like the narrow content.
    operator const wchar_t*();

    /// True when the contents have the same bytes. The time taken depends only on their sizes. Both keep their states.
    [[nodiscard]] bool operator==(CPASSWORD& other);
    [[nodiscard]] bool operator!=(CPASSWORD& other);
    /// Constant passwords cannot be opened, and texts would be compared by address.
    template <class Other>
    bool operator==(const Other&) const = delete;
    template <class Other>
    bool operator!=(const Other&) const = delete;

private:
    class OPENING;

    CPASSWORD() noexcept;
    /// Open, all zeros.
    explicit CPASSWORD(std::size_t textLength);

    [[nodiscard]] bool OpenBuffers() noexcept;
    [[nodiscard]] bool SealBuffers() noexcept;
    /// Reverses one Lock(); false when the system refuses to seal.
    [[nodiscard]] bool EndUse() noexcept;
    [[nodiscard]] std::size_t WideSize() const noexcept;
    void Swap(CPASSWORD& other) noexcept;

    wchar_t* mWide = nullptr;  // sizeof(wchar_t) times as large as the narrow one: twice on Windows
    char* mNarrow = nullptr;
    std::int32_t mBufferSize = 0;                   // of the narrow buffer, in bytes
    std::int32_t mLength = 0;                       // with the terminator
    std::uint64_t mDepth = 0;                       // calls of Lock() without their Unlock()
    std::optional<platform::MEMORYSEAL> mWideSeal;  // each exists while its buffer is sealed
    std::optional<platform::MEMORYSEAL> mNarrowSeal;
};

/// Passwords cannot be written to a stream.
template <class Stream>
void operator<<(Stream&& out, const CPASSWORD& password) = delete;

}  // namespace MLCore
