// Shared objects beside std::shared_ptr.
//
// libstdc++ counts without atomic operations as long as a process has never had a second thread; the library always counts
// with them. So copying is measured before and after a thread has run.

#include <MLCore/core/CSHAREOBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>

#include <cstddef>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "support/Workload.h"

namespace {

using namespace MLCore;

constexpr std::size_t kCount = 1000;

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

using HOLDER = CSHAREOBJECTPTR<RECORD>;
using PEER = std::shared_ptr<PLAINRECORD>;

struct DATA {
    std::vector<HOLDER> holders;
    std::vector<PEER> peers;
};

DATA MakeData() {
    DATA data;
    for (std::size_t i = 0; i < kCount; ++i) {
        data.holders.push_back(AdoptObject(new RECORD(static_cast<int>(i))));
        data.peers.push_back(std::make_shared<PLAINRECORD>(static_cast<int>(i)));
    }
    return data;
}

template <class POINTER>
auto CopyAndRelease(const std::vector<POINTER>& pointers) {
    return [&pointers](std::size_t i) {
        POINTER copy = pointers[i];
        benchmark::DoNotOptimize(copy);
        return copy->value;
    };
}

void RunThread() {
    std::thread([] {}).join();
}

void RegisterWorkloads(const DATA& data, const std::string& when, bench::WORKLOAD::PREPARATION prepare) {
    bench::WORKLOAD("copy and release, " + when, kCount, prepare)
        .Add("MLCore", CopyAndRelease(data.holders))
        .Add("std::shared_ptr", CopyAndRelease(data.peers));
    bench::WORKLOAD("create and delete, " + when, kCount, prepare)
        .Add("MLCore",
             [](std::size_t i) {
                 const HOLDER created = AdoptObject(new RECORD(static_cast<int>(i)));
                 return created->value;
             })
        .Add("std::shared_ptr", [](std::size_t i) {
            PEER created = std::make_shared<PLAINRECORD>(static_cast<int>(i));
            benchmark::DoNotOptimize(created);
            return created->value;
        });
}

}  // namespace

int main(int argc, char** argv) {
    const DATA data = MakeData();
    RegisterWorkloads(data, "one thread", nullptr);
    RegisterWorkloads(data, "several threads", RunThread);
    return bench::Run(argc, argv);
}
