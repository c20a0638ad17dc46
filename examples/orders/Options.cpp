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
        throw USAGEERROR('"' + text + "\" is not a calendar");
    }
    return found;
}

int ReadDays(const std::string& text) {
    int days = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, days);
    if (error != std::errc() || stop != end || days < 0) {
        throw USAGEERROR('"' + text + "\" is not a number of days");
    }
    return days;
}

// FromString() finds a date in nearly anything; the text must be a date and nothing else.
CDATE ReadDate(const std::string& text) {
    CDATE date;
    std::string digits = text;
    std::erase(digits, '/');
    if (date.FromString(text.c_str()) == 0 || (date.ToStringXML() != text && date.ToString() != digits)) {
        throw USAGEERROR('"' + text + "\" is not a date");
    }
    return date;
}

double ReadAmount(const std::string& text) {
    double amount = 0;
    if (!AMOUNT().FromText(text) || ParseDouble(text, amount) == 0) {
        throw USAGEERROR('"' + text + "\" is not an amount");
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
            throw USAGEERROR(fault);
        }
    }
    return text;
}

std::string HelpText();
std::string VersionText() { return "orders " MLCORE_VERSION "\n"; }

struct OPTION {
    std::string_view name;
    std::string_view value;  // its name in the help; empty: the option takes none
    std::string_view help;
    void (*apply)(OPTIONS& options, const std::string& value);
    bool selects = false;
    std::string_view shortName = {};
};
constexpr bool kSelects = true;

constexpr OPTION kOptions[] = {
    {"--calendar", "NAME", "french (the default), bank, portuguese or portuguese-bank",
     [](OPTIONS& options, const std::string& value) { options.calendar = ReadCalendar(value); }},
    {"--late", "N", "list, or select, the orders that took more than N business days (4)",
     [](OPTIONS& options, const std::string& value) { options.late = ReadDays(value); }},
    {"--from", "DATE", "leave out orders placed before DATE: 2016-01-31, 31/01/2016 or 31012016",
     [](OPTIONS& options, const std::string& value) { options.from = ReadDate(value); }},
    {"--to", "DATE", "leave out orders placed after DATE",
     [](OPTIONS& options, const std::string& value) { options.to = ReadDate(value); }},
    {"--all", "", "list every order, late or not",
     [](OPTIONS& options, const std::string&) { options.listsAll = true; }},
    {"--select", "", "--segment Corporate --sales 500 --late 3 --name a; later options change these",
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
    {"--sort", "KEYS", "sort the selected orders by keys: +customer;-sales (the default)",
     [](OPTIONS& options, const std::string& value) { options.sort = ReadSort(value); }, kSelects},
    {"--report", "FILE", "also write the orders with their totals to FILE, as CSV",
     [](OPTIONS& options, const std::string& value) { options.report = value; }},
    {"--rejects", "FILE", "keep the lines that cannot be read in FILE, to be corrected and read again",
     [](OPTIONS& options, const std::string& value) { options.rejects = value; }},
    {"--log", "FILE", "log the run to FILE: the files, and each line that cannot be read",
     [](OPTIONS& options, const std::string& value) { options.log = value; }},
    {"--input", "FILE", "the file to report on, unless one is named without an option",
     [](OPTIONS& options, const std::string& value) { options.input = value; }},
    {"--progress", "", "show on the error output how much of the file has been read",
     [](OPTIONS& options, const std::string&) { options.showsProgress = true; }},
    {"--help", "", "show this text", [](OPTIONS& options, const std::string&) { options.answer = HelpText; }, !kSelects,
     "-h"},
    {"--version", "", "show the version", [](OPTIONS& options, const std::string&) { options.answer = VersionText; }},
};

std::string HelpText() {
    constexpr std::size_t kWidth = 18;
    std::string text =
        "usage: orders FILE [OPTION...]\n"
        "Reports on a file of order lines: how many business days passed from order to\n"
        "shipping, and what was sold in each month and quarter. With an option from --select\n"
        "to --sort, lists instead the orders that meet all of these conditions.\n\n";
    for (const OPTION& option : kOptions) {
        std::string line = "  ";
        line.append(option.shortName).append(option.shortName.empty() ? "" : ", ");
        line.append(option.name).append(" ").append(option.value);
        line.resize(std::max(line.size(), kWidth), ' ');
        text.append(line).append(" ").append(option.help).append("\n");
    }
    return text;
}

const OPTION& FindOption(const std::string& name) {
    const auto* const found = std::find_if(std::begin(kOptions), std::end(kOptions), [&name](const OPTION& option) {
        return option.name == name || option.shortName == name;
    });
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

// Whether both paths lead to the same file, which may not exist yet.
bool IsSameFile(const std::string& left, const std::string& right) {
    std::error_code none;
    const auto place = [&none](const std::string& path) {
        return std::filesystem::weakly_canonical(std::filesystem::absolute(path, none), none);
    };
    return !left.empty() && !right.empty() &&
           (std::filesystem::equivalent(left, right, none) || place(left) == place(right));
}

void Check(const OPTIONS& options) {
    if (options.file.empty()) {
        throw USAGEERROR("no file given");
    }
    if (options.selects && options.listsAll) {
        throw USAGEERROR("--all cannot be used when orders are selected");
    }
    if (options.to < options.from) {
        throw USAGEERROR("--to is before --from");
    }
    const std::string* const files[] = {&options.file,   &options.filter,  &options.save,
                                        &options.report, &options.rejects, &options.log};
    for (const auto* file = std::begin(files); file != std::end(files); ++file) {
        if (std::any_of(file + 1, std::end(files), [file](const auto* other) { return IsSameFile(**file, *other); })) {
            throw USAGEERROR("the same file is given twice: " + **file);
        }
    }
}

using ARGUMENTS = std::vector<std::string>;

// Applies the option at `argument` and returns its last argument: a value may follow it, or stand in it after "=".
ARGUMENTS::const_iterator ReadOption(OPTIONS& options, ARGUMENTS::const_iterator argument,
                                     ARGUMENTS::const_iterator end) {
    const std::size_t sign = argument->find('=');
    const bool holdsValue = sign != std::string::npos;
    const OPTION& option = FindOption(argument->substr(0, sign));
    const std::string name(option.name);
    if (holdsValue && option.value.empty()) {
        throw USAGEERROR(name + " takes no value");
    }
    if (!holdsValue && !option.value.empty() && ++argument == end) {
        throw USAGEERROR(name + " needs a value");
    }
    try {
        option.apply(options, holdsValue ? argument->substr(sign + 1) : *argument);
    } catch (const USAGEERROR& error) {
        throw USAGEERROR(name + ": " + error.what());
    }
    options.selects |= option.selects;
    return argument;
}

}  // namespace

OPTIONS ReadOptions(const ARGUMENTS& arguments) {
    OPTIONS options;
    options.calendar = &kCalendars[0];
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (argument->starts_with('-')) {
            argument = ReadOption(options, argument, arguments.end());
        } else {
            ReadFile(options, *argument);
        }
    }
    if (options.file.empty()) {
        options.file = options.input;
    }
    if (options.answer == nullptr) {
        Check(options);
    }
    return options;
}

}  // namespace orders
