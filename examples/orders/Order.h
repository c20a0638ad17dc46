/// The records of this program.
#pragma once

#include "Record.h"

namespace orders {

/// An order line: one line of the file that is reported on. Texts are in code page 1252, as in the file.
class CORDER : public CRECORD {
    MLCORE_CLASS(CORDER, CRECORD)
public:
    [[nodiscard]] static MLCore::CSHAREOBJECTPTR<CORDER> Create() { return MLCore::AdoptObject(new CORDER); }
    [[nodiscard]] static PROPERTIES Properties();
    [[nodiscard]] PROPERTIES GetProperties() const override { return Properties(); }

    long row = 0, quantity = 0;
    std::string order, shipMode, customerId, customer, segment, country, city, state, postalCode, region;
    std::string productId, category, subCategory, product;
    MLCore::CDATE orderDate, shipDate;
    AMOUNT sales, discount, profit;
};

/// An order: all its lines together.
class CSHIPMENT : public CRECORD {
    MLCORE_CLASS(CSHIPMENT, CRECORD)
public:
    [[nodiscard]] static MLCore::CSHAREOBJECTPTR<CSHIPMENT> Create() { return MLCore::AdoptObject(new CSHIPMENT); }
    [[nodiscard]] static PROPERTIES Properties();
    [[nodiscard]] PROPERTIES GetProperties() const override { return Properties(); }

    std::string order, customer, segment;
    MLCore::CDATE orderDate, shipDate;
    long businessDays = 0;  // from the order to shipping
    long lines = 0;
    AMOUNT sales, profit;
};

/// The CSHIPMENTs that an array of CORDERs makes, in the order of their first lines. The segment is that of the first
/// line.
[[nodiscard]] MLCore::CSHAREOBJECTPTR<MLCore::CARRAY> JoinLines(const MLCore::CARRAY& lines,
                                                                MLCore::CCALENDARSTRATEGY* calendar);

}  // namespace orders
