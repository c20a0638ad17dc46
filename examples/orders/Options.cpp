#include "Options.h"

#include <MLCore/datetime/CCALENDARBANQUEPORTOSTRATEGY.h>
#include <MLCore/datetime/CCALENDARBANQUESTRATEGY.h>
#include <MLCore/datetime/CCALENDARFRENCHSTRATEGY.h>
#include <MLCore/datetime/CCALENDARPORTOSTRATEGY.h>
#include <MLCore/predicates/CSORTDESCRIPTOR.h>
#include <MLCore/predicates/CSORTDESCRIPTORBUILDER.h>
#include <MLCore/text/CodePage1252.h>
#include <MLCore/text/DoubleText.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <system_error>

#include "Record.h"
#include "Selection.h"

namespace orders {

namespace {

using namespace MLCore;

template <class STRATEGY>
CSHAREOBJECTPTR<CCALENDARSTRATEGY> Create() {
    return STRATEGY::Create();
}

// The first one is the default.
constexpr CALENDARCHOICE kCalendars[] = {
    {"french", Create<CCALENDARFRENCHSTRATEGY>},
    {"bank", Create<CCALENDARBANQUESTRATEGY>},
    {"portuguese", Create<CCALENDARPORTOSTRATEGY>},
    {"portuguese-bank", Create<CCALENDARBANQUEPORTOSTRATEGY>},
};

const CALENDARCHOICE* ReadCalendar(const std::string& text) {
    const auto* const found = std::find_if(std::begin(kCalendars), std::end(kCalendars),
                                           [&text](const CALENDARCHOICE& choice) { return choice.name == text; });
    if (found == std::end(kCalendars)) {
        throw USAGEERROR("unknown calendar \"" + text + '"');
    }
    return found;
}

int ReadDays(const std::string& text) {
    int days = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, days);
    if (error != std::errc() || stop != end || days < 0) {
        throw USAGEERROR('"' + text + "\" is no number of days");
    }
    return days;
}

// FromString() finds a date in nearly anything; what it found must be what was written.
CDATE ReadDate(const std::string& text) {
    CDATE date;
    std::string digits = text;
    std::erase(digits, '/');
    if (date.FromString(text.c_str()) == 0 || (date.ToStringXML() != text && date.ToString() != digits)) {
        throw USAGEERROR('"' + text + "\" is no date");
    }
    return date;
}

double ReadAmount(const std::string& text) {
    double amount = 0;
    if (!AMOUNT().FromText(text) || ParseDouble(text, amount) == 0) {
        throw USAGEERROR('"' + text + "\" is no amount");
    }
    return amount;
}

// Arguments are UTF-8 or, on Windows, already in the code page of the file.
std::string ReadText(const std::string& text) {
    int lost = 0;
    const std::string ansi = AnsiFromUtf8(text, &lost);
    return lost == 0 ? ansi : text;
}

std::string ReadSort(const std::string& text) {
    const auto descriptors = CSORTDESCRIPTORBUILDER::Create(text);
    for (const CSORTDESCRIPTOR* const descriptor : ElementsOf<CSORTDESCRIPTOR>(*descriptors)) {
        if (const std::string fault = FaultOfKey(descriptor->GetKey()); !fault.empty()) {
            throw USAGEERROR("--sort: " + fault);
        }
    }
    return text;
}

struct OPTION {
    std::string_view name;
    std::string_view value;  // what the help calls it; empty: the option takes none
    std::string_view help;
    void (*apply)(OPTIONS& options, const std::string& value);
    bool selects = false;
};
constexpr bool kSelects = true;

constexpr OPTION kOptions[] = {
    {"--calendar", "NAME", "french (the default), bank, portuguese or portuguese-bank",
     [](OPTIONS& options, const std::string& value) { options.calendar = ReadCalendar(value); }},
    {"--late", "N", "list, or select, the orders that took more than N business days (4)",
     [](OPTIONS& options, const std::string& value) { options.late = ReadDays(value); }},
    {"--from", "DATE", "leave out what was ordered before: 2016-01-31, 31/01/2016, 31012016",
     [](OPTIONS& options, const std::string& value) { options.from = ReadDate(value); }},
    {"--to", "DATE", "leave out what was ordered after",
     [](OPTIONS& options, const std::string& value) { options.to = ReadDate(value); }},
    {"--all", "", "list every order, late or not",
     [](OPTIONS& options, const std::string&) { options.listsAll = true; }},
    {"--select", "", "--segment Corporate --sales 500 --late 3 --name a; options behind it change that",
     [](OPTIONS& options, const std::string&) {
         options.segment = "Corporate";
         options.sales = 500;
         options.late = 3;
         options.name = std::string(1, 'a');
     },
     kSelects},
    {"--segment", "NAME", "select the orders of a segment",
     [](OPTIONS& options, const std::string& value) { options.segment = ReadText(value); }, kSelects},
    {"--sales", "AMOUNT", "select the orders of more than AMOUNT",
     [](OPTIONS& options, const std::string& value) { options.sales = ReadAmount(value); }, kSelects},
    {"--name", "TEXT", "select the orders of customers whose name begins with TEXT",
     [](OPTIONS& options, const std::string& value) { options.name = ReadText(value); }, kSelects},
    {"--filter", "FILE", "select the orders that meet the filter in FILE",
     [](OPTIONS& options, const std::string& value) { options.filter = value; }, kSelects},
    {"--save", "FILE", "write these conditions to FILE, as a filter",
     [](OPTIONS& options, const std::string& value) { options.save = value; }, kSelects},
    {"--sort", "KEYS", "sort what is selected by keys: +customer;-sales (the default)",
     [](OPTIONS& options, const std::string& value) { options.sort = ReadSort(value); }, kSelects},
    {"--report", "FILE", "write the orders with their totals to FILE too, as CSV",
     [](OPTIONS& options, const std::string& value) { options.report = value; }},
    {"--rejects", "FILE", "keep the lines that cannot be read in FILE, to be mended and read again",
     [](OPTIONS& options, const std::string& value) { options.rejects = value; }},
    {"--log", "FILE", "log the run to FILE: what was read and written, each line that cannot be read",
     [](OPTIONS& options, const std::string& value) { options.log = value; }},
    {"--progress", "", "show on the error output how far the file has been read",
     [](OPTIONS& options, const std::string&) { options.showsProgress = true; }},
    {"--help", "", "show this text", [](OPTIONS& options, const std::string&) { options.wantsHelp = true; }},
};

const OPTION& FindOption(const std::string& name) {
    const auto* const found = std::find_if(std::begin(kOptions), std::end(kOptions),
                                           [&name](const OPTION& option) { return option.name == name; });
    if (found == std::end(kOptions)) {
        throw USAGEERROR("unknown option " + name);
    }
    return *found;
}

void ReadFile(OPTIONS& options, const std::string& argument) {
    if (!options.file.empty()) {
        throw USAGEERROR("more than one file: " + argument);
    }
    options.file = argument;
}

// Whether both are one file, or would be.
bool IsSameFile(const std::string& left, const std::string& right) {
    std::error_code none;
    const auto place = [&none](const std::string& path) {
        return std::filesystem::weakly_canonical(std::filesystem::absolute(path, none), none);
    };
    return !left.empty() && !right.empty() &&
           (std::filesystem::equivalent(left, right, none) || place(left) == place(right));
}

void Check(const OPTIONS& options) {
    if (options.wantsHelp) {
        return;
    }
    if (options.file.empty()) {
        throw USAGEERROR("no file given");
    }
    if (options.selects && options.listsAll) {
        throw USAGEERROR("--all is not for selected orders");
    }
    if (options.to < options.from) {
        throw USAGEERROR("--to is before --from");
    }
    const std::string* const files[] = {&options.file,   &options.filter,  &options.save,
                                        &options.report, &options.rejects, &options.log};
    for (const auto* file = std::begin(files); file != std::end(files); ++file) {
        if (std::any_of(file + 1, std::end(files), [file](const auto* other) { return IsSameFile(**file, *other); })) {
            throw USAGEERROR("one file cannot be read and written, or written twice");
        }
    }
}

}  // namespace

OPTIONS ReadOptions(const std::vector<std::string>& arguments) {
    OPTIONS options;
    options.calendar = &kCalendars[0];
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (!argument->starts_with('-')) {
            ReadFile(options, *argument);
            continue;
        }
        const OPTION& option = FindOption(*argument);
        if (!option.value.empty() && ++argument == arguments.end()) {
            throw USAGEERROR(std::string(option.name) + " needs a value");
        }
        option.apply(options, *argument);
        options.selects |= option.selects;
    }
    Check(options);
    return options;
}

std::string HelpText() {
    constexpr std::size_t kWidth = 18;
    std::string text =
        "usage: orders FILE [OPTION...]\n"
        "Reports on a file of order lines: how many business days passed from order to\n"
        "shipping, and what was sold in each month and quarter. With an option from --select\n"
        "to --sort, tells instead which orders meet all of these conditions.\n\n";
    for (const OPTION& option : kOptions) {
        std::string line = "  ";
        line.append(option.name).append(" ").append(option.value);
        line.resize(std::max(line.size(), kWidth), ' ');
        text.append(line).append(" ").append(option.help).append("\n");
    }
    return text;
}

}  // namespace orders
