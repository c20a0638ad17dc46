#pragma once

#include <MLCore/platform/Export.h>

#include <atomic>
#include <cstdlib>
#include <exception>
#include <mutex>
#include <new>
#include <type_traits>

namespace MLCore {

/// The singleton is freed when its module is unloaded.
struct MLCORE_TEMPLATE_API autorelease {};
/// The singleton lives until its owner calls Free().
struct MLCORE_TEMPLATE_API noautorelease {};

/// The base of a class with one instance per process, which is created at the first use by any thread.
///
///     class CMANAGER : public CSINGLETON<CMANAGER, autorelease> {
///         friend class CSINGLETON<CMANAGER, autorelease>;
///         CMANAGER() = default;
///     };
///     CMANAGER::GetInstance()->...
///
/// If several modules use the class, one of them must own the instance. Two lines at global scope make it the owner: in
/// the header, before the class, `extern template class EXPORT MLCore::CSINGLETON<app::CMANAGER,
/// MLCore::autorelease>;`, and in the source `template class MLCore::CSINGLETON<app::CMANAGER, MLCore::autorelease>;`.
/// Otherwise each module may have its own instance. (With g++ a module that exports such an instance is only
/// unloaded before the process ends when it is compiled with -fno-gnu-unique, as this library is.)
template <class T, class Policy>
class MLCORE_TEMPLATE_API CSINGLETON {
    static_assert(std::is_same_v<Policy, autorelease> || std::is_same_v<Policy, noautorelease>);

public:
    CSINGLETON(const CSINGLETON&) = delete;
    CSINGLETON& operator=(const CSINGLETON&) = delete;

    /// The instance, created at the first call. Threads may call it concurrently. An exception of T's constructor
    /// passes through, and the next call tries again. T's constructor must not call it.
    static T* GetInstance();
    /// Deletes the instance, if one exists; a later GetInstance() creates a new one. Must not be called while another
    /// thread uses the instance or calls GetInstance(). T's destructor must not call it.
    static void Free();

protected:
    CSINGLETON();
    virtual ~CSINGLETON();

    static T* mInstance;
    static std::once_flag mInit;

private:
    static std::exception_ptr TryCreate() noexcept;
    static void ResetInit() noexcept;
};

template <class T, class Policy>
T* CSINGLETON<T, Policy>::mInstance = nullptr;

template <class T, class Policy>
std::once_flag CSINGLETON<T, Policy>::mInit;

template <class T, class Policy>
T* CSINGLETON<T, Policy>::GetInstance() {
    const std::atomic_ref<T*> instance(mInstance);
    if (T* const existing = instance.load(std::memory_order_acquire)) {
        return existing;
    }
    // Some systems' call_once never recovers from an exception that passes through it, so a failure is carried around
    // it and the flag reset. The lock keeps other threads off the flag meanwhile.
    static std::mutex creation;
    const std::lock_guard<std::mutex> lock(creation);
    std::exception_ptr failure;
    std::call_once(mInit, [&failure] { failure = TryCreate(); });
    if (failure) {
        ResetInit();
        std::rethrow_exception(failure);
    }
    return instance.load(std::memory_order_acquire);
}

template <class T, class Policy>
std::exception_ptr CSINGLETON<T, Policy>::TryCreate() noexcept {
    try {
        std::atomic_ref<T*>(mInstance).store(new T, std::memory_order_release);
        return nullptr;
    } catch (...) {
        return std::current_exception();
    }
}

template <class T, class Policy>
void CSINGLETON<T, Policy>::Free() {
    delete mInstance;
}

template <class T, class Policy>
CSINGLETON<T, Policy>::CSINGLETON() {
    if constexpr (std::is_same_v<Policy, autorelease>) {
        // Registered once. An instance that is created during the exit registers again, so it is freed too.
        static bool isRegistered = false;
        isRegistered = isRegistered || std::atexit([] {
                                           isRegistered = false;
                                           Free();
                                       }) == 0;
    }
}

template <class T, class Policy>
CSINGLETON<T, Policy>::~CSINGLETON() {
    // Skipped when T's constructor has failed: the flag is then still in use, and GetInstance() resets it.
    if (static_cast<CSINGLETON*>(mInstance) == this) {
        mInstance = nullptr;
        ResetInit();
    }
}

template <class T, class Policy>
void CSINGLETON<T, Policy>::ResetInit() noexcept {
    mInit.~once_flag();
    new (&mInit) std::once_flag;
}

}  // namespace MLCore
