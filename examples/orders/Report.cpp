#include "Report.h"

#include <MLCore/datetime/Periods.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <tuple>

#include "Amount.h"
#include "Table.h"

namespace orders {

namespace {

using namespace MLCore;

constexpr auto kLeft = TABLE::ALIGN::Left;
constexpr auto kRight = TABLE::ALIGN::Right;

struct SHIPMENT {
    const ORDER* order;
    std::int32_t businessDays;
};

std::vector<SHIPMENT> CountBusinessDays(const std::vector<ORDER>& orders, CCALENDARSTRATEGY* calendar) {
    std::vector<SHIPMENT> shipments;
    shipments.reserve(orders.size());
    for (const ORDER& order : orders) {
        shipments.push_back({&order, order.ordered.ComputeDaysOuvre(order.shipped, calendar)});
    }
    return shipments;
}

struct TOTALS {
    std::uint64_t orders = 0;
    std::uint64_t lines = 0;
    AMOUNT sales;
    AMOUNT profit;

    void Add(const ORDER& order) {
        ++orders;
        lines += order.lines;
        sales += order.sales;
        profit += order.profit;
    }
};

// A part of a whole in percent, rounded to a tenth.
std::string Share(std::uint64_t part, std::uint64_t whole) {
    const std::uint64_t tenths = whole > 0 ? (part * 1000 + whole / 2) / whole : 0;
    return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + " %";
}

std::string Span(const CDATE& first, const CDATE& last) { return first.ToStringXML() + " to " + last.ToStringXML(); }

// The period from the first to the last date of the orders.
std::string Covered(const std::vector<ORDER>& orders, CDATE ORDER::*date) {
    const auto [first, last] =
        std::minmax_element(orders.begin(), orders.end(),
                            [date](const ORDER& left, const ORDER& right) { return left.*date < right.*date; });
    return orders.empty() ? "none" : Span((*first).*date, (*last).*date);
}

void WriteTitle(std::ostream& out, const std::string& title) { out << '\n' << title << '\n'; }

void WriteTable(std::ostream& out, const TABLE& table) {
    out << '\n';
    table.Write(out);
}

void WriteHead(std::ostream& out, const std::vector<ORDER>& orders, const OPTIONS& options) {
    TOTALS all;
    for (const ORDER& order : orders) {
        all.Add(order);
    }
    TABLE table = {{"Orders", kLeft}, {std::filesystem::path(options.file).filename().string(), kLeft}};
    table.AddRow({"lines", GroupThousands(all.lines)});
    table.AddRow({"orders", GroupThousands(all.orders)});
    table.AddRow({"calendar", std::string(options.calendar->name)});
    if (options.from > CDATE::Null()) {
        table.AddRow({"from", options.from.ToStringXML()});
    }
    if (options.to < CDATE::Max()) {
        table.AddRow({"to", options.to.ToStringXML()});
    }
    table.AddRow({"ordered", Covered(orders, &ORDER::ordered)});
    table.AddRow({"shipped", Covered(orders, &ORDER::shipped)});
    table.Write(out);
}

// The latest first.
void WriteShipments(std::ostream& out, std::vector<SHIPMENT> shipments) {
    std::sort(shipments.begin(), shipments.end(), [](const SHIPMENT& left, const SHIPMENT& right) {
        return std::tie(right.businessDays, left.order->ordered, left.order->id) <
               std::tie(left.businessDays, right.order->ordered, right.order->id);
    });
    TABLE table = {
        {"Order", kLeft}, {"Customer", kLeft}, {"Ordered", kLeft}, {"Shipped", kLeft}, {"Business days", kRight}};
    for (const auto& [order, businessDays] : shipments) {
        table.AddRow({order->id, order->customer, order->ordered.ToStringXML(), order->shipped.ToStringXML(),
                      std::to_string(businessDays)});
    }
    WriteTable(out, table);
}

void WriteLists(std::ostream& out, const std::vector<SHIPMENT>& shipments, const OPTIONS& options) {
    std::vector<SHIPMENT> late;
    std::copy_if(shipments.begin(), shipments.end(), std::back_inserter(late),
                 [&options](const SHIPMENT& shipment) { return shipment.businessDays > options.late; });
    const std::string count = GroupThousands(late.size()) + " of " + GroupThousands(shipments.size()) + ", " +
                              Share(late.size(), shipments.size());
    WriteTitle(out, "Orders that took more than " + std::to_string(options.late) + " business days: " + count);
    if (!late.empty()) {
        WriteShipments(out, late);
    }
    if (options.listsAll) {
        WriteTitle(out, "All orders");
        WriteShipments(out, shipments);
    }
}

void WriteDistribution(std::ostream& out, const std::vector<SHIPMENT>& shipments) {
    constexpr std::uint64_t kLongestBar = 40;
    std::map<std::int32_t, std::uint64_t> counts;
    std::uint64_t most = 1;
    for (const SHIPMENT& shipment : shipments) {
        most = std::max(most, ++counts[shipment.businessDays]);
    }
    WriteTitle(out, "Business days from order to shipping");
    TABLE table = {{"Days", kRight}, {"Orders", kRight}, {"Share", kRight}, {"", kLeft}};
    for (const auto& [days, count] : counts) {
        std::string bar;
        for (std::uint64_t i = 0; i < (count * kLongestBar + most - 1) / most; ++i) {
            bar += "\u2588";
        }
        table.AddRow({std::to_string(days), GroupThousands(count), Share(count, shipments.size()), bar});
    }
    WriteTable(out, table);
}

struct PERIODKIND {
    std::string_view title;
    CDATE::eTypeEchelonnement type;
    std::string (*name)(const CDATE& first);
};

constexpr PERIODKIND kPeriodKinds[] = {
    {"Month", CDATE::EchelonMonth, [](const CDATE& first) { return first.ToStringXML().substr(0, 7); }},
    {"Quarter", CDATE::EchelonTrimestre,
     [](const CDATE& first) {
         return first.ToStringXML().substr(0, 4) + " Q" + std::to_string(first.GetTrimestreNumber());
     }},
};

void AddTotals(TABLE& table, const std::string& name, const std::string& span, const TOTALS& totals) {
    table.AddRow({name, span, GroupThousands(totals.orders), GroupThousands(totals.lines), totals.sales.ToText(),
                  totals.profit.ToText()});
}

void WriteTotals(std::ostream& out, const std::vector<ORDER>& orders, const PERIODKIND& kind) {
    std::map<CDATE, TOTALS> periods;
    TOTALS all;
    for (const ORDER& order : orders) {
        periods[FirstDateEchelonnement(order.ordered, kind.type)].Add(order);
        all.Add(order);
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
    AddTotals(table, "all", "", all);
    WriteTable(out, table);
}

}  // namespace

void WriteReport(std::ostream& out, const std::vector<ORDER>& orders, const OPTIONS& options) {
    const auto calendar = options.calendar->create();
    const std::vector<SHIPMENT> shipments = CountBusinessDays(orders, calendar);
    WriteHead(out, orders, options);
    WriteLists(out, shipments, options);
    WriteDistribution(out, shipments);
    for (const PERIODKIND& kind : kPeriodKinds) {
        WriteTotals(out, orders, kind);
    }
}

}  // namespace orders
