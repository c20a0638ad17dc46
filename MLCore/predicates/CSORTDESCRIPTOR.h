#pragma once

#include <MLCore/core/COBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/platform/Export.h>

#include <cstdint>
#include <string>

namespace MLCore {

/// One key of a sort order, and its direction. A descriptor does not change. A sort order is an array of descriptors,
/// and its first key decides first. CSORTDESCRIPTORBUILDER reads a sort order from a text, SortArray() applies it.
class MLCORE_API CSORTDESCRIPTOR : public COBJECT {
    MLCORE_CLASS(CSORTDESCRIPTOR, COBJECT)

public:
    enum class SortOrderType : std::int32_t {
        Ascending = 0,   ///< "+" in texts
        Descending = 1,  ///< "-"
    };

    /// `key` is a key path. It is not checked here.
    [[nodiscard]] static CSHAREOBJECTPTR<CSORTDESCRIPTOR> Create(const std::string& key, SortOrderType type);

    [[nodiscard]] virtual const SortOrderType& GetSortOrderType() const noexcept;
    [[nodiscard]] virtual const std::string& GetKey() const noexcept;

    CSORTDESCRIPTOR(const CSORTDESCRIPTOR&) = default;
    CSORTDESCRIPTOR& operator=(const CSORTDESCRIPTOR&) = delete;

protected:
    ~CSORTDESCRIPTOR() override;

private:
    CSORTDESCRIPTOR(const std::string& key, SortOrderType type);

    std::string mKey;
    SortOrderType mType;
};

/// The same key, byte by byte, and direction.
[[nodiscard]] MLCORE_API bool operator==(const CSORTDESCRIPTOR& a, const CSORTDESCRIPTOR& b) noexcept;

}  // namespace MLCore
