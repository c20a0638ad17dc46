#include "OrderFile.h"

#include <MLCore/text/CodePage1252.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <utility>

#include "Csv.h"

namespace orders {

namespace {

using MLCore::CDATE;

using RECORD = std::vector<std::string>;

enum COLUMN : std::size_t { Id, Ordered, Shipped, Customer, Sales, Profit, ColumnCount };
constexpr std::array<std::string_view, ColumnCount> kColumns = {"order",    "orderDate", "shipDate",
                                                                "customer", "sales",     "profit"};

constexpr long kLinesBetweenProgress = 1000;

// Where the columns stand, and how many fields a record has.
struct HEADER {
    std::array<std::size_t, ColumnCount> places;
    std::size_t fieldCount;
};

HEADER ReadHeader(const RECORD& record) {
    HEADER header = {{}, record.size()};
    for (std::size_t column = 0; column < ColumnCount; ++column) {
        const auto found = std::find(record.begin(), record.end(), kColumns[column]);
        if (found == record.end()) {
            throw DATAERROR(1, "no column \"" + std::string(kColumns[column]) + '"');
        }
        header.places[column] = static_cast<std::size_t>(found - record.begin());
    }
    return header;
}

// For people to read: a control character could upset their terminal or their table. Those above 0x7F are the bytes that
// the code page leaves without a character.
std::string ToReadable(std::string text) {
    constexpr std::string_view kUnassigned = "\x7F\x81\x8D\x8F\x90\x9D";
    const auto isControl = [kUnassigned](char character) {
        return static_cast<unsigned char>(character) < 0x20 || kUnassigned.find(character) != std::string_view::npos;
    };
    std::replace_if(text.begin(), text.end(), isControl, ' ');
    return MLCore::Utf8FromAnsi(text);
}

// One order line, and where it comes from.
class LINE {
public:
    LINE(const HEADER& header, const RECORD& record, long number) : mHeader(header), mRecord(record), mNumber(number) {
        if (record.size() != header.fieldCount) {
            Fail(std::to_string(record.size()) + " fields instead of " + std::to_string(header.fieldCount));
        }
    }

    [[nodiscard]] ORDER Read() const {
        ORDER order = {.id = GetText(Id),
                       .customer = GetText(Customer),
                       .ordered = GetDate(Ordered),
                       .shipped = GetDate(Shipped),
                       .lines = 1,
                       .sales = GetAmount(Sales),
                       .profit = GetAmount(Profit)};
        if (order.shipped < order.ordered) {
            Fail("shipped before it was ordered");
        }
        return order;
    }

    [[noreturn]] void Fail(const std::string& text) const { throw DATAERROR(mNumber, text); }

private:
    [[nodiscard]] const std::string& GetField(COLUMN column) const { return mRecord[mHeader.places[column]]; }

    [[nodiscard]] std::string GetText(COLUMN column) const { return ToReadable(GetField(column)); }

    // The parsers of CDATE are lenient; a date that is not written back as it was read is a mistake here.
    [[nodiscard]] CDATE GetDate(COLUMN column) const {
        const std::string& text = GetField(column);
        CDATE date;
        if (date.FromStringXML(text.c_str()) == 0 || date.ToStringXML() != text) {
            FailField(column, "is no date YYYY-MM-DD");
        }
        return date;
    }

    [[nodiscard]] AMOUNT GetAmount(COLUMN column) const {
        AMOUNT amount;
        if (!amount.FromText(GetField(column))) {
            FailField(column, "is no amount");
        }
        return amount;
    }

    [[noreturn]] void FailField(COLUMN column, const std::string& text) const {
        constexpr std::size_t kMostShown = 40;
        const std::string& field = GetField(column);
        const std::string shown = ToReadable(field.substr(0, kMostShown)) + (field.size() > kMostShown ? "..." : "");
        Fail(std::string(kColumns[column]) + ": \"" + shown + "\" " + text);
    }

    const HEADER& mHeader;
    const RECORD& mRecord;
    long mNumber;
};

// Joins the lines of an order.
class COLLECTOR {
public:
    void Add(const LINE& line) {
        ORDER read = line.Read();
        const auto [found, isNew] = mPlaces.try_emplace(read.id, mOrders.size());
        if (isNew) {
            mOrders.push_back(std::move(read));
            return;
        }
        ORDER& order = mOrders[found->second];
        if (order.ordered != read.ordered || order.shipped != read.shipped || order.customer != read.customer) {
            line.Fail("order " + read.id + " has another date or customer on an earlier line");
        }
        order.lines += read.lines;
        order.sales += read.sales;
        order.profit += read.profit;
    }

    [[nodiscard]] std::vector<ORDER> Take() { return std::move(mOrders); }

private:
    std::vector<ORDER> mOrders;
    std::unordered_map<std::string, std::size_t> mPlaces;
};

// A pipe knows neither its place nor its size: 0.
int Percent(std::istream& file, std::uintmax_t size) {
    const std::streamoff place = file.tellg();
    return place > 0 && size > 0 ? static_cast<int>(static_cast<std::uintmax_t>(place) * 100 / size) : 0;
}

}  // namespace

std::vector<ORDER> ReadOrders(const std::string& path, const PROGRESS& progress) {
    std::ifstream file(path, std::ios::binary);
    if (!file || std::filesystem::is_directory(path)) {
        throw std::runtime_error("cannot be read");
    }
    std::error_code none;
    const std::uintmax_t size = std::filesystem::file_size(path, none);
    CSVREADER reader(file);
    COLLECTOR collector;
    RECORD record;
    if (!reader.ReadRecord(record)) {
        return {};
    }
    const HEADER header = ReadHeader(record);
    for (long count = 0; reader.ReadRecord(record); ++count) {
        collector.Add(LINE(header, record, reader.GetLine()));
        if (count % kLinesBetweenProgress == 0) {
            progress(Percent(file, size));
        }
    }
    return collector.Take();
}

}  // namespace orders
