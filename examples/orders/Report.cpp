#include "Report.h"

#include <MLCore/datetime/Periods.h>
#include <MLCore/predicates/CPREDICATEHELPER.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "Journal.h"
#include "Order.h"
#include "RecordFile.h"
#include "Selection.h"
#include "Table.h"
#include "Text.h"

namespace orders {

namespace {

using namespace MLCore;

constexpr auto kLeft = TABLE::ALIGN::Left;
constexpr auto kRight = TABLE::ALIGN::Right;

using SHIPMENTS = std::vector<CSHIPMENT*>;

long CountOf(const SHIPMENTS& shipments) { return static_cast<long>(shipments.size()); }

struct TOTALS {
    long orders = 0;
    long lines = 0;
    AMOUNT sales;
    AMOUNT profit;

    void Add(const CSHIPMENT& shipment) {
        ++orders;
        lines += shipment.lines;
        sales += shipment.sales;
        profit += shipment.profit;
    }
};

// A part of a whole in percent, rounded to a tenth.
std::string Share(long long part, long long whole) {
    const long long tenths = whole > 0 ? (part * 1000 + whole / 2) / whole : 0;
    return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + " %";
}

std::string Span(const CDATE& first, const CDATE& last) { return first.ToStringXML() + " to " + last.ToStringXML(); }

// The period from the first to the last date of the shipments.
std::string Covered(const SHIPMENTS& shipments, CDATE CSHIPMENT::*date) {
    const auto [first, last] = std::minmax_element(
        shipments.begin(), shipments.end(),
        [date](const CSHIPMENT* left, const CSHIPMENT* right) { return left->*date < right->*date; });
    return shipments.empty() ? "none" : Span((*first)->*date, (*last)->*date);
}

void WriteTitle(std::ostream& out, const std::string& title) { out << '\n' << title << '\n'; }

void WriteTable(std::ostream& out, const TABLE& table) {
    out << '\n';
    table.Write(out);
}

TOTALS TotalsOf(const SHIPMENTS& shipments) {
    TOTALS totals;
    for (const CSHIPMENT* const shipment : shipments) {
        totals.Add(*shipment);
    }
    return totals;
}

void WriteHead(std::ostream& out, const SHIPMENTS& shipments, const OPTIONS& options) {
    TABLE table = {{"Orders", kLeft}, {std::filesystem::path(options.file).filename().string(), kLeft}};
    table.AddRow({"lines", GroupThousands(TotalsOf(shipments).lines)});
    table.AddRow({"orders", GroupThousands(CountOf(shipments))});
    table.AddRow({"calendar", std::string(options.calendar->name)});
    if (options.from > CDATE::Null()) {
        table.AddRow({"from", options.from.ToStringXML()});
    }
    if (options.to < CDATE::Max()) {
        table.AddRow({"to", options.to.ToStringXML()});
    }
    table.AddRow({"ordered", Covered(shipments, &CSHIPMENT::orderDate)});
    table.AddRow({"shipped", Covered(shipments, &CSHIPMENT::shipDate)});
    table.Write(out);
}

void WriteShipments(std::ostream& out, const SHIPMENTS& shipments) {
    TABLE table = {{"Order", kLeft},   {"Customer", kLeft},       {"Segment", kLeft}, {"Ordered", kLeft},
                   {"Shipped", kLeft}, {"Business days", kRight}, {"Sales", kRight}};
    for (const CSHIPMENT* const shipment : shipments) {
        table.AddRow({ToReadable(shipment->order), ToReadable(shipment->customer), ToReadable(shipment->segment),
                      shipment->orderDate.ToStringXML(), shipment->shipDate.ToStringXML(),
                      std::to_string(shipment->businessDays), GroupThousands(shipment->sales.ToText())});
    }
    WriteTable(out, table);
}

// "Late orders: 608 of 5,009, 12.1 %", and which.
void WritePart(std::ostream& out, const std::string& title, const SHIPMENTS& part, const SHIPMENTS& all) {
    WriteTitle(out, title + ": " + GroupThousands(CountOf(part)) + " of " + GroupThousands(CountOf(all)) + ", " +
                        Share(CountOf(part), CountOf(all)));
    if (!part.empty()) {
        WriteShipments(out, part);
    }
}

void WriteLists(std::ostream& out, CARRAY& shipments, const OPTIONS& options) {
    constexpr const char* kLatestFirst = "-businessDays;+orderDate;+order";
    const int days = options.late.value_or(4);
    const auto all = Select(shipments, nullptr, kLatestFirst);
    const auto late = Select(*all, IsLate(days), kLatestFirst);
    WritePart(out, "Orders that took more than " + std::to_string(days) + " business days",
              ElementsOf<CSHIPMENT>(*late), ElementsOf<CSHIPMENT>(*all));
    if (options.listsAll) {
        WriteTitle(out, "All orders");
        WriteShipments(out, ElementsOf<CSHIPMENT>(*all));
    }
}

// A predicate as the library writes it: as a query, by its keys, and as an outline with a tab for each level.
void WritePredicate(std::ostream& out, const CPREDICATE& predicate) {
    const CPREDICATEHELPER helper(&predicate);
    WriteTitle(out, "Query: " + ToReadable(helper.GetStrSQL()));
    out << "Keys:";
    for (const auto& key : helper.GetDistinctKeyExpressionKeys()) {
        out << ' ' << ToReadable(key.GetKey());
    }
    out << "\n\n";
    std::istringstream outline(helper.GetStr());
    for (std::string line; std::getline(outline, line);) {
        const std::size_t depth = std::min(line.find_first_not_of('\t'), line.size());
        out << std::string(2 * depth + 2, ' ') << ToReadable(line.substr(depth)) << '\n';
    }
}

void WriteDistribution(std::ostream& out, const SHIPMENTS& shipments) {
    constexpr long kLongestBar = 40;
    std::map<long, long> counts;
    long most = 1;
    for (const CSHIPMENT* const shipment : shipments) {
        most = std::max(most, ++counts[shipment->businessDays]);
    }
    WriteTitle(out, "Business days from order to shipping");
    TABLE table = {{"Days", kRight}, {"Orders", kRight}, {"Share", kRight}, {"", kLeft}};
    for (const auto& [days, count] : counts) {
        std::string bar;
        for (long i = 0; i < (count * kLongestBar + most - 1) / most; ++i) {
            bar += "\u2588";
        }
        table.AddRow({std::to_string(days), GroupThousands(count), Share(count, CountOf(shipments)), bar});
    }
    WriteTable(out, table);
}

struct PERIODKIND {
    std::string_view title;
    CDATE::eTypeEchelonnement type;
    std::string (*name)(const CDATE& first);
};

constexpr PERIODKIND kMonths = {"Month", CDATE::EchelonMonth,
                                [](const CDATE& first) { return first.ToStringXML().substr(0, 7); }};
constexpr PERIODKIND kQuarters = {"Quarter", CDATE::EchelonTrimestre, [](const CDATE& first) {
                                      return first.ToStringXML().substr(0, 4) + " Q" +
                                             std::to_string(first.GetTrimestreNumber());
                                  }};

void AddTotals(TABLE& table, const std::string& name, const std::string& span, const TOTALS& totals) {
    table.AddRow({name, span, GroupThousands(totals.orders), GroupThousands(totals.lines),
                  GroupThousands(totals.sales.ToText()), GroupThousands(totals.profit.ToText())});
}

void WriteTotals(std::ostream& out, const SHIPMENTS& shipments, const PERIODKIND& kind) {
    std::map<CDATE, TOTALS> periods;
    for (const CSHIPMENT* const shipment : shipments) {
        periods[FirstDateEchelonnement(shipment->orderDate, kind.type)].Add(*shipment);
    }
    TABLE table = {{std::string(kind.title), kLeft},
                   {"Ordered", kLeft},
                   {"Orders", kRight},
                   {"Lines", kRight},
                   {"Sales", kRight},
                   {"Profit", kRight}};
    for (const auto& [first, totals] : periods) {
        AddTotals(table, kind.name(first), Span(first, LastDateEchelonnement(first, kind.type)), totals);
    }
    AddTotals(table, "all", "", TotalsOf(shipments));
    WriteTable(out, table);
}

bool IsEqual(const CSHIPMENT& left, const CSHIPMENT& right) {
    const PROPERTIES properties = CSHIPMENT::Properties();
    return std::all_of(properties.begin(), properties.end(),
                       [&](const PROPERTY& property) { return left.GetText(property) == right.GetText(property); });
}

void CheckReadsBack(const std::string& path, const SHIPMENTS& shipments) {
    REJECTS rejects;
    RECORDREADER reader(path, CSHIPMENT::Properties(), rejects);
    const auto read = CSHIPMENT::Create();
    const bool isRead = std::all_of(shipments.begin(), shipments.end(), [&](const CSHIPMENT* shipment) {
        return reader.Read(*read) && IsEqual(*read, *shipment);
    });
    if (!isRead || reader.Read(*read) || rejects.GetCount() > 0) {
        throw std::runtime_error(path + ": does not read back as it was written");
    }
}

}  // namespace

void WriteReport(std::ostream& out, CARRAY& array, const OPTIONS& options) {
    const SHIPMENTS shipments = ElementsOf<CSHIPMENT>(array);
    WriteHead(out, shipments, options);
    WriteLists(out, array, options);
    WriteDistribution(out, shipments);
    WriteTotals(out, shipments, kMonths);
    WriteTotals(out, shipments, kQuarters);
}

void WriteSelection(std::ostream& out, const CARRAY& array, const CARRAY& selected, const CPREDICATE& filter,
                    const OPTIONS& options) {
    const SHIPMENTS shipments = ElementsOf<CSHIPMENT>(array);
    const SHIPMENTS part = ElementsOf<CSHIPMENT>(selected);
    WriteHead(out, shipments, options);
    WritePart(out, "Orders selected", part, shipments);
    WritePredicate(out, filter);
    WriteTotals(out, part, kQuarters);
}

void WriteReportFile(const std::string& path, const CARRAY& shipments) {
    ForFile(path, "written", [&] { WriteRecords(path, CSHIPMENT::Properties(), shipments); });
    AddWritten(path);
    ForFile(path, "read back", [&] { CheckReadsBack(path, ElementsOf<CSHIPMENT>(shipments)); });
}

}  // namespace orders
