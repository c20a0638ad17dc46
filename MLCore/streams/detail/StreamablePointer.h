#pragma once

#include <type_traits>

namespace MLCore {

/// A pointer to T would silently become a memory handle: only texts (`char*`) and handles (`void*`) are written.
template <class T>
concept UnstreamablePointer = !std::is_void_v<std::remove_cv_t<T>> && !std::is_same_v<std::remove_cv_t<T>, char>;

}  // namespace MLCore
