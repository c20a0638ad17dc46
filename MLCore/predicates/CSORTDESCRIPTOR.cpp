#include <MLCore/predicates/CSORTDESCRIPTOR.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(CSORTDESCRIPTOR)

CSORTDESCRIPTOR::CSORTDESCRIPTOR(const std::string& key, SortOrderType type) : mKey(key), mType(type) {}

CSORTDESCRIPTOR::~CSORTDESCRIPTOR() = default;

CSHAREOBJECTPTR<CSORTDESCRIPTOR> CSORTDESCRIPTOR::Create(const std::string& key, SortOrderType type) {
    return AdoptObject(new CSORTDESCRIPTOR(key, type));
}

const CSORTDESCRIPTOR::SortOrderType& CSORTDESCRIPTOR::GetSortOrderType() const noexcept { return mType; }

const std::string& CSORTDESCRIPTOR::GetKey() const noexcept { return mKey; }

bool operator==(const CSORTDESCRIPTOR& a, const CSORTDESCRIPTOR& b) noexcept {
    return a.GetKey() == b.GetKey() && a.GetSortOrderType() == b.GetSortOrderType();
}

}  // namespace MLCore
