#include <MLCore/predicates/SortArray.h>

#include <MLCore/core/FailureChecks.h>
#include <MLCore/predicates/CSORTDESCRIPTOR.h>
#include <MLCore/predicates/detail/SORTCOLUMN.h>
#include <MLCore/predicates/detail/SortOrder.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/Elements.h>

#include <algorithm>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace MLCore {

namespace {

/// An element while it is sorted: most comparisons need nothing else, and stay in the cache.
struct ENTRY {
    std::uint64_t lead;  // of the first key
    std::size_t place;

    auto operator<=>(const ENTRY&) const = default;
};

std::vector<ENTRY> SortedEntries(std::size_t count, const std::vector<SORTCOLUMN>& columns) {
    std::vector<ENTRY> entries;
    entries.reserve(count);
    for (std::size_t place = 0; place < count; ++place) {
        entries.push_back({columns.empty() ? 0 : columns.front().LeadOf(place), place});
    }
    // By the leads alone first, in memory that lies together; then those that are left equal.
    std::ranges::sort(entries);
    const auto isBefore = [&columns](const ENTRY& a, const ENTRY& b) {
        for (const SORTCOLUMN& column : columns) {
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

SORTRULE RuleOf(std::string_view key, std::span<const SORTRULE> rules) {
    for (const std::string_view wanted : {key, std::string_view()}) {
        const auto found = std::ranges::find(rules, wanted, &SORTRULE::key);
        if (found != rules.end()) {
            return *found;
        }
    }
    return {};
}

}  // namespace

CSHAREOBJECTPTR<CARRAY> SortArray(CARRAY* array, CARRAY* order, CVALUEOBJECT::ComparisonOption option) {
    return SortArray(array, order, std::span<const SORTRULE>(), option);
}

CSHAREOBJECTPTR<CARRAY> SortArray(CARRAY* array, CARRAY* order, std::span<const SORTRULE> rules,
                                  CVALUEOBJECT::ComparisonOption option) {
    Require(array != nullptr, kErrNull, "the array to sort is null");
    const Elements descriptors = order != nullptr ? DescriptorsOf(*order) : Elements();
    Elements elements = ElementsOf(*array);
    std::vector<SORTCOLUMN> columns;
    columns.reserve(descriptors.size());
    for (const CSHAREOBJECTPTR<COBJECT>& element : descriptors) {
        const auto& descriptor = static_cast<const CSORTDESCRIPTOR&>(*element);
        columns.emplace_back(elements, descriptor, RuleOf(descriptor.GetKey(), rules), option);
    }

    Elements sorted;
    sorted.reserve(elements.size());
    for (const ENTRY& entry : SortedEntries(elements.size(), columns)) {
        sorted.push_back(std::move(elements[entry.place]));
    }
    return CMEMARRAY::Create(std::move(sorted));
}

}  // namespace MLCore
