#include <MLCore/core/ErrorCodes.h>

#include <algorithm>
#include <iterator>

namespace MLCore {

namespace {

struct MEANING {
    short code;
    const char* text;
};

constexpr MEANING kMeanings[] = {
    {0, "no failure"},
    {kErrNull, "a pointer is null, or there is not enough memory"},
    {kErrStreamEnd, "a stream has ended, or a position or length lies outside it"},
    {kErrStreamName, "a stream has no room for a class name or for bytes"},
    {kErrBoolean, "a boolean check failed"},
    {kErrBadException, "an exception of an unexpected type (std::bad_exception)"},
    {kErrBadCast, "an object is not of the class wanted (std::bad_cast)"},
    {kErrUnknownClass, "the class is unknown to the object factory, or std::bad_typeid"},
    {kErrStreamFailure, "a standard stream failed (std::ios_base::failure)"},
    {kErrRange, "a result is out of range (std::range_error)"},
    {kErrOverflow, "a number is too large for its stored form (std::overflow_error)"},
    {kErrUnderflow, "a number is too small for its stored form (std::underflow_error)"},
    {kErrRuntime, "a run-time error (std::runtime_error)"},
    {kErrLength, "a length is too large (std::length_error)"},
    {kErrDomain, "an argument lies outside the domain of a function (std::domain_error)"},
    {kErrOutOfRange, "an index or argument is out of range (std::out_of_range)"},
    {kErrInvalidArgument, "an argument is not valid (std::invalid_argument)"},
    {kErrLogic, "an error in the logic of the program (std::logic_error)"},
    {kErrOtherException, "another standard exception"},
    {kErrValueType, "a value is not of the type wanted, or a text is not a value of it"},
    {kErrStreamClosed, "the stream is closed"},
    {kErrUnsupported, "the class does not support the operation"},
    {kErrUnknownKey, "the key is unknown, an index is out of range, or a key path is malformed"},
};

constexpr short kLastSystemCode = -3000;

}  // namespace

const char* DescribeFailure(short code) noexcept {
    const auto* const found = std::find_if(std::begin(kMeanings), std::end(kMeanings),
                                           [code](const MEANING& each) { return each.code == code; });
    if (found != std::end(kMeanings)) {
        return found->text;
    }
    return code <= kLastSystemCode ? "the operating system or COM reported a failure" : "not a code of MLCore";
}

}  // namespace MLCore
