/// The codes of failures. The class and the message of a FrameworkException hold the same code, except where a header
/// says otherwise.
#pragma once

#include <MLCore/platform/Export.h>

namespace MLCore {

inline constexpr short kErrNull = -100;            ///< a null pointer, or not enough memory
inline constexpr short kErrStreamEnd = -110;       ///< a stream ended, or a position or length lies outside it
inline constexpr short kErrStreamName = -111;      ///< no room in a stream for a class name or for bytes
inline constexpr short kErrBoolean = 1;            ///< a boolean check failed (the message is 0)
inline constexpr short kErrBadException = 120;     ///< std::bad_exception
inline constexpr short kErrBadCast = 121;          ///< std::bad_cast
inline constexpr short kErrBadTypeId = 123;        ///< std::bad_typeid
inline constexpr short kErrUnknownClass = 123;     ///< a class that the factory does not know
inline constexpr short kErrStreamFailure = 124;    ///< std::ios_base::failure
inline constexpr short kErrRange = 125;            ///< std::range_error
inline constexpr short kErrOverflow = 126;         ///< std::overflow_error; a number too large to be stored
inline constexpr short kErrUnderflow = 127;        ///< std::underflow_error
inline constexpr short kErrRuntime = 128;          ///< std::runtime_error
inline constexpr short kErrLength = 129;           ///< std::length_error
inline constexpr short kErrDomain = 130;           ///< std::domain_error
inline constexpr short kErrOutOfRange = 131;       ///< std::out_of_range
inline constexpr short kErrInvalidArgument = 132;  ///< std::invalid_argument
inline constexpr short kErrLogic = 133;            ///< std::logic_error
inline constexpr short kErrOtherException = 134;   ///< any other std::exception
inline constexpr short kErrValueType = 138;        ///< a value of the wrong type, or a text that is not one
inline constexpr short kErrStreamClosed = 141;     ///< an operation on a closed stream
inline constexpr short kErrUnsupported = 150;      ///< an operation that the class does not support
inline constexpr short kErrUnknownKey = 151;       ///< an unknown key, an index out of range, a malformed path

/// The meaning of a code as a short English sentence without a full stop: "the stream is closed". Never null: it also
/// describes the codes of the operating system and of COM, from -3000 downward, and numbers that are not codes. The
/// text of a FrameworkException says more, if it has one.
[[nodiscard]] MLCORE_API const char* DescribeFailure(short code) noexcept;

}  // namespace MLCore
