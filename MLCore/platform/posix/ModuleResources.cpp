#include <MLCore/platform/ModuleResources.h>

#include <MLCore/platform/common/AsciiNames.h>

#include <dlfcn.h>
#include <link.h>

#include <cerrno>
#include <charconv>
#include <cstdint>
#include <mutex>
#include <string_view>

namespace MLCore::platform {

namespace {

/// Both need no construction: modules register while the program loads.
constinit std::mutex gMutex;
constinit RESOURCEREGISTRATION* gFirst = nullptr;

/// The handle of the program: the loader knows every module by one link map, and `dlopen` returns its address.
HINSTANCE ProgramModule() noexcept {
    void* const program = dlopen(nullptr, RTLD_LAZY);
    link_map* map = nullptr;
    if (program != nullptr) {
        dlinfo(program, RTLD_DI_LINKMAP, &map);
        dlclose(program);
    }
    return reinterpret_cast<HINSTANCE>(map);
}

/// A name as it is compared: a number, or a text when the number is 0.
struct RESOURCENAME {
    std::uintptr_t number = 0;
    std::string_view text;
};

RESOURCENAME ParseName(const char* name) noexcept {
    constexpr std::uintptr_t kMostNumber = 65535;
    const std::uintptr_t value = reinterpret_cast<std::uintptr_t>(name);
    if (value <= kMostNumber) {
        return {value, {}};
    }
    const std::string_view text = name;
    if (text.empty() || text.front() != '#') {
        return {0, text};
    }
    std::uintptr_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data() + 1, end, number);
    const bool isNumber = error == std::errc() && stop == end && number <= kMostNumber;
    return {isNumber ? number : 0, {}};
}

bool IsSame(const RESOURCENAME& left, const RESOURCENAME& right) noexcept {
    const bool isSomething = left.number != 0 || !left.text.empty();
    return isSomething && left.number == right.number && IsSameName(left.text, right.text);
}

}  // namespace

HINSTANCE ModuleOf(const void* address) noexcept {
    Dl_info info{};
    link_map* map = nullptr;
    void** const extra = reinterpret_cast<void**>(&map);
    return dladdr1(address, &info, extra, RTLD_DL_LINKMAP) != 0 ? reinterpret_cast<HINSTANCE>(map) : nullptr;
}

HRSRC FindModuleResource(HINSTANCE module, const char* name, unsigned short type) noexcept {
    const HINSTANCE owner = module != nullptr ? module : ProgramModule();
    const RESOURCENAME wanted = ParseName(name);
    const std::lock_guard guard(gMutex);
    for (RESOURCEREGISTRATION* at = gFirst; at != nullptr; at = at->mNext) {
        const bool isOwned = at->mModule == owner && at->mSize != 0;
        if (isOwned && at->mType == type && IsSame(ParseName(at->mName), wanted)) {
            return reinterpret_cast<HRSRC>(at);
        }
    }
    errno = ENOENT;
    return nullptr;
}

void* LoadModuleResource(HINSTANCE module, HRSRC resource) noexcept {
    const std::lock_guard guard(gMutex);
    const RESOURCEREGISTRATION* const found = RESOURCEREGISTRATION::FromHandle(module, resource);
    return found != nullptr ? const_cast<void*>(found->mData) : nullptr;
}

const void* LockModuleResource(void* loadedResource) noexcept { return loadedResource; }

std::size_t ModuleResourceSize(HINSTANCE module, HRSRC resource) noexcept {
    const std::lock_guard guard(gMutex);
    const RESOURCEREGISTRATION* const found = RESOURCEREGISTRATION::FromHandle(module, resource);
    return found != nullptr ? found->mSize : 0;
}

RESOURCEREGISTRATION::RESOURCEREGISTRATION(const char* name, unsigned short type, const void* data,
                                           std::size_t size) noexcept
    : mModule(ModuleOf(data)), mName(name), mData(data), mSize(size), mNext(nullptr), mType(type) {
    const std::lock_guard guard(gMutex);
    mNext = gFirst;
    gFirst = this;
}

RESOURCEREGISTRATION::~RESOURCEREGISTRATION() {
    const std::lock_guard guard(gMutex);
    for (RESOURCEREGISTRATION** at = &gFirst; *at != nullptr; at = &(*at)->mNext) {
        if (*at == this) {
            *at = mNext;
            return;
        }
    }
}

/// Requires the mutex.
const RESOURCEREGISTRATION* RESOURCEREGISTRATION::FromHandle(HINSTANCE module, HRSRC resource) noexcept {
    const HINSTANCE owner = module != nullptr ? module : ProgramModule();
    for (const RESOURCEREGISTRATION* at = gFirst; at != nullptr; at = at->mNext) {
        if (at == reinterpret_cast<const RESOURCEREGISTRATION*>(resource) && at->mModule == owner) {
            return at;
        }
    }
    errno = EBADF;
    return nullptr;
}

}  // namespace MLCore::platform
