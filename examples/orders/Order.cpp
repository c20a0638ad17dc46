#include "Order.h"

#include <MLCore/datetime/CCALENDARSTRATEGY.h>
#include <MLCore/values/CMEMARRAY.h>

#include <unordered_map>

namespace orders {

using namespace MLCore;

MLCORE_REGISTER_CLASS(CORDER)
MLCORE_REGISTER_CLASS(CSHIPMENT)

PROPERTIES CORDER::Properties() {
    constexpr bool kMayLack = true;
    static constexpr PROPERTY kProperties[] = {
        {"row", &CORDER::row, kMayLack},
        {"order", &CORDER::order},
        {"orderDate", &CORDER::orderDate},
        {"shipDate", &CORDER::shipDate},
        {"shipMode", &CORDER::shipMode, kMayLack},
        {"customerId", &CORDER::customerId, kMayLack},
        {"customer", &CORDER::customer},
        {"segment", &CORDER::segment, kMayLack},
        {"country", &CORDER::country, kMayLack},
        {"city", &CORDER::city, kMayLack},
        {"state", &CORDER::state, kMayLack},
        {"postalCode", &CORDER::postalCode, kMayLack},
        {"region", &CORDER::region, kMayLack},
        {"productId", &CORDER::productId, kMayLack},
        {"category", &CORDER::category, kMayLack},
        {"subCategory", &CORDER::subCategory, kMayLack},
        {"product", &CORDER::product, kMayLack},
        {"sales", &CORDER::sales},
        {"quantity", &CORDER::quantity, kMayLack},
        {"discount", &CORDER::discount, kMayLack},
        {"profit", &CORDER::profit},
    };
    return kProperties;
}

PROPERTIES CSHIPMENT::Properties() {
    static constexpr PROPERTY kProperties[] = {
        {"order", &CSHIPMENT::order},       {"customer", &CSHIPMENT::customer},
        {"segment", &CSHIPMENT::segment},   {"orderDate", &CSHIPMENT::orderDate},
        {"shipDate", &CSHIPMENT::shipDate}, {"businessDays", &CSHIPMENT::businessDays},
        {"lines", &CSHIPMENT::lines},       {"sales", &CSHIPMENT::sales},
        {"profit", &CSHIPMENT::profit},
    };
    return kProperties;
}

CSHAREOBJECTPTR<CARRAY> JoinLines(const CARRAY& lines, CCALENDARSTRATEGY* calendar) {
    auto shipments = CMEMARRAY::Create();
    std::unordered_map<std::string, CSHAREOBJECTPTR<CSHIPMENT>> found;
    for (CORDER* const line : ElementsOf<CORDER>(lines)) {
        CSHAREOBJECTPTR<CSHIPMENT>& shipment = found[line->order];
        if (!shipment) {
            shipment = CSHIPMENT::Create();
            for (const char* const key : {"order", "customer", "segment", "orderDate", "shipDate"}) {
                shipment->SetKeyValue(key, line->GetKeyValue(key));
            }
            shipment->businessDays = line->orderDate.ComputeDaysOuvre(line->shipDate, calendar);
            shipments->AddObject(shipment);
        }
        ++shipment->lines;
        shipment->sales += line->sales;
        shipment->profit += line->profit;
    }
    return shipments;
}

}  // namespace orders
