/// The records that are filtered and sorted, the same for everybody.
#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/datetime/CDATE.h>
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

/// Always the same ones: 20,000 clients in 500 cities, amounts up to 10,000, quantities below 200, the years 2024 to 2026.
[[nodiscard]] std::vector<ORDER> MakeOrders(std::size_t count);

/// The order under the keys row, client, city, amount, date, quantity and active, which is 0 or 1.
[[nodiscard]] MLCore::CSHAREOBJECTPTR<MLCore::CDICTIONARY> DictionaryOf(const ORDER& order);

}  // namespace bench
