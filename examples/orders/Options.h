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

/// A business calendar that can be asked for.
struct CALENDARCHOICE {
    std::string_view name;
    MLCore::CSHAREOBJECTPTR<MLCore::CCALENDARSTRATEGY> (*create)();
};

struct OPTIONS {
    std::string file;
    std::string report;  // empty: no such file, as for the others
    std::string rejects;
    std::string log;
    const CALENDARCHOICE* calendar = nullptr;  // ReadOptions() sets one
    MLCore::CDATE from;                        // without limits: from the null date, which sorts first, to MaxDate
    MLCore::CDATE to = MLCore::CDATE::MaxDate();
    std::optional<int> late;  // business days that are still in time
    bool listsAll = false;
    bool showsProgress = false;
    bool wantsHelp = false;

    bool selects = false;  // list the orders that meet what follows, instead of the late ones
    std::string segment;   // empty: any
    std::optional<double> sales;
    std::string name;  // the begin of the customer's
    std::string filter;
    std::string save;
    std::string sort = "+customer;-sales";
};

/// A command line that cannot be understood.
class USAGEERROR : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads the arguments behind the program's name. Throws a USAGEERROR.
[[nodiscard]] OPTIONS ReadOptions(const std::vector<std::string>& arguments);

[[nodiscard]] std::string HelpText();

}  // namespace orders
