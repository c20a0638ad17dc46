#pragma once

#include <MLCore/core/ClassDeclaration.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace values_test {

using OBJECT = MLCore::CSHAREOBJECTPTR<MLCore::COBJECT>;
using OBJECTS = std::vector<MLCore::COBJECT*>;

/// An element with properties that it is made with, and something to do when it is asked and when it dies.
class CTHING : public MLCore::COBJECT {
    MLCORE_CLASS(CTHING, MLCore::COBJECT)
public:
    explicit CTHING(std::map<std::string, OBJECT> its) : properties(std::move(its)) { ++living; }
    static MLCore::CSHAREOBJECTPTR<CTHING> Create(std::map<std::string, OBJECT> properties = {}) {
        return MLCore::AdoptObject(new CTHING(std::move(properties)));
    }
    OBJECT GetKeyValue(const std::string& key) override {
        onAccess();
        return properties.contains(key) ? properties[key] : COBJECT::GetKeyValue(key);
    }
    void SetKeyValue(const std::string& key, COBJECT* value) override {
        static_cast<void>(GetKeyValue(key));
        properties[key] = value;
    }

    std::map<std::string, OBJECT> properties;
    std::function<void()> onAccess = [] {};
    std::function<void()> onDeath = [] {};
    static inline int living = 0;

private:
    ~CTHING() override {
        --living;
        onDeath();
    }
};

/// What a collection holds, by its own range-for.
template <class Collection>
OBJECTS ElementsIn(const Collection& collection) {
    OBJECTS elements;
    std::ranges::copy(collection, std::back_inserter(elements));
    return elements;
}

/// Lets an element that empties and refills its collection die in each of these ways, and with the collection.
template <class Collection>
void ExpectWholeOnRelease(MLCore::CSHAREOBJECTPTR<Collection> (*create)(),
                          const std::function<void(Collection&, MLCore::COBJECT*)>& add,
                          std::vector<std::function<void(Collection&)>> ways) {
    ways.emplace_back([](Collection&) {});
    for (const auto& way : ways) {
        auto collection = create();
        auto dying = CTHING::Create();
        dying->onDeath = [&add, raw = collection.Get()] { raw->RemoveAll(), add(*raw, CTHING::Create()); };
        add(*collection, std::exchange(dying, nullptr));
        way(*collection);
        EXPECT_EQ(collection->GetCount(), 1);
        EXPECT_EQ(CTHING::living, 1);
        collection = nullptr;
        EXPECT_EQ(CTHING::living, 0);
    }
}

}  // namespace values_test
