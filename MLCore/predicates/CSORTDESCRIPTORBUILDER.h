#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/platform/Export.h>
#include <MLCore/values/CARRAY.h>

#include <string>
#include <string_view>

namespace MLCore {

/// Makes a sort order from texts.
///
///     SortArray(orders, CSORTDESCRIPTORBUILDER::Create("+customer; -sales"));
///
///     text    = segment *( ";" segment )
///     segment = *" " [ sign *" " ] [ key ] *" "      sign = "+" (ascending, also without a sign) / "-" (descending)
///
/// A key keeps the spaces inside it, and signs that are not before it. Of several signs the last one counts. A segment
/// without a key gives no descriptor. No text fails.
class MLCORE_API CSORTDESCRIPTORBUILDER {
public:
    CSORTDESCRIPTORBUILDER();
    explicit CSORTDESCRIPTORBUILDER(const std::string& text);
    /// A copy has its own list of the same descriptors.
    CSORTDESCRIPTORBUILDER(const CSORTDESCRIPTORBUILDER& other);
    /// Leaves `other` with an empty list.
    CSORTDESCRIPTORBUILDER(CSORTDESCRIPTORBUILDER&& other);
    CSORTDESCRIPTORBUILDER& operator=(CSORTDESCRIPTORBUILDER other) noexcept;
    ~CSORTDESCRIPTORBUILDER();

    /// Appends the descriptors of a further text.
    CSORTDESCRIPTORBUILDER& operator<<(const std::string& text);

    /// The list, never null; borrowed. Descriptors that are appended later appear in it.
    operator CARRAY*() const noexcept { return mDescriptors; }

    [[nodiscard]] static CSHAREOBJECTPTR<CARRAY> Create(const std::string& text);

private:
    void AppendSegment(std::string_view segment);

    CSHAREOBJECTPTR<CARRAY> mDescriptors;
};

}  // namespace MLCore
