#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/platform/ForwardTypes.h>

#include <cstdint>
#include <exception>
#include <iosfwd>
#include <string_view>

namespace MLCore {

/// The exception that the library throws. It has two 16-bit numbers (class and message), the raw status of the
/// operating system or of COM if there is one, and an optional text in code page 1252.
///
/// It is thrown by value, normally through a check of FailureChecks.h, and caught by reference:
///
///     try {
///         order->GetKeyValue("custmer");
///     } catch (const FrameworkException& failure) {
///         std::cerr << failure;  // MLCore failure 151: CORDER has no key 'custmer'; did you mean 'customer'?
///     }
///
/// It does not derive from std::exception: `catch (const std::exception&)` does not catch it, and a program that does
/// not catch it ends without showing the text. One exception object must be used by one thread at a time.
class MLCORE_API FrameworkException {
public:
    /// The kind of a failure, which determines IsComErr() and the meaning of GetField().
    enum Kind : std::int16_t {
        Ordinary = 0,
        ComError = 1,
        FieldCoherence = 2,  ///< a field that contradicts the others; GetField() numbers it
        Coherence = 3,
    };

    /// All numbers 0, no text.
    FrameworkException() noexcept = default;
    FrameworkException(short errorClass, short msg) noexcept;
    /// Copies `text` (null: no text).
    FrameworkException(short errorClass, short msg, short kind, unsigned short field, const char* text);
    /// From a Win32 code or an HRESULT: class and message are -3000 minus its low 16 bits (read as signed 16-bit), so
    /// 5 and 0x80070005 both give -3005.
    explicit FrameworkException(unsigned int code) noexcept;
    /// The same with a text, which is copied.
    FrameworkException(unsigned int code, std::string_view text);
    /// From a COM error: the numbers of its HRESULT, its error information with its own reference, and as text its
    /// description, or the system's message when it has none.
    explicit FrameworkException(const _com_error& error);
    /// From a standard exception: its what() as text and the code of the nearest standard class (ErrorCodes.h; a
    /// derived class counts as its base), kErrOtherException (134) for any other.
    explicit FrameworkException(const std::exception& error);

    FrameworkException(const FrameworkException& other);
    FrameworkException(FrameworkException&& other) noexcept;
    FrameworkException& operator=(const FrameworkException& other);
    FrameworkException& operator=(FrameworkException&& other) noexcept;
    virtual ~FrameworkException();

    [[nodiscard]] short GetClass() const noexcept { return mClass; }
    [[nodiscard]] short GetMsg() const noexcept { return mMsg; }
    /// The field number: 0 except in field coherence errors and where it was passed to the constructor.
    [[nodiscard]] short GetField() const noexcept { return static_cast<short>(mField); }
    /// The raw Win32 code or HRESULT, 0 when there is none.
    [[nodiscard]] unsigned int GetCode() const noexcept { return mCode; }
    /// The COM error information or null. The caller gets its own reference and must release it.
    [[nodiscard]] IErrorInfo* GetErrorInfo() const noexcept;
    /// 1 for a COM error, else 0.
    [[nodiscard]] int IsComErr() const noexcept { return mKind == ComError ? 1 : 0; }
    /// The text, or null. Owned by the exception, valid until the exception is assigned or destroyed. If an exception
    /// without a text holds a failure HRESULT (bit 31 set), the first call looks it up in the system's messages. A
    /// plain Win32 code (bit 31 clear) is never looked up, on purpose: failures of FailLastError() have no text.
    [[nodiscard]] const char* GetText() const;

private:
    void Swap(FrameworkException& other) noexcept;

    std::int16_t mClass = 0;
    std::int16_t mMsg = 0;
    std::uint32_t mCode = 0;
    IErrorInfo* mErrorInfo = nullptr;
    std::int16_t mKind = Ordinary;
    std::uint16_t mField = 0;
    mutable char* mText = nullptr;
};

/// Writes "MLCore failure 151: " and the text; without a text the system's message for a system code, else
/// DescribeFailure(). The message number is added if it differs from the class ("1/0"), and the number of a field.
MLCORE_API std::ostream& operator<<(std::ostream& out, const FrameworkException& failure);

}  // namespace MLCore
