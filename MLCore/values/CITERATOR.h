#pragma once

#include <MLCore/platform/Export.h>

namespace MLCore {

/// A position in a collection. The caller of the function that made it owns it and deletes it.
class MLCORE_API CITERATOR {
public:
    virtual ~CITERATOR();
    CITERATOR(const CITERATOR&) = delete;
    CITERATOR& operator=(const CITERATOR&) = delete;

    /// Goes to the next element; does nothing at the end.
    virtual void Next() = 0;
    /// 1 when no element is left.
    [[nodiscard]] virtual int IsEnd() const = 0;

protected:
    CITERATOR() = default;
};

}  // namespace MLCore
