#pragma once

#include <MLCore/streams/CSERIALIZABLE.h>

#include <concepts>
#include <type_traits>

namespace MLCore {

/// Types with only a binary format: objects and memory handles. Between the lines of a text no reader could find the
/// end of these bytes.
template <class T>
concept BinaryOnly = std::derived_from<std::remove_cv_t<T>, CSERIALIZABLE> || std::same_as < std::remove_cv_t<T>,
void* > ;

/// Used where a program asks the text stream `Stream` for the binary format of a T: the compiler then shows the
/// sentence.
template <class Stream, class T>
constexpr void RefuseBinaryForm() {
    static_assert(sizeof(T) == 0,
                  "a text stream has no form for objects and memory blocks: read and write the state of an object as "
                  "texts with CSTREAMREADER and CSTREAMWRITER (CSTREAMWRITER writer(text); writer << object;), or use "
                  "the component for binary data");
}

}  // namespace MLCore
