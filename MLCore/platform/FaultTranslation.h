#pragma once

#if defined(_MSC_VER)
#include <eh.h>

#include <stdexcept>
#endif

namespace MLCore::platform {

/// While an object of this class lives, a processor fault in its thread is thrown as a std::runtime_error, if the
/// compiler supports that (MSVC, with /EHa); otherwise it does nothing. Of several objects the one created last
/// applies; they must be destroyed in the reverse order.
class [[maybe_unused]] FAULTTRANSLATION {
public:
#if defined(_MSC_VER)
    FAULTTRANSLATION() noexcept : mPrevious(_set_se_translator(&Throw)) {}
    ~FAULTTRANSLATION() { _set_se_translator(mPrevious); }
#else
    FAULTTRANSLATION() noexcept = default;
#endif
    FAULTTRANSLATION(const FAULTTRANSLATION&) = delete;
    FAULTTRANSLATION& operator=(const FAULTTRANSLATION&) = delete;

private:
#if defined(_MSC_VER)
    static void __cdecl Throw(unsigned int, struct _EXCEPTION_POINTERS*) {
        throw std::runtime_error("processor fault");
    }

    _se_translator_function mPrevious;
#endif
};

}  // namespace MLCore::platform
