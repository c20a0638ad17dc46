#pragma once

namespace support {

/// A shared library loaded at run time, or the one of a program's own modules that is asked for; unloaded by Close() or
/// at the end.
class SHAREDMODULE {
public:
    /// Loads the library of this file. Where the system cannot find it IsLoaded() is false.
    explicit SHAREDMODULE(const char* file);
    ~SHAREDMODULE();
    SHAREDMODULE(const SHAREDMODULE&) = delete;
    SHAREDMODULE& operator=(const SHAREDMODULE&) = delete;

    [[nodiscard]] bool IsLoaded() const { return mHandle != nullptr; }
    void Close();
    /// The exported function or object of this name, or null.
    [[nodiscard]] void* Find(const char* name) const;

private:
    void* mHandle;
};

}  // namespace support
