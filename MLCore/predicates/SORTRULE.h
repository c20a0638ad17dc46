#pragma once

#include <cstdint>
#include <string_view>

namespace MLCore {

/// How SortArray() orders the values of one key, whatever the direction of that key.
///
///     constexpr SORTRULE kRules[] = {
///         {.key = "number", .texts = SORTRULE::Texts::Naturally},  // "Facture 2" before "Facture 10"
///         {.key = "paid", .nulls = SORTRULE::Nulls::Last},         // open invoices at the end
///     };
///     const auto sorted = SortArray(invoices, CSORTDESCRIPTORBUILDER::Create("paid;-number"), kRules);
struct SORTRULE {
    /// How texts compare. An unknown value counts as the first one, here and for Nulls.
    enum class Texts : std::int32_t {
        ByOption,   ///< as value objects compare them under the option of the sort; CaseInsensitive may ask the system
        ByTable,    ///< CompareNoCaseByTable(): as a dictionary, without case, and the same on every system
        Naturally,  ///< CompareNaturally(): by the table too, and numbers inside texts by their value
    };
    /// The place of elements whose value is null.
    enum class Nulls : std::int32_t {
        Least,  ///< first in an ascending order, last in a descending one
        First,
        Last,
    };

    std::string_view key = {};  ///< the key path of a sort descriptor; "" for every key without a rule
    Texts texts = Texts::ByOption;
    Nulls nulls = Nulls::Least;
};

}  // namespace MLCore
