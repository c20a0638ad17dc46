#pragma once

#include <MLCore/core/COBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/platform/Export.h>
#include <MLCore/values/CITERATOR.h>

namespace MLCore {

/// Goes through the objects of a collection, starting on the first.
///
///     const std::unique_ptr<COBJECTITERATOR> each(orders->CreateIterator());
///     for (; each->IsEnd() == 0; each->Next()) {
///         Print(each->GetCurrent());
///     }
///     for (const CSHAREOBJECTPTR<COBJECT>& order : orders) ...  // the same, see ELEMENTCURSOR.h
///
/// An iterator keeps its collection alive, and the collection may change meanwhile. In an array the iterator keeps its
/// index: after an insertion or removal before it, it stands on another element. In dictionaries and sets it keeps its
/// element; when that is removed, it stands on the following one, and Next() stays there. It visits every remaining
/// element. It also visits every element that is added after it before it reaches the end, so a loop that adds an
/// element at each step does not end.
class MLCORE_API COBJECTITERATOR : public CITERATOR {
public:
    ~COBJECTITERATOR() override;

    /// The element, which may be null in arrays and dictionaries. Null at the end.
    [[nodiscard]] virtual CSHAREOBJECTPTR<COBJECT> GetCurrent() const = 0;
};

}  // namespace MLCore
