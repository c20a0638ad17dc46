#pragma once

#include <type_traits>

namespace MLCore {

/// A pointer that no stream writes: texts (`char*`) and memory handles (`void*`) are written, and any other pointer
/// would silently become a handle.
template <class T>
concept UnstreamablePointer = !std::is_void_v<std::remove_cv_t<T>> && !std::is_same_v<std::remove_cv_t<T>, char>;

}  // namespace MLCore
