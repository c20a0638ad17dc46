#include <MLCore/platform/TypeName.h>

#include <cxxabi.h>

#include <cstdlib>
#include <memory>
#include <new>

namespace MLCore::platform {

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

}  // namespace MLCore::platform
