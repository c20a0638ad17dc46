// How the time per item grows with the collection: filters, sorting, CSV files and sets, beside structs and std
// containers.

#include <MLCore/predicates/CSORTDESCRIPTORBUILDER.h>
#include <MLCore/predicates/SortArray.h>
#include <MLCore/streams/CCSVENCODER.h>
#include <MLCore/streams/CFILESTREAM.h>
#include <MLCore/streams/COSTREAMDECORATORFIELD.h>
#include <MLCore/streams/CSTREAMWRITER.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/CMEMSET.h>
#include <MLCore/values/CVALUEOBJECT.h>

#include <algorithm>
#include <map>
#include <random>
#include <tuple>
#include <unordered_set>

#include "support/FieldLengths.h"
#include "support/Orders.h"
#include "support/ScratchFile.h"
#include "support/Workload.h"

namespace {

using namespace MLCore;
using bench::GROWTH;
using bench::ORDER;

constexpr std::size_t kItems = GROWTH::kItems;

// The same orders in collections of each size.
template <class COLLECTION>
using BYSIZE = std::map<std::size_t, std::vector<COLLECTION>>;
using ARRAYS = BYSIZE<CSHAREOBJECTPTR<CARRAY>>;
using RECORDS = std::vector<const ORDER*>;

ARRAYS ArraysOf(const std::vector<ORDER>& orders) {
    ARRAYS arrays;
    for (const ORDER& order : orders) {
        const auto dictionary = bench::DictionaryOf(order);
        for (const std::size_t size : GROWTH::kSizes) {
            auto& ofSize = arrays[size];
            if (static_cast<std::size_t>(order.row) % size == 0) {
                ofSize.push_back(CMEMARRAY::Create());
            }
            ofSize.back()->AddObject(dictionary);
        }
    }
    return arrays;
}

// The sum of what `work` gives for the orders of each collection, as records of a vector.
template <class WORK>
auto ForEachPart(const std::vector<ORDER>& orders, WORK work) {
    return [&orders, work](std::size_t size) {
        std::int64_t sum = 0;
        for (std::size_t begin = 0; begin < kItems; begin += size) {
            sum += work(&orders[begin], &orders[begin] + size);
        }
        return sum;
    };
}
template <class WORK>
auto ForEachArray(const ARRAYS& arrays, WORK work) {
    return [&arrays, work](std::size_t size) {
        std::int64_t sum = 0;
        for (const auto& array : arrays.at(size)) {
            sum += work(array);
        }
        return sum;
    };
}

void RegisterFilter(const std::vector<ORDER>& orders, const ARRAYS& arrays) {
    const auto predicate = bench::MakePredicate();
    GROWTH("filter dictionaries", GROWTH::LAW::LINEAR)
        .Add("MLCore",
             ForEachArray(arrays, [predicate](CARRAY* array) { return array->Filter(predicate)->GetCount(); }))
        .Add("structs", ForEachPart(orders, [](const ORDER* begin, const ORDER* end) {
                 RECORDS wanted;
                 for (; begin != end; ++begin) {
                     if (IsWanted(*begin)) {
                         wanted.push_back(begin);
                     }
                 }
                 return static_cast<std::int64_t>(wanted.size());
             }));
}

// What a sort is compared by: who comes first and in the middle.
std::int64_t RowOf(const CARRAY& array, long index) {
    const auto row = array.GetObjectAt(index)->GetKeyValue("row");
    return static_cast<const CVALUEOBJECT&>(*row).GetValue().ToLong();
}

void RegisterSort(const std::vector<ORDER>& orders, const ARRAYS& arrays) {
    const auto order = CSORTDESCRIPTORBUILDER::Create("client;-amount");
    GROWTH("sort dictionaries", GROWTH::LAW::LOGARITHMIC)
        .Add("MLCore", ForEachArray(arrays,
                                    [order](CARRAY* array) {
                                        const auto sorted = SortArray(array, order);
                                        return RowOf(*sorted, 0) + RowOf(*sorted, sorted->GetCount() / 2);
                                    }))
        .Add("structs", ForEachPart(orders, [](const ORDER* begin, const ORDER* end) {
                 RECORDS sorted;
                 for (; begin != end; ++begin) {
                     sorted.push_back(begin);
                 }
                 std::stable_sort(sorted.begin(), sorted.end(), [](const ORDER* left, const ORDER* right) {
                     return std::tie(left->client, right->amount) < std::tie(right->client, left->amount);
                 });
                 return std::int64_t{sorted.front()->row} + sorted[sorted.size() / 2]->row;
             }));
}

void WriteLines(const char* path, const ORDER* begin, const ORDER* end) {
    CFILESTREAM stream(path, CSTREAM::ReadWrite | CSTREAM::Create | CSTREAM::Truncate);
    stream.Open();
    CCSVENCODER encoder;
    COSTREAMDECORATORFIELD fields(stream, ';', encoder);
    CSTREAMWRITER writer(fields);
    for (; begin != end; ++begin) {
        writer << long{begin->row} << begin->client.c_str() << begin->city.c_str() << long{begin->quantity} << endl;
    }
    stream.Close();
}

void RegisterCsv(const std::vector<ORDER>& orders, const bench::SCRATCHFILE& file) {
    GROWTH("write and read CSV lines", GROWTH::LAW::LINEAR)
        .Add("MLCore", ForEachPart(orders, [&file](const ORDER* begin, const ORDER* end) {
                 WriteLines(file.GetPath(), begin, end);
                 return bench::ReadFieldLengths(file.GetPath(), 4);
             }));
}

// Half of all objects are in a set; all are asked for, in no order, from one set after the other.
void RegisterSet(const CARRAY& all) {
    static BYSIZE<CSHAREOBJECTPTR<CSET>> ours;
    static BYSIZE<std::unordered_set<COBJECT*>> peers;
    static std::vector<COBJECT*> objects;
    for (const auto& object : all) {
        objects.push_back(object);
    }
    std::shuffle(objects.begin(), objects.end(), std::mt19937(11));
    for (const std::size_t size : GROWTH::kSizes) {
        const std::size_t sets = kItems / size;
        peers[size].resize(sets);
        for (std::size_t i = 0; i < sets; ++i) {
            ours[size].push_back(CMEMSET::Create());
        }
        for (std::size_t i = 0; i < kItems; ++i) {
            if (i / sets % 2 == 0) {
                ours[size][i % sets]->AddObject(objects[i]);
                peers[size][i % sets].insert(objects[i]);
            }
        }
    }
    const auto askAll = [](const auto& bySize, auto contains) {
        return [&bySize, contains](std::size_t size) {
            const auto& sets = bySize.at(size);
            std::int64_t found = 0;
            for (std::size_t i = 0; i < kItems; ++i) {
                found += contains(sets[i % sets.size()], objects[i]);
            }
            return found;
        };
    };
    GROWTH("ask sets for objects", GROWTH::LAW::LINEAR)
        .Add("MLCore", askAll(ours, [](const auto& set, COBJECT* object) { return set->ContainsObject(object); }))
        .Add("std::unordered_set",
             askAll(peers, [](const auto& set, COBJECT* object) { return static_cast<int>(set.count(object)); }));
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<ORDER> orders = bench::MakeOrders(kItems);
    const ARRAYS arrays = ArraysOf(orders);
    const bench::SCRATCHFILE file("MLCore.bench.growth.csv");
    RegisterFilter(orders, arrays);
    RegisterSort(orders, arrays);
    RegisterCsv(orders, file);
    RegisterSet(*arrays.at(kItems).front());
    return bench::Run(argc, argv);
}
