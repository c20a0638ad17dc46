#pragma once

#include <MLCore/platform/Export.h>

#include <string>

namespace MLCore {

/// Writes a key path step by step, in the form that CKEYPARSER reads.
class MLCORE_API CKEYBUILDER {
public:
    /// Appends a name. Fails with 151 when it is empty or holds ".", "[" or "]": no path can name such a key.
    void AddKey(const std::string& name);
    /// Appends the index of an element of what the path leads to so far. Fails with 151 when it is negative or above
    /// 2147483647.
    void AddIndex(long index);

    [[nodiscard]] const std::string& GetPath() const noexcept { return mPath; }

private:
    std::string mPath;
};

}  // namespace MLCore
