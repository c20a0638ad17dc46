// Values beside std::variant: made, copied, compared and destroyed.

#include <MLCore/values/CVALUE.h>

#include <cstdint>
#include <random>
#include <string>
#include <variant>
#include <vector>

#include "support/Workload.h"

namespace {

using namespace MLCore;

using PEER = std::variant<std::monostate, std::int32_t, double, CDATE, CDATETIME, std::string>;

constexpr std::size_t kCount = 10000;

struct DATA {
    std::vector<std::int32_t> numbers;
    std::vector<double> doubles;
    std::vector<CDATE> dates;
    std::vector<std::string> shortTexts;
    std::vector<std::string> longTexts;
};

DATA MakeData() {
    std::mt19937 random(7);
    DATA data;
    for (std::size_t i = 0; i < kCount; ++i) {
        const std::int32_t number = static_cast<std::int32_t>(random());
        data.numbers.push_back(number);
        data.doubles.push_back(number / 1000.0);
        data.dates.emplace_back(static_cast<std::int16_t>(1 + random() % 28),
                                static_cast<std::int16_t>(1 + random() % 12),
                                static_cast<std::int16_t>(1900 + random() % 200));
        data.shortTexts.push_back(std::to_string(number % 10000000));
        data.longTexts.push_back(std::string(32, static_cast<char>('a' + random() % 26)) +
                                 std::to_string(number % 10000000));
    }
    return data;
}

// The life of a value: make two, copy one, compare with both, destroy all.
template <class VALUE, class PLAIN>
std::int64_t Live(const PLAIN& plain, const PLAIN& other) {
    const VALUE value(plain);
    const VALUE second(other);
    VALUE copy(value);
    benchmark::DoNotOptimize(copy);
    return (copy == value ? 1 : 0) + (copy == second ? 2 : 0);
}

template <class OURS, class PLAIN>
void Register(const std::string& name, const std::vector<PLAIN>& plain) {
    const auto next = [&plain](std::size_t i) -> const PLAIN& { return plain[(i + 1) % kCount]; };
    bench::WORKLOAD("value of " + name, kCount)
        .Add("MLCore", [&plain, next](std::size_t i) { return Live<CVALUE>(OURS(plain[i]), OURS(next(i))); })
        .Add("std::variant", [&plain, next](std::size_t i) { return Live<PEER>(plain[i], next(i)); });
}

// All types in turn, as in a row of a table.
template <class VALUE, class NUMBER>
std::int64_t Mix(const DATA& data, std::size_t i) {
    const std::size_t j = (i + 1) % kCount;
    switch (i % 5) {
        case 0:
            return Live<VALUE>(NUMBER(data.numbers[i]), NUMBER(data.numbers[j]));
        case 1:
            return Live<VALUE>(data.doubles[i], data.doubles[j]);
        case 2:
            return Live<VALUE>(data.dates[i], data.dates[j]);
        case 3:
            return Live<VALUE>(data.shortTexts[i], data.shortTexts[j]);
        default:
            return Live<VALUE>(data.longTexts[i], data.longTexts[j]);
    }
}

}  // namespace

int main(int argc, char** argv) {
    const DATA data = MakeData();
    Register<long>("32 bits", data.numbers);
    Register<double>("a double", data.doubles);
    Register<CDATE>("a date", data.dates);
    Register<std::string>("a short text", data.shortTexts);
    Register<std::string>("a text of 40 bytes", data.longTexts);
    bench::WORKLOAD("values of all types", kCount)
        .Add("MLCore", [&data](std::size_t i) { return Mix<CVALUE, long>(data, i); })
        .Add("std::variant", [&data](std::size_t i) { return Mix<PEER, std::int32_t>(data, i); });
    return bench::Run(argc, argv);
}
