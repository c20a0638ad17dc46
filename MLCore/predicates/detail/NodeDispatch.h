/// \file
/// The machinery of Dispatch().
#pragma once

#include <MLCore/core/CCLASSTYPEINFO.h>
#include <MLCore/core/COBJECT.h>
#include <MLCore/platform/Export.h>

#include <tuple>
#include <type_traits>
#include <utility>

namespace MLCore {

/// In a list of classes: a base class of which the library itself creates no objects, so that it may lack an overload.
template <class Class>
struct OPENCLASS;

/// Fails with kErrBadCast (121): the class of `node` has no overload.
[[noreturn]] MLCORE_API void FailNoOverload(const COBJECT& node);

template <class... Callables>
struct OVERLOADS : Callables... {
    using Callables::operator()...;
};

template <class Entry>
struct NODECLASS {
    using CLASS = Entry;
    static constexpr bool kIsOpen = false;
};
template <class Class>
struct NODECLASS<OPENCLASS<Class>> {
    using CLASS = Class;
    static constexpr bool kIsOpen = true;
};

/// The classes that Dispatch() distinguishes among the nodes of the class Base. Frequent ones come first, for speed
/// only.
template <class Base, class... Entries>
class NODECLASSES {
public:
    template <class Callable>
    static decltype(auto) Dispatch(const Base& node, Callable&& callable) {
        return Call(node, callable);
    }
    template <class... Callables>
    static decltype(auto) Dispatch(const Base& node, Callables&&... callables) {
        OVERLOADS<std::decay_t<Callables>...> overloads{std::forward<Callables>(callables)...};
        return Call(node, overloads);
    }

private:
    using FIRST = std::tuple_element_t<0, std::tuple<Entries...>>;

    template <class Entry>
    using CLASSOF = typename NODECLASS<Entry>::CLASS;

    template <class Entry, class Callable>
    static constexpr bool kIsTaken = std::is_invocable_v<Callable&, const CLASSOF<Entry>&>;

    template <class Result, class Entry, class Callable>
    static consteval bool IsResult() {
        if constexpr (kIsTaken<Entry, Callable>) {
            return std::is_same_v<std::invoke_result_t<Callable&, const CLASSOF<Entry>&>, Result>;
        } else {
            return true;
        }
    }

    template <class Result, class Entry, class Callable>
    static Result CallAs(const Base& node, Callable& callable) {
        if constexpr (kIsTaken<Entry, Callable>) {
            return callable(static_cast<const CLASSOF<Entry>&>(node));
        } else {
            FailNoOverload(node);
        }
    }

    template <class Callable>
    static decltype(auto) Call(const Base& node, Callable& callable) {
        static_assert(((NODECLASS<Entries>::kIsOpen || kIsTaken<Entries, Callable>)&&...),
                      "Dispatch(): a class has no overload, and neither has its base class");
        using RESULT = std::invoke_result_t<Callable&, const CLASSOF<FIRST>&>;
        static_assert((IsResult<RESULT, Entries, Callable>() && ... && IsResult<RESULT, OPENCLASS<Base>, Callable>()),
                      "Dispatch(): all overloads must return the same type");
        RESULT (*call)(const Base&, Callable&) = nullptr;
        for (const auto* info = &node.ClassInfo(); info != nullptr && call == nullptr; info = info->GetSuper()) {
            static_cast<void>(((info == &CLASSOF<Entries>::ClassInfoStatic() &&
                                (call = &CallAs<RESULT, Entries, Callable>) != nullptr) ||
                               ...));
        }
        return call != nullptr ? call(node, callable) : CallAs<RESULT, OPENCLASS<Base>>(node, callable);
    }
};

}  // namespace MLCore
