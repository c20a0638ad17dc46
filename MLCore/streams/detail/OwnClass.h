#pragma once

#include <typeinfo>

namespace MLCore {

/// Whether `object` is of one of these classes themselves, not of one derived from them, which may do things its own way. Compares
/// addresses: where a class has several descriptions the answer may be a false "no", with which one takes the longer way.
template <class... Classes, class Object>
[[nodiscard]] bool IsOfClass(const Object& object) noexcept {
    const std::type_info* const type = &typeid(object);
    return ((type == &typeid(Classes)) || ...);
}

}  // namespace MLCore
