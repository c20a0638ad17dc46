/// The command line.
#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/datetime/CCALENDARSTRATEGY.h>
#include <MLCore/datetime/CDATE.h>

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
    std::string report;              // empty: no such file
    std::string rejects;             // empty: no such file
    const CALENDARCHOICE* calendar;  // never null
    int late = 4;                    // business days that are still in time
    MLCore::CDATE from;              // without limits: from the null date, which sorts first, to MaxDate
    MLCore::CDATE to = MLCore::CDATE::MaxDate();
    bool listsAll = false;
    bool showsProgress = false;
    bool wantsHelp = false;
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
