#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace MLCore {

/// How many characters of a text are compared in one step.
inline constexpr std::ptrdiff_t kWordSize = 8;

static_assert(std::endian::native == std::endian::little, "the first character is the lowest byte");

/// Marks those of the eight characters at `text` that may have a meaning in lines of fields: the controls up to CR, the
/// double quote and the separator, an ASCII character. The mark is the highest bit of the byte. After the first mark,
/// bytes without a meaning may have it too.
inline std::uint64_t MarkSpecial(const char* text, char separator) noexcept {
    constexpr std::uint64_t kEach = 0x0101010101010101;
    std::uint64_t word = 0;
    std::memcpy(&word, text, sizeof(word));
    // The bit gets set where more is taken away than there is. Where it was set before, the character is not ASCII.
    const std::uint64_t controls = word - kEach * ('\r' + 1);
    const std::uint64_t quotes = (word ^ kEach * '"') - kEach;
    const std::uint64_t separators = (word ^ kEach * static_cast<unsigned char>(separator)) - kEach;
    return (controls | quotes | separators) & ~word & kEach * 0x80;
}

/// The first character from `text` on that may have such a meaning. When fewer than eight are left, or the separator is
/// not ASCII, that is simply the first one.
inline const char* FindSpecial(const char* text, const char* end, char separator) noexcept {
    if (static_cast<unsigned char>(separator) >= 0x80) {
        return text;
    }
    for (; end - text >= kWordSize; text += kWordSize) {
        if (const std::uint64_t marks = MarkSpecial(text, separator); marks != 0) {
            return text + std::countr_zero(marks) / kWordSize;
        }
    }
    return text;
}

}  // namespace MLCore
