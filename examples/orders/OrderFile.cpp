#include "OrderFile.h"

#include <MLCore/values/CMEMARRAY.h>

#include <unordered_map>

#include "Order.h"
#include "RecordFile.h"
#include "Text.h"

namespace orders {

using namespace MLCore;

namespace {

// The first line of each order.
using FIRSTLINES = std::unordered_map<std::string, CSHAREOBJECTPTR<CORDER>>;

// The fault of a line, or "".
std::string FaultOf(CORDER& line, FIRSTLINES& firstLines) {
    if (line.shipDate < line.orderDate) {
        return "shipped before it was ordered";
    }
    const CORDER& first = *firstLines.try_emplace(line.order, &line).first->second;
    if (line.orderDate != first.orderDate || line.shipDate != first.shipDate || line.customer != first.customer) {
        return "order " + ToReadable(line.order) + " has another date or customer on an earlier line";
    }
    return {};
}

}  // namespace

CSHAREOBJECTPTR<CARRAY> ReadOrders(const std::string& path, REJECTS& rejects, const PROGRESS& progress) {
    return ForFile(path, "read", [&] {
        auto lines = CMEMARRAY::Create();
        FIRSTLINES firstLines;
        RECORDREADER reader(path, CORDER::Properties(), rejects);
        for (auto line = CORDER::Create(); reader.Read(*line); line = CORDER::Create()) {
            const std::string fault = FaultOf(*line, firstLines);
            fault.empty() ? lines->AddObject(line) : reader.Reject(fault);
            progress(reader.GetPercent());
        }
        rejects.Close();
        return lines;
    });
}

}  // namespace orders
