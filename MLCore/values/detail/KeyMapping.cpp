#include <MLCore/values/detail/KeyMapping.h>

#include <MLCore/core/FailureChecks.h>
#include <MLCore/values/CMEMARRAY.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace MLCore {

namespace {

constexpr int kMaxLevels = 256;
thread_local int gLevels = 0;

// Collections may hold themselves.
class LEVEL {
public:
    LEVEL() {
        if (gLevels == kMaxLevels) {
            FailWith(kErrUnknownKey, "collections lie inside each other deeper than ", kMaxLevels,
                     " levels, or one holds itself");
        }
        ++gLevels;
    }
    ~LEVEL() { --gLevels; }
    LEVEL(const LEVEL&) = delete;
    LEVEL& operator=(const LEVEL&) = delete;
};

}  // namespace

CSHAREOBJECTPTR<COBJECT> MappedKeyValue(Elements elements, std::string key) {
    const LEVEL level;
    for (CSHAREOBJECTPTR<COBJECT>& element : elements) {
        if (!!element) {
            element = element->GetKeyValue(key);
        }
    }
    return CMEMARRAY::Create(std::move(elements));
}

void SetMappedKeyValue(const Elements& elements, std::string key, COBJECT* value) {
    const LEVEL level;
    const CARRAY* const array = dynamic_cast<CARRAY*>(value);
    if (array == nullptr) {
        FailWith(kErrNull, "the value for the key ", Quoted(key), " of the elements is ",
                 value != nullptr ? value->GetClassName() : "null", ", wanted an array");
    }
    const Elements values = ElementsOf(*array);
    if (values.size() < elements.size()) {
        FailWith(kErrUnknownKey, values.size(), " values for the key ", Quoted(key), " of ", elements.size(),
                 " elements");
    }
    if (const auto null = std::find(elements.begin(), elements.end(), nullptr); null != elements.end()) {
        FailWith(kErrUnknownKey, "element ", null - elements.begin(), " is null and cannot take the key ", Quoted(key));
    }
    for (std::size_t index = 0; index < elements.size(); ++index) {
        elements[index]->SetKeyValue(key, values[index]);
    }
}

}  // namespace MLCore
