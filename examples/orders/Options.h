/// The command line.
#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/datetime/CCALENDARSTRATEGY.h>
#include <MLCore/datetime/CDATE.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace orders {

/// A business calendar that the user can choose.
struct CALENDARCHOICE {
    std::string_view name;
    MLCore::CSHAREOBJECTPTR<MLCore::CCALENDARSTRATEGY> (*create)();
};

struct OPTIONS {
    std::string file;
    std::string input;   // the file when no other is named
    std::string report;  // empty: no such file; the same holds for the others
    std::string rejects;
    std::string log;
    const CALENDARCHOICE* calendar = nullptr;  // ReadOptions() sets one
    MLCore::CDATE from;                        // without limits: from the null date, which sorts first, to MaxDate
    MLCore::CDATE to = MLCore::CDATE::MaxDate();
    std::optional<int> late;  // business days; an order that takes more is late
    bool listsAll = false;
    bool showsProgress = false;
    std::string (*answer)() = nullptr;  // makes the text that is written instead of a report

    bool selects = false;  // list the orders that meet the following conditions, instead of the late ones
    std::string segment;   // empty: any
    std::optional<double> sales;
    std::string name;  // the customer's begins with it
    std::string filter;
    std::string save;
    std::string sort = "+customer;-sales";
};

/// A command line that cannot be understood.
class USAGEERROR : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads the arguments after the program's name: options, as "--late 3" or "--late=3", and the file. If an option is
/// given twice, the last one counts. Throws a USAGEERROR.
[[nodiscard]] OPTIONS ReadOptions(const std::vector<std::string>& arguments);

}  // namespace orders
