#include <MLCore/predicates/SortArray.h>

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/platform/WinTypes.h>
#include <MLCore/predicates/CSORTDESCRIPTOR.h>
#include <MLCore/predicates/detail/OPERAND.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/Cmp.h>
#include <MLCore/values/Elements.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <typeinfo>
#include <utility>
#include <vector>

namespace MLCore {

namespace {

using OPTION = CVALUEOBJECT::ComparisonOption;
using COMPARISON = CVALUEOBJECT::ComparisonType;

/// One element's value for one key.
struct SORTKEY {
    std::uint64_t order = 0;              // decides, where it differs; 0 for null
    bool hasValue = false;                // decides next
    CSHAREOBJECTPTR<CVALUEOBJECT> value;  // decides otherwise; null where `order` tells all
};

/// The conversions of value objects, which only derived classes reach.
struct CONVERSION : CVALUEOBJECT {
    using CVALUEOBJECT::TryToDateTime;
    using CVALUEOBJECT::TryToDouble;
};

constexpr std::uint64_t kSign = std::uint64_t{1} << 63;

/// In the order of the numbers; a NaN comes first.
std::uint64_t OrderOf(double number) noexcept {
    if (std::isnan(number)) {
        return 0;
    }
    const auto bits = std::bit_cast<std::uint64_t>(number + 0.0);  // no -0.0
    return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

double NumberOf(std::uint64_t order) noexcept {
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

// Each fails with 138 for a value of another kind.
using READ = void (*)(SORTKEY& key, CVALUEOBJECT& value);

void ReadNumber(SORTKEY& key, CVALUEOBJECT& value) { key.order = OrderOf(CONVERSION::TryToDouble(value.GetValue())); }

void ReadDate(SORTKEY& key, CVALUEOBJECT& value) {
    const CDATETIME date = CONVERSION::TryToDateTime(value.GetValue());
    const auto unsignedOf = [](std::int32_t number) { return static_cast<std::uint32_t>(number) ^ 0x80000000U; };
    key.order =
        std::uint64_t{unsignedOf(date.GetDate().ToLDate())} << 32 | unsignedOf(date.GetTime().GetTotalSeconds());
}

void ReadText(SORTKEY& key, CVALUEOBJECT& value) {
    FailOSErr(value.GetValue().GetType() == CVALUE::Type::String ? short{0} : kErrValueType);
    key.value = &value;
}

void ReadGuid(SORTKEY& key, CVALUEOBJECT& value) {
    const _GUID guid = value.GetValue().ToGuid();
    key.order = FirstBytes(&guid, sizeof(guid));
    key.value = &value;
}

/// By the type of a key's first value, from Unknown to Guid; null for a type that has no order.
constexpr READ kReaders[] = {nullptr,  ReadNumber, ReadNumber, ReadNumber, ReadNumber, ReadDate, ReadNumber,
                             ReadText, ReadNumber, ReadNumber, ReadDate,   ReadNumber, nullptr,  ReadGuid};

/// The values of all elements for one key.
class COLUMN {
public:
    COLUMN(const Elements& elements, const CSORTDESCRIPTOR& descriptor, OPTION option)
        : mIsDescending(descriptor.GetSortOrderType() == CSORTDESCRIPTOR::SortOrderType::Descending), mOption(option) {
        mKeys.reserve(elements.size());
        for (const CSHAREOBJECTPTR<COBJECT>& element : elements) {
            const CSHAREOBJECTPTR<COBJECT> value = !element ? nullptr : element->GetKeyPathValue(descriptor.GetKey());
            Add(value);
        }
        if (mRead == ReadNumber) {
            GroupNumbers();
        } else if (mRead == ReadText) {
            BeginTexts();
        }
    }

    /// Where these differ, the lesser one comes first.
    [[nodiscard]] std::uint64_t LeadOf(std::size_t place) const {
        return mIsDescending ? ~mKeys[place].order : mKeys[place].order;
    }
    [[nodiscard]] int Compare(std::size_t a, std::size_t b) const {
        const int order = Order(mKeys[a], mKeys[b]);
        return mIsDescending ? -order : order;
    }

private:
    void Add(COBJECT* object) {
        SORTKEY& key = mKeys.emplace_back();
        if (object == nullptr) {
            return;
        }
        CVALUEOBJECT* const value = ValueObject(object);
        FailOSErr(value != nullptr ? short{0} : kErrValueType);
        if (value->GetValue().IsNull() != 0) {
            return;
        }
        if (mRead == nullptr) {
            mRead = kReaders[static_cast<std::size_t>(value->GetValue().GetType())];
            FailOSErr(mRead != nullptr ? short{0} : kErrValueType);
        }
        mRead(key, *value);
        key.hasValue = true;
    }

    /// Gives all numbers of a group the order of its least one.
    void GroupNumbers() {
        std::vector<std::pair<std::uint64_t, SORTKEY*>> numbers;
        for (SORTKEY& key : mKeys) {
            if (key.hasValue && key.order != OrderOf(std::nan(""))) {
                numbers.emplace_back(key.order, &key);
            }
        }
        const auto isWhole = [](const auto& number) {
            return std::trunc(NumberOf(number.first)) == NumberOf(number.first);
        };
        if (std::ranges::all_of(numbers, isWhole)) {
            return;  // each is a group
        }
        std::ranges::sort(numbers);
        std::uint64_t least = numbers.front().first;
        for (const auto& [order, key] : numbers) {
            if (DoubleCmp(NumberOf(order), NumberOf(least)) > 0) {
                least = order;
            }
            key->order = least;
        }
    }

    /// Where texts compare by their bytes, gives them the order of the first ones.
    void BeginTexts() {
        const auto isPlain = [](const SORTKEY& key) {
            const CVALUEOBJECT* const value = key.value;  // a derived class may compare in its own way
            return value == nullptr || typeid(*value) == typeid(CVALUEOBJECT);
        };
        if (mOption == OPTION::CaseInsensitive || mOption == OPTION::DiacriticInsensitive ||
            !std::ranges::all_of(mKeys, isPlain)) {
            return;
        }
        mIsByBytes = true;
        for (SORTKEY& key : mKeys) {
            if (!!key.value) {
                const char* const text = key.value->GetValue();
                const std::size_t length = std::strlen(text);
                key.order = FirstBytes(text, length);
                key.value = length < sizeof(key.order) ? nullptr : key.value;  // the end is among them
            }
        }
    }

    [[nodiscard]] int Order(const SORTKEY& a, const SORTKEY& b) const {
        if (a.order != b.order) {
            return a.order < b.order ? -1 : 1;
        }
        if (a.hasValue != b.hasValue) {
            return a.hasValue ? 1 : -1;
        }
        if (!a.value || !b.value) {
            return 0;
        }
        const CVALUE& other = b.value->GetValue();
        if (mIsByBytes) {
            return std::strcmp(a.value->GetValue(), other);
        }
        return a.value->Cmp(other, COMPARISON::Greater, mOption) - a.value->Cmp(other, COMPARISON::Lesser, mOption);
    }

    std::vector<SORTKEY> mKeys;
    READ mRead = nullptr;  // null until there is a value
    bool mIsByBytes = false;
    bool mIsDescending;
    OPTION mOption;
};

/// An element while it is sorted: most comparisons need nothing else, and stay in the cache.
struct ENTRY {
    std::uint64_t lead;  // of the first key
    std::size_t place;

    auto operator<=>(const ENTRY&) const = default;
};

std::vector<ENTRY> SortedEntries(std::size_t count, const std::vector<COLUMN>& columns) {
    std::vector<ENTRY> entries;
    entries.reserve(count);
    for (std::size_t place = 0; place < count; ++place) {
        entries.push_back({columns.empty() ? 0 : columns.front().LeadOf(place), place});
    }
    // By the leads alone first, in memory that lies together; then those that are left equal.
    std::ranges::sort(entries);
    const auto isBefore = [&columns](const ENTRY& a, const ENTRY& b) {
        for (const COLUMN& column : columns) {
            if (const int relation = column.Compare(a.place, b.place)) {
                return relation < 0;
            }
        }
        return false;
    };
    for (auto begin = entries.begin(); begin != entries.end();) {
        const auto end =
            std::find_if(begin + 1, entries.end(), [begin](const ENTRY& e) { return e.lead != begin->lead; });
        if (end - begin > 1) {
            std::stable_sort(begin, end, isBefore);
        }
        begin = end;
    }
    return entries;
}

Elements DescriptorsOf(const CARRAY& order) {
    Elements descriptors = ElementsOf(order);
    for (const CSHAREOBJECTPTR<COBJECT>& element : descriptors) {
        FailOSErr(dynamic_cast<const CSORTDESCRIPTOR*>(element.Get()) != nullptr ? short{0} : kErrBadCast);
    }
    return descriptors;
}

}  // namespace

CSHAREOBJECTPTR<CARRAY> SortArray(CARRAY* array, CARRAY* order, OPTION option) {
    FailNull(array);
    const Elements descriptors = order != nullptr ? DescriptorsOf(*order) : Elements();
    Elements elements = ElementsOf(*array);
    std::vector<COLUMN> columns;
    for (const CSHAREOBJECTPTR<COBJECT>& descriptor : descriptors) {
        columns.emplace_back(elements, static_cast<const CSORTDESCRIPTOR&>(*descriptor), option);
    }

    Elements sorted;
    sorted.reserve(elements.size());
    for (const ENTRY& entry : SortedEntries(elements.size(), columns)) {
        sorted.push_back(std::move(elements[entry.place]));
    }
    return CMEMARRAY::Create(std::move(sorted));
}

}  // namespace MLCore
