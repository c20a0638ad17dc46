#pragma once

#include <MLCore/platform/Export.h>

namespace MLCore {

/// A position in a collection. It belongs to the caller of the function that made it, who deletes it.
class MLCORE_API CITERATOR {
public:
    virtual ~CITERATOR();
    CITERATOR(const CITERATOR&) = delete;
    CITERATOR& operator=(const CITERATOR&) = delete;

    /// Goes to the next element; does nothing at the end.
    virtual void Next() = 0;
    /// 1 when there is no further element.
    [[nodiscard]] virtual int IsEnd() const = 0;

protected:
    CITERATOR() = default;
};

}  // namespace MLCore
