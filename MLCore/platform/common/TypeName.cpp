#include <MLCore/platform/TypeName.h>

#if defined(_MSC_VER)
#include <string_view>
#else
#include <cxxabi.h>

#include <cstdlib>
#include <memory>
#include <new>
#endif

namespace MLCore::platform {

#if defined(_MSC_VER)

// This compiler's names are readable already but say the kind of every class type, also inside template arguments.
std::string TypeName(const std::type_info& type) {
    constexpr std::string_view kKinds[] = {"class ", "struct ", "union ", "enum "};
    constexpr std::string_view kBeforeName = "<,( ";
    std::string name = type.name();
    for (const std::string_view kind : kKinds) {
        std::size_t at = 0;
        while ((at = name.find(kind, at)) != std::string::npos) {
            if (at == 0 || kBeforeName.find(name[at - 1]) != std::string_view::npos) {
                name.erase(at, kind.size());
            } else {
                at += kind.size();
            }
        }
    }
    return name;
}

#else

std::string TypeName(const std::type_info& type) {
    struct FREE {
        void operator()(char* text) const noexcept { std::free(text); }
    };
    int status = 0;
    const std::unique_ptr<char, FREE> name(abi::__cxa_demangle(type.name(), nullptr, nullptr, &status));
    constexpr int kNoMemory = -1;
    if (status == kNoMemory) {
        throw std::bad_alloc();
    }
    return name != nullptr ? name.get() : type.name();
}

#endif

}  // namespace MLCore::platform
