#include <MLCore/values/CSET.h>

#include <MLCore/core/FailureChecks.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/detail/KeyMapping.h>

namespace MLCore {

namespace {

void RequireSet(const CSET* other) { Require(other != nullptr, kErrNull, "the other set is null"); }

}  // namespace

MLCORE_REGISTER_CLASS(CSET)

CSET::~CSET() = default;

void CSET::AddObjects(CARRAY* objects) {
    Require(objects != nullptr, kErrNull, "the array of objects to add is null");
    for (const CSHAREOBJECTPTR<COBJECT>& object : ElementsOf(*objects)) {
        AddObject(object);
    }
}

int CSET::Contains(CSET* other) const {
    RequireSet(other);
    for (const CSHAREOBJECTPTR<COBJECT>& object : *other) {
        if (ContainsObject(object) == 0) {
            return 0;
        }
    }
    return 1;
}

int CSET::Intersects(CSET* other) const {
    RequireSet(other);
    for (const CSHAREOBJECTPTR<COBJECT>& object : *other) {
        if (ContainsObject(object) != 0) {
            return 1;
        }
    }
    return 0;
}

CSHAREOBJECTPTR<CARRAY> CSET::GetObjects() const { return CMEMARRAY::Create(ElementsOf(*this)); }

void CSET::Intersect(CSET* other) {
    RequireSet(other);
    for (const CSHAREOBJECTPTR<COBJECT>& object : ElementsOf(*this)) {
        if (other->ContainsObject(object) == 0) {
            RemoveObject(object);
        }
    }
}

void CSET::Union(CSET* other) {
    RequireSet(other);
    for (const CSHAREOBJECTPTR<COBJECT>& object : ElementsOf(*other)) {
        AddObject(object);
    }
}

void CSET::Substract(CSET* other) {
    RequireSet(other);
    for (const CSHAREOBJECTPTR<COBJECT>& object : ElementsOf(*other)) {
        RemoveObject(object);
    }
}

CSHAREOBJECTPTR<COBJECT> CSET::GetKeyValue(const std::string& key) { return MappedKeyValue(ElementsOf(*this), key); }

void CSET::SetKeyValue(const std::string& key, COBJECT* value) { SetMappedKeyValue(ElementsOf(*this), key, value); }

}  // namespace MLCore
