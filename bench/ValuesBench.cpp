// Values beside std::variant and QVariant: made, copied, compared and destroyed. The limit does it with the plain
// values, whose type is known.

#include <MLCore/values/CVALUE.h>
#if defined(MLCORE_HAVE_QT)
#include <QtCore/QByteArray>
#include <QtCore/QDate>
#include <QtCore/QVariant>
#endif

#include <cstdint>
#include <random>
#include <string>
#include <variant>
#include <vector>

#include "support/Workload.h"

namespace {

using namespace MLCore;

using PEER = std::variant<std::monostate, std::int32_t, double, CDATE, CDATETIME, std::string>;

#if defined(MLCORE_HAVE_QT)
struct QTPEER {
    explicit QTPEER(std::int32_t number) : value(number) {}
    explicit QTPEER(double number) : value(number) {}
    explicit QTPEER(const CDATE& date) : value(QDate(date.GetYear(), date.GetMonth(), date.GetDay())) {}
    explicit QTPEER(const std::string& text) : value(QByteArray(text.data(), static_cast<int>(text.size()))) {}
    bool operator==(const QTPEER& other) const { return value == other.value; }

    QVariant value;
};
#endif

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
    const VALUE* address = &copy;  // not the copy itself: it may fit no register as a whole
    benchmark::DoNotOptimize(address);
    benchmark::ClobberMemory();
    return (copy == value ? 1 : 0) + (copy == second ? 2 : 0);
}

template <class OURS, class PLAIN>
void Register(const std::string& name, const std::vector<PLAIN>& plain) {
    const auto next = [&plain](std::size_t i) -> const PLAIN& { return plain[(i + 1) % kCount]; };
    bench::WORKLOAD workload("value of " + name, kCount);
    workload.Add("MLCore", [&plain, next](std::size_t i) { return Live<CVALUE>(OURS(plain[i]), OURS(next(i))); })
        .Add("std::variant", [&plain, next](std::size_t i) { return Live<PEER>(plain[i], next(i)); });
#if defined(MLCORE_HAVE_QT)
    workload.Add("QVariant", [&plain, next](std::size_t i) { return Live<QTPEER>(plain[i], next(i)); });
#endif
    workload.AddLimit("plain values", [&plain, next](std::size_t i) { return Live<PLAIN>(plain[i], next(i)); });
}

// All types in turn, as in a row of a table. LIVE does it with those of one type; NUMBER is what it takes 32 bits as.
template <class NUMBER, class LIVE>
auto Mix(const DATA& data, const LIVE& live) {
    return [&data, live](std::size_t i) -> std::int64_t {
        const std::size_t j = (i + 1) % kCount;
        switch (i % 5) {
            case 0:
                return live(NUMBER(data.numbers[i]), NUMBER(data.numbers[j]));
            case 1:
                return live(data.doubles[i], data.doubles[j]);
            case 2:
                return live(data.dates[i], data.dates[j]);
            case 3:
                return live(data.shortTexts[i], data.shortTexts[j]);
            default:
                return live(data.longTexts[i], data.longTexts[j]);
        }
    };
}

template <class VALUE>
struct LIVEAS {
    template <class PLAIN>
    std::int64_t operator()(const PLAIN& plain, const PLAIN& other) const {
        return Live<VALUE>(plain, other);
    }
};

void RegisterMix(const DATA& data) {
    bench::WORKLOAD workload("values of all types", kCount);
    workload.Add("MLCore", Mix<long>(data, LIVEAS<CVALUE>()))
        .Add("std::variant", Mix<std::int32_t>(data, LIVEAS<PEER>()));
#if defined(MLCORE_HAVE_QT)
    workload.Add("QVariant", Mix<std::int32_t>(data, LIVEAS<QTPEER>()));
#endif
    workload.AddLimit("plain values", Mix<std::int32_t>(data, []<class PLAIN>(const PLAIN& plain, const PLAIN& other) {
                          return Live<PLAIN>(plain, other);
                      }));
}

}  // namespace

int main(int argc, char** argv) {
    const DATA data = MakeData();
    Register<long>("32 bits", data.numbers);
    Register<double>("a double", data.doubles);
    Register<CDATE>("a date", data.dates);
    Register<std::string>("a short text", data.shortTexts);
    Register<std::string>("a text of 40 bytes", data.longTexts);
    RegisterMix(data);
    return bench::Run(argc, argv);
}
