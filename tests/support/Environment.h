#pragma once

#if !defined(_WIN32)

#include <time.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace support {

/// Sets a variable of the environment, the zone among them, while it lives.
class ENVIRONMENT {
public:
    ENVIRONMENT(const char* name, const std::string& value) : mName(name) {
        if (const char* const previous = std::getenv(name)) {
            mPrevious = previous;
        }
        setenv(name, value.c_str(), 1);
        tzset();
    }
    ~ENVIRONMENT() {
        mPrevious ? setenv(mName, mPrevious->c_str(), 1) : unsetenv(mName);
        tzset();
    }
    ENVIRONMENT(const ENVIRONMENT&) = delete;
    ENVIRONMENT& operator=(const ENVIRONMENT&) = delete;

private:
    const char* mName;
    std::optional<std::string> mPrevious;
};

}  // namespace support

#endif
