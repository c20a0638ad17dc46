// Filters and sorts up to a million records: objects of a class with access by key, and dictionaries, beside
// hand-written code over structs and over records that are std::unordered_map, a database in memory, and Foundation's
// predicates.

#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/predicates/CSORTDESCRIPTORBUILDER.h>
#include <MLCore/predicates/SortArray.h>
#include <MLCore/text/LegacyStrings.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/CVALUEOBJECT.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <variant>
#include <vector>

#include "support/Orders.h"
#include "support/Workload.h"

#if defined(MLCORE_HAVE_GNUSTEP)
#include "peers/NsPredicate.h"
#endif
#if defined(MLCORE_HAVE_SQLITE)
#include <sqlite3.h>
#endif

namespace bench {

using namespace MLCore;

constexpr std::size_t kCounts[] = {10000, 100000, 1000000};
constexpr std::size_t kCount = 1000000;

using MAP = std::unordered_map<std::string, std::variant<std::int32_t, std::string, double, CDATE, bool>>;

/// Makes a new value object each time that it is asked for a property.
class CCLIENTORDER : public COBJECT {
    MLCORE_CLASS(CCLIENTORDER, COBJECT)
public:
    explicit CCLIENTORDER(const ORDER& plain) : mPlain(plain) {}

    CSHAREOBJECTPTR<COBJECT> GetKeyValue(const std::string& key) override {
        struct PROPERTY {
            std::string_view key;
            CVALUE (*get)(const ORDER&);
        };
        static constexpr PROPERTY kProperties[] = {
            {"row", [](const ORDER& plain) { return CVALUE(long{plain.row}); }},
            {"client", [](const ORDER& plain) { return CVALUE(plain.client); }},
            {"city", [](const ORDER& plain) { return CVALUE(plain.city); }},
            {"amount", [](const ORDER& plain) { return CVALUE(plain.amount); }},
            {"date", [](const ORDER& plain) { return CVALUE(plain.date); }},
            {"quantity", [](const ORDER& plain) { return CVALUE(long{plain.quantity}); }},
            {"active", [](const ORDER& plain) { return CVALUE(plain.active ? 1 : 0); }},
        };
        const auto* const found = std::find_if(std::begin(kProperties), std::end(kProperties),
                                               [&key](const PROPERTY& property) { return property.key == key; });
        return found != std::end(kProperties) ? CVALUEOBJECT::Create(found->get(mPlain)) : COBJECT::GetKeyValue(key);
    }

private:
    ORDER mPlain;
};

MLCORE_REGISTER_CLASS(CCLIENTORDER)

}  // namespace bench

namespace {

using namespace bench;

/// The same records in four forms.
struct DATA {
    std::vector<ORDER> plains;
    std::vector<MAP> maps;
    CSHAREOBJECTPTR<CARRAY> objects = CMEMARRAY::Create();
    CSHAREOBJECTPTR<CARRAY> dictionaries = CMEMARRAY::Create();
};

MAP MapOf(const ORDER& plain) {
    return {{"row", plain.row},   {"client", plain.client},     {"city", plain.city},    {"amount", plain.amount},
            {"date", plain.date}, {"quantity", plain.quantity}, {"active", plain.active}};
}

DATA MakeData(std::size_t count) {
    DATA data;
    data.plains = MakeOrders(count);
    data.maps.reserve(count);
    for (const ORDER& order : data.plains) {
        data.objects->AddObject(AdoptObject(new CCLIENTORDER(order)));
        data.dictionaries->AddObject(DictionaryOf(order));
        data.maps.push_back(MapOf(order));
    }
    return data;
}

template <class T>
const T& Get(const MAP& map, const char* key) {
    return std::get<T>(map.at(key));
}

bool IsWanted(const MAP& map) {
    const auto beginsWithA = [](const std::string& text) {
        return !text.empty() && (text[0] == 'A' || text[0] == 'a');
    };
    const auto isBetween = [](std::int32_t number) { return number >= 10 && number <= 20; };
    return (Get<double>(map, "amount") > kMinAmount && beginsWithA(Get<std::string>(map, "client"))) ||
           isBetween(Get<std::int32_t>(map, "quantity"));
}

bool IsBefore(const ORDER* left, const ORDER* right) {
    return std::tie(left->client, right->amount) < std::tie(right->client, left->amount);
}

// What a result is compared by: its size, and the rows at some hundred of its places.
template <class ROWAT>
std::int64_t Digest(std::size_t size, ROWAT rowAt) {
    auto digest = static_cast<std::int64_t>(size);
    for (std::size_t i = 0; i < size; i += 1 + size / 500) {
        digest = digest % 1000003 * 31 + rowAt(i);
    }
    return digest;
}

std::int64_t Digest(const CSHAREOBJECTPTR<CARRAY>& array) {
    return Digest(static_cast<std::size_t>(array->GetCount()), [&array](std::size_t i) {
        const auto row = array->GetObjectAt(static_cast<long>(i))->GetKeyValue("row");
        return static_cast<const CVALUEOBJECT&>(*row).GetValue().ToLong();
    });
}
std::int64_t Digest(const std::vector<const ORDER*>& records) {
    return Digest(records.size(), [&records](std::size_t i) { return records[i]->row; });
}
std::int64_t Digest(const std::vector<const MAP*>& records) {
    return Digest(records.size(), [&records](std::size_t i) { return Get<std::int32_t>(*records[i], "row"); });
}

template <class RECORD>
auto FilterByHand(const std::vector<RECORD>& records, std::size_t count) {
    return [&records, count](std::size_t) {
        std::vector<const RECORD*> wanted;
        for (std::size_t i = 0; i < count; ++i) {
            if (IsWanted(records[i])) {
                wanted.push_back(&records[i]);
            }
        }
        return Digest(wanted);
    };
}

template <class RECORD>
auto SortByHand(const std::vector<RECORD>& records, std::size_t count) {
    return [&records, count](std::size_t) {
        std::vector<const RECORD*> sorted;
        for (std::size_t i = 0; i < count; ++i) {
            sorted.push_back(&records[i]);
        }
        std::stable_sort(sorted.begin(), sorted.end(),
                         [](const auto* left, const auto* right) { return IsBefore(left, right); });
        return Digest(sorted);
    };
}

CSHAREOBJECTPTR<CARRAY> FirstOf(CARRAY& array, std::size_t count) {
    const auto first = CMEMARRAY::Create();
    for (long i = 0; i < static_cast<long>(count); ++i) {
        first->AddObject(array.GetObjectAt(i));
    }
    return first;
}

#if defined(MLCORE_HAVE_SQLITE)
/// The first `count` records as a table.
class SQLTABLE {
public:
    SQLTABLE(const std::vector<ORDER>& plains, std::size_t count) {
        sqlite3* database = nullptr;
        sqlite3_open(":memory:", &database);
        mDatabase.reset(database);
        Run("CREATE TABLE orders(row INTEGER, client TEXT, city TEXT, amount REAL, date INTEGER, quantity INTEGER, "
            "active INTEGER); BEGIN");
        const STATEMENT insert = Prepare("INSERT INTO orders VALUES(?,?,?,?,?,?,?)");
        std::for_each_n(plains.begin(), count, [&insert](const ORDER& plain) {
            sqlite3_bind_int(insert.get(), 1, plain.row);
            sqlite3_bind_text(insert.get(), 2, plain.client.c_str(), -1, SQLITE_STATIC);
            sqlite3_bind_text(insert.get(), 3, plain.city.c_str(), -1, SQLITE_STATIC);
            sqlite3_bind_double(insert.get(), 4, plain.amount);
            sqlite3_bind_int(insert.get(), 5, plain.date.ToLDate());
            sqlite3_bind_int(insert.get(), 6, plain.quantity);
            sqlite3_bind_int(insert.get(), 7, plain.active ? 1 : 0);
            sqlite3_step(insert.get());
            sqlite3_reset(insert.get());
        });
        Run("COMMIT");
        mFilter =
            Prepare("SELECT row FROM orders WHERE (amount > ? AND client LIKE 'A%') OR quantity BETWEEN 10 AND 20");
        sqlite3_bind_double(mFilter.get(), 1, kMinAmount);
        mSort = Prepare("SELECT row FROM orders ORDER BY client, amount DESC");
    }

    [[nodiscard]] std::int64_t Filter() const { return DigestOf(mFilter.get()); }
    [[nodiscard]] std::int64_t Sort() const { return DigestOf(mSort.get()); }

private:
    struct CLOSE {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    using STATEMENT = std::unique_ptr<sqlite3_stmt, CLOSE>;

    void Run(const char* text) const { sqlite3_exec(mDatabase.get(), text, nullptr, nullptr, nullptr); }
    [[nodiscard]] STATEMENT Prepare(const char* text) const {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(mDatabase.get(), text, -1, &statement, nullptr);
        return STATEMENT(statement);
    }
    static std::int64_t DigestOf(sqlite3_stmt* statement) {
        std::vector<std::int32_t> rows;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            rows.push_back(sqlite3_column_int(statement, 0));
        }
        sqlite3_reset(statement);
        return Digest(rows.size(), [&rows](std::size_t i) { return rows[i]; });
    }

    std::unique_ptr<sqlite3, CLOSE> mDatabase;
    STATEMENT mFilter;
    STATEMENT mSort;
};
#endif

#if defined(MLCORE_HAVE_GNUSTEP)
// More would only need more memory: its time per record is the same.
constexpr std::size_t kMostNsRecords = 100000;

std::shared_ptr<NSRECORDS> NsRecordsOf(const std::vector<ORDER>& plains, std::size_t count) {
    const auto records = std::make_shared<NSRECORDS>();
    std::for_each_n(plains.begin(), count, [&records](const ORDER& plain) {
        records->Add(plain.row, plain.client.c_str(), plain.city.c_str(), plain.amount, plain.date.ToLDate(),
                     plain.quantity, plain.active);
    });
    return records;
}
#endif

/// The first `count` records, for those who need them in a form of their own; all workloads of that size share them.
struct PEERS {
#if defined(MLCORE_HAVE_SQLITE)
    std::shared_ptr<SQLTABLE> table;
#endif
#if defined(MLCORE_HAVE_GNUSTEP)
    std::shared_ptr<NSRECORDS> records;  // null: too many
#endif
};

PEERS MakePeers([[maybe_unused]] const DATA& data, [[maybe_unused]] std::size_t count) {
    PEERS peers;
#if defined(MLCORE_HAVE_SQLITE)
    peers.table = std::make_shared<SQLTABLE>(data.plains, count);
#endif
#if defined(MLCORE_HAVE_GNUSTEP)
    peers.records = count <= kMostNsRecords ? NsRecordsOf(data.plains, count) : nullptr;
#endif
    return peers;
}

void RegisterFilter(const DATA& data, [[maybe_unused]] const PEERS& peers, const std::string& what, CARRAY& all,
                    std::size_t count) {
    const auto array = FirstOf(all, count);
    const auto predicate = MakePredicate();
    WORKLOAD workload("filter " + std::to_string(count) + ' ' + what, 1, nullptr, count);
    workload.Add("MLCore", [array, predicate](std::size_t) { return Digest(array->Filter(predicate)); });
#if defined(MLCORE_HAVE_SQLITE)
    workload.Add("SQLite", [table = peers.table](std::size_t) { return table->Filter(); });
#endif
#if defined(MLCORE_HAVE_GNUSTEP)
    if (peers.records != nullptr) {
        workload.Add("NSPredicate", [records = peers.records](std::size_t) {
            return Digest(records->Filter(kMinAmount), [&records](std::size_t i) { return records->RowAt(i); });
        });
    }
#endif
    workload.Add("std::unordered_map", FilterByHand(data.maps, count))
        .AddLimit("structs", FilterByHand(data.plains, count));
}

void RegisterSort(const DATA& data, [[maybe_unused]] const PEERS& peers, const std::string& what, CARRAY& all,
                  std::size_t count) {
    const auto array = FirstOf(all, count);
    const auto order = CSORTDESCRIPTORBUILDER::Create("client;-amount");
    WORKLOAD workload("sort " + std::to_string(count) + ' ' + what, 1, nullptr, count);
    workload.Add("MLCore", [array, order](std::size_t) { return Digest(SortArray(array, order)); });
#if defined(MLCORE_HAVE_SQLITE)
    workload.Add("SQLite", [table = peers.table](std::size_t) { return table->Sort(); });
#endif
    workload.AddLimit("structs", SortByHand(data.plains, count));
}

/// By a rule: numbers inside texts by their value.
void RegisterNaturalSort(const DATA& data, const std::string& what, CARRAY& all, std::size_t count) {
    static constexpr SORTRULE kRules[] = {{"client", SORTRULE::Texts::Naturally}};
    const auto array = FirstOf(all, count);
    const auto order = CSORTDESCRIPTORBUILDER::Create("client");
    const auto byHand = [&plains = data.plains, count](std::size_t) {
        std::vector<const ORDER*> sorted;
        for (std::size_t i = 0; i < count; ++i) {
            sorted.push_back(&plains[i]);
        }
        std::stable_sort(sorted.begin(), sorted.end(), [](const ORDER* left, const ORDER* right) {
            return CompareNaturally(left->client.c_str(), right->client.c_str()) < 0;
        });
        return Digest(sorted);
    };
    WORKLOAD workload("sort " + std::to_string(count) + ' ' + what + " naturally", 1, nullptr, count);
    workload.Add("MLCore", [array, order](std::size_t) { return Digest(SortArray(array, order, kRules)); })
        .AddLimit("structs", byHand);
}

}  // namespace

int main(int argc, char** argv) {
    const DATA data = MakeData(kCount);
    for (const std::size_t count : kCounts) {
        const PEERS peers = MakePeers(data, count);
        RegisterFilter(data, peers, "dictionaries", *data.dictionaries, count);
        RegisterFilter(data, peers, "objects", *data.objects, count);
        RegisterSort(data, peers, "dictionaries", *data.dictionaries, count);
        RegisterSort(data, peers, "objects", *data.objects, count);
    }
    RegisterNaturalSort(data, "dictionaries", *data.dictionaries, kCounts[1]);
    return Run(argc, argv);
}
