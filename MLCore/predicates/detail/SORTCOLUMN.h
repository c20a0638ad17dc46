#pragma once

#include <MLCore/predicates/CSORTDESCRIPTOR.h>
#include <MLCore/predicates/SORTRULE.h>
#include <MLCore/values/Elements.h>
#include <MLCore/values/ValueComparison.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace MLCore {

/// The values of all elements for one key of a sort order, and their order.
class SORTCOLUMN {
public:
    /// Asks each element for its value. Fails as SortArray() does.
    SORTCOLUMN(const Elements& elements, const CSORTDESCRIPTOR& descriptor, const SORTRULE& rule,
               CVALUEOBJECT::ComparisonOption option);

    /// Where these numbers of two elements differ, the element with the lesser one comes first.
    [[nodiscard]] std::uint64_t LeadOf(std::size_t place) const;
    /// Below 0 when the element at the place `a` comes first, above 0 when the other does, else 0.
    [[nodiscard]] int Compare(std::size_t a, std::size_t b) const;

private:
    /// One element's value.
    struct SORTKEY {
        std::uint64_t order = 0;              // decides, where it differs
        bool hasValue = false;                // not null
        CSHAREOBJECTPTR<CVALUEOBJECT> value;  // decides otherwise; null where `order` says all
    };
    /// Fills `key` from a value of one kind.
    using READ = void (*)(SORTKEY& key, CVALUEOBJECT& value);

    static void ReadNumber(SORTKEY& key, CVALUEOBJECT& value);
    static void ReadDate(SORTKEY& key, CVALUEOBJECT& value);
    static void ReadText(SORTKEY& key, CVALUEOBJECT& value);
    static void ReadGuid(SORTKEY& key, CVALUEOBJECT& value);

    void Add(COBJECT* object);
    void RequireKind(CVALUE::Type type);
    void GroupNumbers();
    void PrepareTexts(SORTRULE::Texts texts);
    /// Of two values of one `order`, ascending.
    [[nodiscard]] int CompareValues(const CVALUEOBJECT& a, const CVALUEOBJECT& b) const;

    std::vector<SORTKEY> mKeys;
    const std::string& mName;
    ValueKind mKind = ValueKind::Unordered;  // until there is a value
    TextOrder mTextOrder = nullptr;          // null where the value objects are asked
    CVALUEOBJECT::ComparisonOption mOption;
    bool mIsByBytes = false;  // texts compare so, sooner than by mTextOrder
    bool mIsDescending;
    bool mHasNullsFirst;
};

inline int SORTCOLUMN::Compare(std::size_t a, std::size_t b) const {
    const SORTKEY& x = mKeys[a];
    const SORTKEY& y = mKeys[b];
    if (x.hasValue != y.hasValue) {
        return x.hasValue == mHasNullsFirst ? 1 : -1;
    }
    if (x.order != y.order) {
        return (x.order < y.order) == mIsDescending ? 1 : -1;
    }
    if (!x.value || !y.value) {
        return 0;
    }
    const int order =
        mIsByBytes ? std::strcmp(x.value->GetValue(), y.value->GetValue()) : CompareValues(*x.value, *y.value);
    return mIsDescending ? -order : order;
}

}  // namespace MLCore
