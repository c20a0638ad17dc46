#pragma once

#include <MLCore/platform/Export.h>

#include <string>

namespace MLCore {

/// Builds a key path step by step, in the format that CKEYPARSER reads.
class MLCORE_API CKEYBUILDER {
public:
    /// Appends a name. Fails with kErrUnknownKey (151) when it is empty or holds ".", "[" or "]": no path can name such
    /// a key.
    void AddKey(const std::string& name);
    /// Appends an index: the path then leads to an element of the array that it led to before. Fails with
    /// kErrUnknownKey when the index is negative or above 2147483647.
    void AddIndex(long index);

    [[nodiscard]] const std::string& GetPath() const noexcept { return mPath; }

private:
    std::string mPath;
};

}  // namespace MLCore
