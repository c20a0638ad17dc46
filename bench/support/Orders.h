/// The records that are filtered and sorted, the same for everybody.
#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/datetime/CDATE.h>
#include <MLCore/predicates/CPREDICATE.h>
#include <MLCore/values/CDICTIONARY.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace bench {

struct ORDER {
    std::int32_t row;
    std::string client, city;
    double amount;
    MLCore::CDATE date;
    std::int32_t quantity;
    bool active;
};

/// Always the same ones: 20,000 clients in 500 cities, amounts up to 10,000, quantities below 200, the years 2024 to
/// 2026.
[[nodiscard]] std::vector<ORDER> MakeOrders(std::size_t count);

/// The order under the keys row, client, city, amount, date, quantity and active, which is 0 or 1.
[[nodiscard]] MLCore::CSHAREOBJECTPTR<MLCore::CDICTIONARY> DictionaryOf(const ORDER& order);

/// What the orders are filtered by: more than kMinAmount and a client with A or a, or a quantity of 10 to 20.
[[nodiscard]] MLCore::CSHAREOBJECTPTR<MLCore::CPREDICATE> MakePredicate();
inline constexpr double kMinAmount = 8000;
/// The same by hand.
[[nodiscard]] inline bool IsWanted(const ORDER& plain) {
    return (plain.amount > kMinAmount && (plain.client[0] == 'A' || plain.client[0] == 'a')) ||
           (plain.quantity >= 10 && plain.quantity <= 20);
}

}  // namespace bench
