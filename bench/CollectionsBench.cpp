// A million objects in arrays, sets and dictionaries, beside containers of std::shared_ptr.

#include <MLCore/core/COBJECT.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/CMEMDICTIONARY.h>
#include <MLCore/values/CMEMSET.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <unordered_set>
#include <vector>

#include "support/Workload.h"

namespace {

using namespace MLCore;

constexpr std::size_t kCount = 1000000;

class RECORD : public COBJECT {
    MLCORE_CLASS(RECORD, COBJECT)

public:
    explicit RECORD(std::int64_t number = 0) : mNumber(number) {}
    [[nodiscard]] std::int64_t GetNumber() const { return mNumber; }

private:
    std::int64_t mNumber;
};

MLCORE_REGISTER_CLASS(RECORD)

struct PEER {
    std::int64_t number;
};

struct DATA {
    std::vector<CSHAREOBJECTPTR<RECORD>> ours;
    std::vector<std::shared_ptr<PEER>> peers;
    std::vector<std::string> keys;
};

DATA MakeData() {
    DATA data;
    for (std::size_t i = 0; i < kCount; ++i) {
        data.ours.push_back(AdoptObject(new RECORD(static_cast<std::int64_t>(i))));
        data.peers.push_back(std::make_shared<PEER>(PEER{static_cast<std::int64_t>(i)}));
        data.keys.push_back("key " + std::to_string(i * 7919 % kCount));
    }
    return data;
}

// std::shared_ptr counts atomically only where a thread has run, as in every application of some size.
void RunThread() {
    std::thread([] {}).join();
}

std::int64_t NumberOf(COBJECT* object) { return static_cast<RECORD*>(object)->GetNumber(); }

void RegisterArray(const DATA& data) {
    const auto ours = [&data](std::size_t) {
        const CSHAREOBJECTPTR<CARRAY> array = CMEMARRAY::Create();
        for (const auto& object : data.ours) {
            array->AddObject(object);
        }
        std::int64_t sum = 0;
        for (const auto& object : *array) {
            sum += NumberOf(object);
        }
        return sum;
    };
    const auto peer = [&data](std::size_t) {
        std::vector<std::shared_ptr<PEER>> array;
        for (const auto& object : data.peers) {
            array.push_back(object);
        }
        std::int64_t sum = 0;
        for (const auto& object : array) {
            sum += object->number;
        }
        return sum;
    };
    bench::WORKLOAD("append to an array, iterate", 1, RunThread, kCount).Add("MLCore", ours).Add("std::vector", peer);
}

// In the order in which the objects were made, so that all sizes are as kind to the processor's caches.
void RegisterSet(const DATA& data, std::size_t count) {
    const CSHAREOBJECTPTR<CSET> ours = CMEMSET::Create();
    const auto peer = std::make_shared<std::unordered_set<PEER*>>();
    for (std::size_t i = 0; i < count; i += 2) {
        ours->AddObject(data.ours[i]);
        peer->insert(data.peers[i].get());
    }
    bench::WORKLOAD("ask a set for each of " + std::to_string(count) + " objects", count, RunThread)
        .Add("MLCore", [&data, ours](std::size_t i) { return std::int64_t{ours->ContainsObject(data.ours[i])}; })
        .Add("std::unordered_set",
             [&data, peer](std::size_t i) { return static_cast<std::int64_t>(peer->count(data.peers[i].get())); })
        .AddLimit("a number in each object", [&data](std::size_t i) { return 1 - data.peers[i]->number % 2; });
}

void RegisterDictionary(const DATA& data) {
    const CSHAREOBJECTPTR<CDICTIONARY> ours = CMEMDICTIONARY::Create();
    std::map<std::string, std::shared_ptr<PEER>> peer;
    for (std::size_t i = 0; i < kCount; ++i) {
        ours->SetKeyValue(data.keys[i], data.ours[i]);
        peer[data.keys[i]] = data.peers[i];
    }
    bench::WORKLOAD("look up a key", kCount, RunThread)
        .Add("MLCore", [&data, ours](std::size_t i) { return NumberOf(ours->GetKeyValue(data.keys[i])); })
        .Add("std::map", [&data, peer](std::size_t i) {
            const std::shared_ptr<PEER> found = peer.find(data.keys[i])->second;
            return found->number;
        });
}

}  // namespace

int main(int argc, char** argv) {
    const DATA data = MakeData();
    RegisterArray(data);
    for (const std::size_t count : {10000, 100000, 1000000}) {
        RegisterSet(data, count);
    }
    RegisterDictionary(data);
    return bench::Run(argc, argv);
}
