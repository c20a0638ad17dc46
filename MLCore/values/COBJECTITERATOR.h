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
/// An iterator keeps its collection alive, and the collection may change meanwhile. In an array the iterator stands on an
/// index, whatever object is there now: inserting or removing in front of it shifts the elements under it. In dictionaries
/// and sets it stands on its element, and when that is removed, on the one that follows; Next() then goes to that one. No
/// remaining element is left out, nor one that is added behind before the end is reached: who adds one at each step never
/// comes to an end.
class MLCORE_API COBJECTITERATOR : public CITERATOR {
public:
    ~COBJECTITERATOR() override;

    /// The element, which may be null in arrays and dictionaries. Null at the end.
    [[nodiscard]] virtual CSHAREOBJECTPTR<COBJECT> GetCurrent() const = 0;
};

}  // namespace MLCore
