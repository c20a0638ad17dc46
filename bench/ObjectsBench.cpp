// Shared objects beside std::shared_ptr and the intrusive pointers of other libraries.
//
// A thread has run before each measurement, as in every application of some size: until then libstdc++ counts without
// atomic operations.

#include <MLCore/core/CSHAREOBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#if defined(MLCORE_HAVE_BOOST)
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>
#endif
#if defined(MLCORE_HAVE_POCO)
#include <Poco/AutoPtr.h>
#include <Poco/RefCountedObject.h>
#endif

#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "support/Workload.h"

namespace {

using namespace MLCore;

constexpr std::size_t kCount = 1000;
constexpr std::size_t kCopies = 1000000;  // by each of two threads: enough for them to meet

struct RECORD : CSHAREOBJECT {
    explicit RECORD(int number) : value(number) {}
    int value;
};

struct PLAINRECORD {
    explicit PLAINRECORD(int number) : value(number) {}
    virtual ~PLAINRECORD() = default;
    PLAINRECORD(const PLAINRECORD&) = delete;
    PLAINRECORD& operator=(const PLAINRECORD&) = delete;
    int value;
};

#if defined(MLCORE_HAVE_BOOST)
struct BOOSTRECORD : PLAINRECORD, boost::intrusive_ref_counter<BOOSTRECORD, boost::thread_safe_counter> {
    using PLAINRECORD::PLAINRECORD;
};
#endif
#if defined(MLCORE_HAVE_POCO)
struct POCORECORD : Poco::RefCountedObject {
    explicit POCORECORD(int number) : value(number) {}
    int value;
};
#endif

/// Everybody's way to make a pointer.
template <class POINTER, POINTER (*make)(int)>
struct MAKER {
    using pointer = POINTER;
    static POINTER Make(int number) { return make(number); }
};
using OURS = MAKER<CSHAREOBJECTPTR<RECORD>, [](int number) { return AdoptObject(new RECORD(number)); }>;
using SHARED = MAKER<std::shared_ptr<PLAINRECORD>, [](int number) { return std::make_shared<PLAINRECORD>(number); }>;
#if defined(MLCORE_HAVE_BOOST)
using BOOST = MAKER<boost::intrusive_ptr<BOOSTRECORD>,
                    [](int number) { return boost::intrusive_ptr<BOOSTRECORD>(new BOOSTRECORD(number)); }>;
#endif
#if defined(MLCORE_HAVE_POCO)
using POCO =
    MAKER<Poco::AutoPtr<POCORECORD>, [](int number) { return Poco::AutoPtr<POCORECORD>(new POCORECORD(number)); }>;
#endif

/// Calls `add(name, maker)` for each.
template <class ADD>
void ForEachMaker(const ADD& add) {
    add("MLCore", OURS());
#if defined(MLCORE_HAVE_BOOST)
    add("boost::intrusive_ptr", BOOST());
#endif
#if defined(MLCORE_HAVE_POCO)
    add("Poco::AutoPtr", POCO());
#endif
    add("std::shared_ptr", SHARED());
}

void RunThread() {
    std::thread([] {}).join();
}

template <class POINTER>
int CopyAndRelease(const POINTER& pointer) {
    POINTER copy = pointer;
    benchmark::DoNotOptimize(copy);
    return copy->value;
}

enum class ORDER { Allocation, Random };

void RegisterCopies(const std::string& name, ORDER order) {
    bench::WORKLOAD workload("copy and release, " + name, kCount, RunThread);
    ForEachMaker([&workload, order](const char* who, auto maker) {
        std::vector<typename decltype(maker)::pointer> pointers;
        for (std::size_t i = 0; i < kCount; ++i) {
            pointers.push_back(maker.Make(static_cast<int>(i)));
        }
        if (order == ORDER::Random) {
            std::shuffle(pointers.begin(), pointers.end(), std::mt19937(7));
        }
        workload.Add(who, [pointers](std::size_t i) { return CopyAndRelease(pointers[i]); });
    });
    if (order == ORDER::Allocation) {
        workload.AddLimit("two atomic additions", [](std::size_t i) {
            static std::array<std::atomic<int>, kCount> gCounts = {};
            gCounts[i].fetch_add(1);
            gCounts[i].fetch_sub(1);
            return static_cast<int>(i);
        });
    }
}

void RegisterCreation() {
    bench::WORKLOAD workload("create and delete", kCount, RunThread);
    ForEachMaker([&workload](const char* who, auto maker) {
        workload.Add(who, [](std::size_t i) {
            auto created = decltype(maker)::Make(static_cast<int>(i));
            benchmark::DoNotOptimize(created);
            return created->value;
        });
    });
}

/// Holders of their own of one object.
void RegisterTwoThreads() {
    bench::WORKLOAD workload("copy and release, two threads on one object", 1, nullptr, kCopies);
    ForEachMaker([&workload](const char* who, auto maker) {
        workload.Add(who, [](std::size_t) {
            const auto shared = decltype(maker)::Make(1);
            std::atomic<int> ready = 0;
            const auto work = [&ready](auto own) {
                ++ready;
                while (ready != 2) {
                    std::this_thread::yield();
                }
                int sum = 0;
                for (std::size_t i = 0; i < kCopies; ++i) {
                    sum += CopyAndRelease(own);
                }
                return sum;
            };
            int other = 0;
            std::thread thread([&other, &work, own = shared] { other = work(own); });
            const int mine = work(shared);
            thread.join();
            return std::int64_t{mine} + other;
        });
    });
}

}  // namespace

int main(int argc, char** argv) {
    RegisterCopies("in allocation order", ORDER::Allocation);
    RegisterCopies("out of allocation order", ORDER::Random);
    RegisterCreation();
    RegisterTwoThreads();
    return bench::Run(argc, argv);
}
