#include <MLCore/values/CVALUEOBJECT.h>

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/values/CARRAY.h>
#include <MLCore/values/CSET.h>
#include <MLCore/values/ComparisonWords.h>

#include <cstddef>
#include <iterator>
#include <ostream>
#include <utility>

namespace MLCore {

MLCORE_REGISTER_CLASS(CVALUEOBJECT)

namespace {

template <class COLLECTION, class TEST>
int AnyValueObject(const COLLECTION& collection, const TEST& test) {
    for (const CSHAREOBJECTPTR<COBJECT>& element : collection) {
        const CVALUEOBJECT* const object = AsValueObject(element.Get());
        if (object != nullptr && test(object->GetValue()) != 0) {
            return 1;
        }
    }
    return 0;
}

template <class TEST>
int AnyElement(const COBJECT* other, const TEST& test) {
    if (const auto* const array = dynamic_cast<const CARRAY*>(other)) {
        return AnyValueObject(*array, test);
    }
    const auto* const set = dynamic_cast<const CSET*>(other);
    return set != nullptr ? AnyValueObject(*set, test) : 0;
}

bool IsText(const CVALUE& value) noexcept { return value.GetType() == CVALUE::Type::String; }

}  // namespace

CVALUEOBJECT::CVALUEOBJECT(const CVALUE& value) : mValue(value) {}

CVALUEOBJECT::CVALUEOBJECT(CVALUE&& value) noexcept : mValue(std::move(value)) {}

CVALUEOBJECT::~CVALUEOBJECT() = default;

CSHAREOBJECTPTR<CVALUEOBJECT> CVALUEOBJECT::Create(const CVALUE& value) { return AdoptObject(new CVALUEOBJECT(value)); }

CSHAREOBJECTPTR<CVALUEOBJECT> CVALUEOBJECT::Create(CVALUE&& value) {
    return AdoptObject(new CVALUEOBJECT(std::move(value)));
}

int CVALUEOBJECT::Cmp(const CVALUE& other, ComparisonType type, ComparisonOption option) const {
    using COMPARISON = int (CVALUEOBJECT::*)(const CVALUE&, ComparisonOption) const;
    // By comparison type; null where two values do not answer.
    static constexpr COMPARISON kComparisons[] = {
        &CVALUEOBJECT::CmpLesser,
        &CVALUEOBJECT::CmpLesserEq,
        &CVALUEOBJECT::CmpGreater,
        &CVALUEOBJECT::CmpGreaterEq,
        &CVALUEOBJECT::CmpEqual,
        &CVALUEOBJECT::CmpNotEqual,
        &CVALUEOBJECT::CmpLike,
        &CVALUEOBJECT::CmpBegins,
        &CVALUEOBJECT::CmpEnds,
        nullptr,  // In
        &CVALUEOBJECT::CmpContains,
        nullptr,  // Between
    };
    static_assert(std::size(kComparisons) == kComparisonTypeCount);
    const auto index = static_cast<std::size_t>(type);
    const COMPARISON comparison = index < kComparisonTypeCount ? kComparisons[index] : nullptr;
    return comparison != nullptr ? (this->*comparison)(other, option) : 0;
}

int CVALUEOBJECT::Cmp(COBJECT* other, ComparisonType type, ComparisonOption option) const {
    if (const CVALUEOBJECT* const object = AsValueObject(other)) {
        return Cmp(object->mValue, type, option);
    }
    if (type == ComparisonType::In) {
        return AnyElement(other, [&](const CVALUE& element) { return CmpEqual(element, option); });
    }
    if (type == ComparisonType::Contains && IsText(mValue)) {
        return AnyElement(other,
                          [&](const CVALUE& element) { return IsText(element) ? CmpContains(element, option) : 0; });
    }
    return 0;
}

CVALUE ValueOf(const COBJECT* object) {
    const CVALUEOBJECT* const value = AsValueObject(object);
    if (value == nullptr) {
        FailWith(kErrValueType, "ValueOf() of ", object != nullptr ? object->GetClassName() : "null",
                 ", wanted a CVALUEOBJECT");
    }
    return value->GetValue();
}

bool operator==(const CVALUEOBJECT& object, const CVALUE& value) noexcept { return object.GetValue() == value; }

std::ostream& operator<<(std::ostream& out, CVALUEOBJECT::ComparisonType type) {
    const COMPARISONWORDS* const words = WordsOf(type);
    return words != nullptr ? out << words->dump : out;
}

std::ostream& operator<<(std::ostream& out, CVALUEOBJECT::ComparisonOption option) {
    const auto index = static_cast<std::size_t>(option);
    return index < std::size(kOptionWords) ? out << kOptionWords[index] : out;
}

std::ostream& operator<<(std::ostream& out, const CVALUEOBJECT* object) {
    return object != nullptr ? out << object->GetValue() : out << "CVALUEOBJECT()";
}

}  // namespace MLCore
