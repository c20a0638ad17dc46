#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/platform/ProtectedMemory.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

namespace MLCore {

/// A secret text that is unreadable in memory except while it is used, and the generators of new ones.
///
///     const std::unique_ptr<CPASSWORD> password = CPASSWORD::CreateSecure(16);
///     password->Lock();    // readable from here
///     Send(static_cast<const char*>(*password));
///     password->Unlock();  // to here
///
/// The names are that way round on purpose: Lock() opens, Unlock() seals. MLCore/platform/ProtectedMemory.h tells what
/// sealing protects against. Memory is wiped before it is given back, also after a failure.
///
/// Which generator: **CreateSecure** for every new password. Create and CreateStrong exist for passwords that must be made
/// the old way: both draw with the runtime's `rand()`, seeded with 32 random bits, so neither is stronger than 32 bits
/// whatever its length, whoever learns later numbers of `rand()` can work the password out, and the program's own
/// sequence of `rand()` starts anew. Create besides uses only the first `length` characters of the alphabet.
///
/// The alphabet has 66 characters in four classes, easily confused letters left out:
/// upper case "ABCDEFGHJKLMNPQRSTWXYZ", lower case "abcdefgijkmnopqrstwxyz", digits "123456789", symbols "*$-+?_&=!%{}/".
///
/// Failures are FrameworkExceptions: the system's last error when it gives no random bytes or does not protect memory, -100
/// (null) without memory for secrets; or std::bad_alloc without other memory. A failed call leaves the password as it was,
/// save that memory that the system refuses to seal stays readable until the next Unlock() seals it.
///
/// One object is used by one thread at a time. Each takes whole pages of memory: it is meant for a few thousand secrets at
/// most.
class MLCORE_API CPASSWORD {
public:
    /// `length` characters, each of the first `length` ones of the alphabet: Create(8) only draws from "ABCDEFGH". Weak; see
    /// above. Lengths outside 0 to 66 fail with 132. (A literal 0 needs its type: `short{0}`.)
    [[nodiscard]] static std::unique_ptr<CPASSWORD> Create(short length);
    /// `length` characters, one of each class at least. Weak; see above. Lengths below 4 fail with 132.
    [[nodiscard]] static std::unique_ptr<CPASSWORD> CreateStrong(short length);
    /// `length` characters from the system's cryptographic generator. All texts over the alphabet with one character of each
    /// class at least are equally likely. Lengths below 4 fail with 132, a generator that keeps repeating itself with 128.
    [[nodiscard]] static std::unique_ptr<CPASSWORD> CreateSecure(short length);
    /// The strength of CreateSecure(length) in bits: the binary logarithm of the number of texts that it chooses from. 4
    /// characters have 20.4, 12 have 72.1, 16 have 96.5. Lengths below 4 fail with 132.
    [[nodiscard]] static double SecureEntropy(short length);

    /// A copy of `text`; null fails with -100, a text of nearly 2 GiB with 132. The caller wipes what it keeps
    /// (platform::WipeMemory).
    [[nodiscard]] static std::unique_ptr<CPASSWORD> Create(const char* text);
    /// A copy of `size` bytes, which may hold zeros. `data` may be null for size 0 only, else -100; a negative size or one
    /// of nearly 2 GiB fails with 132.
    [[nodiscard]] static std::unique_ptr<CPASSWORD> Create(const void* data, long size);

    CPASSWORD(const CPASSWORD&) = delete;
    CPASSWORD& operator=(const CPASSWORD&) = delete;
    /// Content, buffers and state move; `other` then has no content and size 0, converts to null, and Lock() and Unlock() do
    /// nothing there.
    CPASSWORD(CPASSWORD&& other) noexcept;
    CPASSWORD& operator=(CPASSWORD&& other) noexcept;
    virtual ~CPASSWORD();

    /// A sealed password with the same content, whatever the state of this one, which it keeps.
    [[nodiscard]] std::unique_ptr<CPASSWORD> Clone();

    /// Makes the content readable until as many calls of Unlock().
    void Lock();
    /// Seals the content when it takes back the first Lock(), which it does also when it fails; on a sealed password it does
    /// nothing.
    void Unlock();

    /// The length of the content in bytes plus 1 for its terminating zero.
    [[nodiscard]] long GetSize() const noexcept { return mLength; }

    /// The content with a zero behind it, readable between Lock() and Unlock() only; owned by the password.
    operator const char*() const noexcept;
    /// The content as wide characters, made at the first call, in whatever state; readable and owned like the narrow one.
    /// From the ANSI code page on Windows, from code page 1252 elsewhere.
    operator const wchar_t*();

    /// Whether the contents have the same bytes. The time taken depends on their sizes only; both keep their states.
    [[nodiscard]] bool operator==(CPASSWORD& other);
    [[nodiscard]] bool operator!=(CPASSWORD& other);
    /// Constant passwords cannot be opened, and texts would be compared by their addresses.
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
    /// Takes back one Lock(); false when the system refuses to seal.
    [[nodiscard]] bool EndUse() noexcept;
    [[nodiscard]] std::size_t WideSize() const noexcept;
    void Swap(CPASSWORD& other) noexcept;

    wchar_t* mWide = nullptr;  // sizeof(wchar_t) times as large as the narrow one: twice on Windows
    char* mNarrow = nullptr;
    std::int32_t mBufferSize = 0;                   // of the narrow buffer, in bytes
    std::int32_t mLength = 0;                       // with the terminator
    std::uint64_t mDepth = 0;                       // calls of Lock() without their Unlock()
    std::optional<platform::MEMORYSEAL> mWideSeal;  // each there while its buffer is sealed
    std::optional<platform::MEMORYSEAL> mNarrowSeal;
};

/// Passwords are not written.
template <class Stream>
void operator<<(Stream&& out, const CPASSWORD& password) = delete;

}  // namespace MLCore
