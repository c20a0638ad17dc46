/// \file
/// Tables that are indexed by an enumeration, one row for each enumerator.
#pragma once

#include <cstddef>

namespace MLCore {

/// True when row i of a table belongs to the enumerator i, for all `count` enumerators. With
/// `static_assert(IsIndexedBy(kRows, &ROW::type, kTypeCount))` a table with a missing, repeated or misplaced row does
/// not compile.
template <class Row, std::size_t rowCount, class Enum>
[[nodiscard]] consteval bool IsIndexedBy(const Row (&rows)[rowCount], Enum Row::*enumerator, std::size_t count);

template <class Row, std::size_t rowCount, class Enum>
consteval bool IsIndexedBy(const Row (&rows)[rowCount], Enum Row::*enumerator, std::size_t count) {
    for (std::size_t index = 0; index < rowCount; ++index) {
        if (static_cast<std::size_t>(rows[index].*enumerator) != index) {
            return false;
        }
    }
    return rowCount == count;
}

}  // namespace MLCore
