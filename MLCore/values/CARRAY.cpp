#include <MLCore/values/CARRAY.h>

#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/detail/KeyMapping.h>

#include <utility>

namespace MLCore {

namespace {

class ARRAYITERATOR final : public COBJECTITERATOR {
public:
    explicit ARRAYITERATOR(CARRAY* array) : mArray(array) {}

    void Next() override {
        if (IsEnd() == 0) {
            ++mIndex;
        }
    }
    int IsEnd() const override { return mIndex >= mArray->GetCount() ? 1 : 0; }
    CSHAREOBJECTPTR<COBJECT> GetCurrent() const override {
        return IsEnd() == 0 ? mArray->GetObjectAt(mIndex) : nullptr;
    }

private:
    CSHAREOBJECTPTR<CARRAY> mArray;
    long mIndex = 0;
};

}  // namespace

MLCORE_REGISTER_CLASS(CARRAY)

CARRAY::~CARRAY() = default;

int CARRAY::ExistObject(COBJECT* object) const { return GetObjectIndex(object) >= 0 ? 1 : 0; }

long CARRAY::GetObjectIndex(COBJECT* object) const {
    long index = 0;
    for (const CSHAREOBJECTPTR<COBJECT>& element : *this) {
        if (element == object) {
            return index;
        }
        ++index;
    }
    return -1;
}

// Being iterated is a matter of owners, not of the array's value.
COBJECTITERATOR* CARRAY::CreateIterator() const { return new ARRAYITERATOR(const_cast<CARRAY*>(this)); }

CSHAREOBJECTPTR<CARRAY> CARRAY::MakeArray(Elements elements) { return CMEMARRAY::Create(std::move(elements)); }

CSHAREOBJECTPTR<COBJECT> CARRAY::First() const { return GetCount() != 0 ? GetObjectAt(0) : nullptr; }

CSHAREOBJECTPTR<COBJECT> CARRAY::Last() const {
    const long count = GetCount();
    return count != 0 ? GetObjectAt(count - 1) : nullptr;
}

CSHAREOBJECTPTR<COBJECT> CARRAY::GetKeyValue(const std::string& key) { return MappedKeyValue(ElementsOf(*this), key); }

void CARRAY::SetKeyValue(const std::string& key, COBJECT* value) { SetMappedKeyValue(ElementsOf(*this), key, value); }

}  // namespace MLCore
