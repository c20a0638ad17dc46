#include "support/Orders.h"

#include <MLCore/predicates/BinaryPredicates.h>
#include <MLCore/predicates/CANDPREDICATE.h>
#include <MLCore/predicates/CCOMPARISONBETWEENPREDICATE.h>
#include <MLCore/predicates/CKEYEXPRESSION.h>
#include <MLCore/predicates/CORPREDICATE.h>
#include <MLCore/predicates/CVALUEEXPRESSION.h>
#include <MLCore/values/CMEMDICTIONARY.h>
#include <MLCore/values/CVALUEOBJECT.h>

#include <algorithm>
#include <random>

namespace bench {

using namespace MLCore;

namespace {

// std::uniform_int_distribution differs between libraries.
std::size_t Below(std::mt19937& random, std::size_t bound) { return random() % bound; }

std::string MakeName(std::mt19937& random) {
    std::string name(4 + Below(random, 12), ' ');
    std::generate(name.begin(), name.end(), [&random] { return static_cast<char>('a' + Below(random, 26)); });
    name[0] = static_cast<char>((Below(random, 2) == 0 ? 'a' : 'A') + Below(random, 26));
    return name;
}

std::vector<std::string> MakeNames(std::size_t count, std::mt19937& random) {
    std::vector<std::string> names(count);
    std::generate(names.begin(), names.end(), [&random] { return MakeName(random); });
    return names;
}

}  // namespace

std::vector<ORDER> MakeOrders(std::size_t count) {
    std::mt19937 random(11);
    const auto clients = MakeNames(20000, random);
    const auto cities = MakeNames(500, random);
    std::vector<ORDER> orders;
    orders.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        orders.push_back({static_cast<std::int32_t>(i), clients[Below(random, clients.size())],
                          cities[Below(random, cities.size())], static_cast<double>(Below(random, 1000000)) / 100,
                          CDATE(1, 1, 2024).AddDays(static_cast<long>(Below(random, 1000))),
                          static_cast<std::int32_t>(Below(random, 200)), Below(random, 2) == 0});
    }
    return orders;
}

CSHAREOBJECTPTR<CDICTIONARY> DictionaryOf(const ORDER& order) {
    const std::pair<const char*, CVALUE> values[] = {{"row", CVALUE(long{order.row})},
                                                     {"client", CVALUE(order.client)},
                                                     {"city", CVALUE(order.city)},
                                                     {"amount", CVALUE(order.amount)},
                                                     {"date", CVALUE(order.date)},
                                                     {"quantity", CVALUE(long{order.quantity})},
                                                     {"active", CVALUE(order.active ? 1 : 0)}};
    auto dictionary = CMEMDICTIONARY::Create();
    for (const auto& [key, value] : values) {
        dictionary->SetKeyValue(key, CVALUEOBJECT::Create(value));
    }
    return dictionary;
}

CSHAREOBJECTPTR<CPREDICATE> MakePredicate() {
    const auto key = [](const char* name) { return CKEYEXPRESSION::Create(name); };
    const auto value = [](const CVALUE& constant) { return CVALUEEXPRESSION::Create(constant); };
    return CORPREDICATE::Create(
        CANDPREDICATE::Create(
            CGREATERPREDICATE::Create(key("amount"), value(kMinAmount)),
            CBEGINSPREDICATE::Create(key("client"), value("A"), CVALUEOBJECT::ComparisonOption::CaseInsensitive)),
        CCOMPARISONBETWEENPREDICATE::Create(key("quantity"), value(10L), value(20L)));
}

}  // namespace bench
