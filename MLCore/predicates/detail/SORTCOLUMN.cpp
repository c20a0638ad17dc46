#include <MLCore/predicates/detail/SORTCOLUMN.h>

#include <MLCore/core/ExactClass.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/platform/WinTypes.h>
#include <MLCore/text/LegacyStrings.h>
#include <MLCore/values/TolerantComparison.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <iterator>
#include <utility>

namespace MLCore {

namespace {

using OPTION = CVALUEOBJECT::ComparisonOption;
using COMPARISON = CVALUEOBJECT::ComparisonType;

constexpr std::uint64_t kSign = std::uint64_t{1} << 63;

/// In the order of the numbers; a NaN comes first.
std::uint64_t OrderOfNumber(double number) noexcept {
    if (std::isnan(number)) {
        return 0;
    }
    const auto bits = std::bit_cast<std::uint64_t>(number + 0.0);  // no -0.0
    return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

double NumberOfOrder(std::uint64_t order) noexcept {
    return std::bit_cast<double>((order & kSign) != 0 ? order & ~kSign : ~order);
}

/// The first bytes of a text or a GUID, in the order of all the bytes.
std::uint64_t FirstBytes(const void* bytes, std::size_t length) noexcept {
    const auto* const first = static_cast<const unsigned char*>(bytes);
    std::uint64_t order = 0;
    for (std::size_t i = 0; i < sizeof(order); ++i) {
        order = order << 8 | (i < length ? first[i] : 0U);
    }
    return order;
}

bool AreNullsFirst(SORTRULE::Nulls nulls, bool isDescending) noexcept {
    return nulls == SORTRULE::Nulls::First || (nulls != SORTRULE::Nulls::Last && !isDescending);
}

}  // namespace

SORTCOLUMN::SORTCOLUMN(const Elements& elements, const CSORTDESCRIPTOR& descriptor, const SORTRULE& rule, OPTION option)
    : mName(descriptor.GetKey()),
      mOption(option),
      mIsDescending(descriptor.GetSortOrderType() == CSORTDESCRIPTOR::SortOrderType::Descending),
      mHasNullsFirst(AreNullsFirst(rule.nulls, mIsDescending)) {
    mKeys.reserve(elements.size());
    for (const CSHAREOBJECTPTR<COBJECT>& element : elements) {
        const CSHAREOBJECTPTR<COBJECT> value = !element ? nullptr : element->GetKeyPathValue(mName);
        Add(value);
    }
    if (mKind == ValueKind::Number) {
        GroupNumbers();
    } else if (mKind == ValueKind::Text) {
        PrepareTexts(rule.texts);
    }
}

std::uint64_t SORTCOLUMN::LeadOf(std::size_t place) const {
    const SORTKEY& key = mKeys[place];
    if (!key.hasValue) {
        return mHasNullsFirst ? 0 : ~std::uint64_t{0};
    }
    return mIsDescending ? ~key.order : key.order;
}

void SORTCOLUMN::ReadNumber(SORTKEY& key, CVALUEOBJECT& value) {
    key.order = OrderOfNumber(NumberOf(value.GetValue()));
}

void SORTCOLUMN::ReadDate(SORTKEY& key, CVALUEOBJECT& value) {
    const CDATETIME date = DateTimeOf(value.GetValue());
    const auto unsignedOf = [](std::int32_t number) { return static_cast<std::uint32_t>(number) ^ 0x80000000U; };
    key.order =
        std::uint64_t{unsignedOf(date.GetDate().ToLDate())} << 32 | unsignedOf(date.GetTime().GetTotalSeconds());
}

void SORTCOLUMN::ReadText(SORTKEY& key, CVALUEOBJECT& value) { key.value = &value; }

void SORTCOLUMN::ReadGuid(SORTKEY& key, CVALUEOBJECT& value) {
    const _GUID guid = value.GetValue().ToGuid();
    key.order = FirstBytes(&guid, sizeof(guid));
    key.value = &value;
}

void SORTCOLUMN::Add(COBJECT* object) {
    static constexpr READ kReaders[] = {nullptr, ReadNumber, ReadDate, ReadText, ReadGuid};
    static_assert(std::size(kReaders) == kValueKindCount);
    if (object == nullptr) {
        mKeys.emplace_back();
        return;
    }
    CVALUEOBJECT* const value = AsValueObject(object);
    if (value == nullptr) {
        FailWith(kErrValueType, "the key ", Quoted(mName), " of element ", mKeys.size(), " to sort is a ",
                 object->GetClassName(), ", wanted a value object");
    }
    const CVALUE::Type type = value->GetValue().GetType();
    if (type != CVALUE::Type::Unknown) {
        RequireKind(type);
        SORTKEY& key = mKeys.emplace_back();
        kReaders[static_cast<std::size_t>(mKind)](key, *value);
        key.hasValue = true;
    } else {
        mKeys.emplace_back();
    }
}

void SORTCOLUMN::RequireKind(CVALUE::Type type) {
    const ValueKind kind = KindOf(type);
    if (mKind == ValueKind::Unordered) {
        mKind = kind;
    }
    if (kind == ValueKind::Unordered || kind != mKind) {
        FailWith(kErrValueType, "the key ", Quoted(mName), " of element ", mKeys.size(), " to sort is ",
                 CVALUE::DescribeType(type), ", wanted ",
                 mKind == ValueKind::Unordered ? "a value that has an order" : DescribeKind(mKind));
    }
}

/// Gives all numbers of a group the order of its least one.
void SORTCOLUMN::GroupNumbers() {
    std::vector<std::pair<std::uint64_t, SORTKEY*>> numbers;
    for (SORTKEY& key : mKeys) {
        if (key.hasValue && key.order != OrderOfNumber(std::nan(""))) {
            numbers.emplace_back(key.order, &key);
        }
    }
    const auto isWhole = [](const auto& number) {
        return std::trunc(NumberOfOrder(number.first)) == NumberOfOrder(number.first);
    };
    if (std::ranges::all_of(numbers, isWhole)) {
        return;  // each is a group
    }
    std::ranges::sort(numbers);
    std::uint64_t least = numbers.front().first;
    for (const auto& [order, key] : numbers) {
        if (DoubleCmp(NumberOfOrder(order), NumberOfOrder(least)) > 0) {
            least = order;
        }
        key->order = least;
    }
}

void SORTCOLUMN::PrepareTexts(SORTRULE::Texts texts) {
    const auto isPlain = [](const SORTKEY& key) {
        return !key.value || IsExactly<CVALUEOBJECT>(*key.value);  // a derived class may compare in its own way
    };
    if (texts == SORTRULE::Texts::ByTable) {
        mTextOrder = CompareNoCaseByTable;
    } else if (texts == SORTRULE::Texts::Naturally) {
        mTextOrder = CompareNaturally;
    } else if (std::ranges::all_of(mKeys, isPlain)) {
        mTextOrder = TextOrderOf(mOption);
    }
    mIsByBytes = mTextOrder == TextOrderOf(OPTION::CaseSensitive);
    if (!mIsByBytes) {
        return;
    }
    // Texts that compare by their bytes have the order of the first ones.
    for (SORTKEY& key : mKeys) {
        if (!!key.value) {
            const char* const text = key.value->GetValue();
            const std::size_t length = std::strlen(text);
            key.order = FirstBytes(text, length);
            key.value = length < sizeof(key.order) ? nullptr : key.value;  // the end is among them
        }
    }
}

int SORTCOLUMN::CompareValues(const CVALUEOBJECT& a, const CVALUEOBJECT& b) const {
    const CVALUE& other = b.GetValue();
    if (mTextOrder != nullptr) {
        return mTextOrder(a.GetValue(), other);
    }
    return a.Cmp(other, COMPARISON::Greater, mOption) - a.Cmp(other, COMPARISON::Lesser, mOption);
}

}  // namespace MLCore
