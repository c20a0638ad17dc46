// What collections take in memory, beside std containers: not a matter of time, and the same at each run.

#include <MLCore/streams/CCSVENCODER.h>
#include <MLCore/streams/CFILESTREAM.h>
#include <MLCore/streams/CISTREAMDECORATORFIELD.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/CMEMDICTIONARY.h>
#include <MLCore/values/CVALUEOBJECT.h>

#include <iostream>
#include <memory>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>
#if defined(__linux__)
#include <malloc.h>
#endif

#include "support/Figures.h"

namespace {

using namespace MLCore;

// The bytes that are allocated now, with what the allocator needs for itself.
std::size_t BytesInUse() {
#if defined(__linux__)
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
#else
    return 0;
#endif
}

class MEMORY {
public:
    explicit MEMORY(std::string workload) : mWorkload(std::move(workload)) {}

    /// make() gives a collection, with size() or GetCount().
    template <class MAKE>
    MEMORY& Add(const std::string& who, MAKE make) {
        const std::size_t before = BytesInUse();
        const auto collection = make();
        const auto bytes = static_cast<double>(BytesInUse() - before);
        mFigures.push_back({mWorkload, who, bytes / static_cast<double>(CountOf(collection))});
        return *this;
    }
    void Print() const { bench::PrintFigures(std::cout, mFigures); }

private:
    static std::size_t CountOf(const CSHAREOBJECTPTR<CARRAY>& array) {
        return static_cast<std::size_t>(array->GetCount());
    }
    template <class T>
    static std::size_t CountOf(const std::vector<T>& collection) {
        return collection.size();
    }

    std::string mWorkload;
    std::vector<bench::FIGURE> mFigures;
};

constexpr long kCount = 1000000;

// The same values in an array of ours, in a vector of shared variants, and as they are.
template <class VALUE>
void MeasureValues(const std::string& name, VALUE (*valueAt)(long)) {
    using VARIANT = std::variant<bool, long, double, std::string>;
    MEMORY("array of value objects: " + name)
        .Add("MLCore",
             [valueAt] {
                 CSHAREOBJECTPTR<CARRAY> array = CMEMARRAY::Create();
                 for (long i = 0; i < kCount; ++i) {
                     array->AddObject(CVALUEOBJECT::Create(CVALUE(valueAt(i))));
                 }
                 return array;
             })
        .Add("std::shared_ptr<std::variant>",
             [valueAt] {
                 std::vector<std::shared_ptr<VARIANT>> array;
                 for (long i = 0; i < kCount; ++i) {
                     array.push_back(std::make_shared<VARIANT>(valueAt(i)));
                 }
                 return array;
             })
        .Add(bench::kLimit + std::string("the values"),
             [valueAt] {
                 std::vector<VALUE> array;
                 for (long i = 0; i < kCount; ++i) {
                     array.push_back(valueAt(i));
                 }
                 return array;
             })
        .Print();
}

using TEXTS = std::vector<std::string>;

// Calls take(fields) for each line.
template <class TAKE>
void ReadLines(const char* path, TAKE take) {
    CFILESTREAM stream(path);
    stream.Open();
    CCSVENCODER encoder;
    CISTREAMDECORATORFIELD fields(stream, ';', encoder);
    while (fields.IsEnd() == 0) {
        TEXTS texts;
        do {
            texts.emplace_back();
            fields.GetValue(texts.back(), 10000);
        } while (fields.IsEndOfLine() == 0);
        fields.GetNextLine();
        take(texts);
    }
}

// Calls add(keys, fields) for each line below that of the keys.
template <class ADD>
void LoadOrders(ADD add) {
    TEXTS keys;
    ReadLines(MLCORE_ORDERS_FILE, [&keys, add](const TEXTS& texts) {
        if (keys.empty()) {
            keys = texts;
        } else {
            add(keys, texts);
        }
    });
}

void MeasureOrders() {
    MEMORY("orders.csv, texts by 21 keys")
        .Add("MLCore",
             [] {
                 CSHAREOBJECTPTR<CARRAY> orders = CMEMARRAY::Create();
                 LoadOrders([&orders](const TEXTS& keys, const TEXTS& texts) {
                     const auto order = CMEMDICTIONARY::Create();
                     for (std::size_t i = 0; i < keys.size(); ++i) {
                         order->SetKeyValue(keys[i], CVALUEOBJECT::Create(CVALUE(texts[i])));
                     }
                     orders->AddObject(order);
                 });
                 return orders;
             })
        .Add("std::unordered_map<std::string>",
             [] {
                 std::vector<std::unordered_map<std::string, std::string>> orders;
                 LoadOrders([&orders](const TEXTS& keys, const TEXTS& texts) {
                     auto& order = orders.emplace_back();
                     for (std::size_t i = 0; i < keys.size(); ++i) {
                         order[keys[i]] = texts[i];
                     }
                 });
                 return orders;
             })
        .Add(bench::kLimit + std::string("21 std::string"),
             [] {
                 std::vector<TEXTS> orders;
                 LoadOrders([&orders](const TEXTS&, const TEXTS& texts) { orders.push_back(texts); });
                 return orders;
             })
        .Print();
}

}  // namespace

int main() {
    if (BytesInUse() == 0) {
        std::cerr << "memory is not measured on this system\n";
        return 0;
    }
    std::cout << '\n';
    bench::PrintTitles(std::cout, "bytes each");
    MeasureValues<long>("integers", [](long i) { return i; });
    MeasureValues<double>("doubles", [](long i) { return static_cast<double>(i) / 8; });
    MeasureValues<std::string>("texts of 20 bytes",
                               [](long i) { return std::to_string(i + 1000000000).append(10, '.'); });
    MeasureOrders();
}
