// Texts of sort orders, against the rules character by character.
#include <MLCore/predicates/CSORTDESCRIPTOR.h>
#include <MLCore/predicates/CSORTDESCRIPTORBUILDER.h>
#include <MLCore/predicates/SortDescriptors.h>

#include "Input.h"

namespace {

using namespace MLCore;
using namespace fuzz;

/// "+key" or "-key" for each descriptor, with ";" behind.
std::string TextOf(CARRAY& order) {
    std::string text;
    for (COBJECT* const each : order) {
        const auto& descriptor = dynamic_cast<const CSORTDESCRIPTOR&>(*each);
        text += descriptor.GetSortOrderType() == CSORTDESCRIPTOR::SortOrderType::Descending ? '-' : '+';
        text += descriptor.GetKey() + ';';
    }
    return text;
}

/// The same by the rules, character by character.
std::string Expected(std::string text) {
    std::string all, key;
    char sign = '+';
    for (const char character : text += ';') {
        if (character == ';') {
            key.erase(key.find_last_not_of(' ') + 1);
            if (!key.empty()) all += sign + key + ';';
            key.clear(), sign = '+';
        } else if (!key.empty() || (character != ' ' && character != '+' && character != '-')) {
            key += character;
        } else if (character != ' ') {
            sign = character;
        }
    }
    return all;
}

/// No text fails, each gives the order that it tells, and that comes back from its own text.
void Property(INPUT input) {
    const std::string text = input.Rest(80);
    const auto order = CSORTDESCRIPTORBUILDER::Create(text);
    const std::string own = TextOf(*order);
    FUZZ_REQUIRE(own == Expected(text));
    FUZZ_REQUIRE(CmpSortDescriptors(CSORTDESCRIPTORBUILDER::Create(own), order) != 0);
    const auto reversed = ReverseSortDescriptors(order);
    FUZZ_REQUIRE(CmpSortDescriptors(ReverseSortDescriptors(reversed), order) != 0);
    FUZZ_REQUIRE((CmpSortDescriptors(reversed, order) != 0) == own.empty());
    // In two halves that meet between segments it is the same.
    const std::size_t middle = std::min(text.find(';', text.size() / 2), text.size());
    CSORTDESCRIPTORBUILDER builder(text.substr(0, middle));
    FUZZ_REQUIRE(CmpSortDescriptors(builder << text.substr(middle), order) != 0);
}

const TARGET kTarget("SortText", Property);

}  // namespace
