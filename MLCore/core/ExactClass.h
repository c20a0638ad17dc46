/// \file
/// Tests of the exact class of an object: a derived class may override its functions.
#pragma once

#include <typeinfo>

namespace MLCore {

/// True when the class of `object` itself is the one that `type` describes.
template <class Object>
[[nodiscard]] bool IsExactly(const Object& object, const std::type_info& type) noexcept {
    // First by address, which nearly always decides. Only modules with their own descriptions need the names.
    return &typeid(object) == &type || typeid(object) == type;
}

/// True when `object` is of one of these classes itself, `IsExactly<CVALUEOBJECT>(*object)`; false for an object of a
/// class derived from them. Code that avoids the call of a virtual function must check this first.
template <class... Classes, class Object>
[[nodiscard]] bool IsExactly(const Object& object) noexcept {
    static_assert(sizeof...(Classes) > 0, "name the classes: IsExactly<CVALUEOBJECT>(object)");
    return (IsExactly(object, typeid(Classes)) || ...);
}

}  // namespace MLCore
