#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/core/ClassDeclaration.h>
#include <gtest/gtest.h>
#include <support/Failure.h>

#include <stdexcept>

namespace factorytest {

class CLOADED : public MLCore::COBJECT {
    MLCORE_CLASS(CLOADED, MLCore::COBJECT)
};

/// Says itself how it is created.
class CNUMBERED : public MLCore::COBJECT {
    MLCORE_CLASS(CNUMBERED, MLCore::COBJECT)
public:
    static MLCore::CSHAREOBJECTPTR<CNUMBERED> Create() { return MLCore::AdoptObject(new CNUMBERED(7)); }
    const int number;

private:
    explicit CNUMBERED(int its) : number(its) {}
};

MLCORE_REGISTER_CLASS(CLOADED)
MLCORE_REGISTER_CLASS(CNUMBERED)

}  // namespace factorytest

namespace {

using namespace MLCore;
using support::FailureOf;

template <int number>
class CMADE : public COBJECT {
public:
    const char* ClassName() const override { return number == 1 ? "1" : "2"; }
    static CSHAREOBJECTPTR<COBJECT> Make() { return AdoptObject(new CMADE); }
};

class FactoryTest : public testing::Test {
protected:
    void TearDown() override {
        for (const char* name : {"a", "b", "A", ""}) {
            factory.UnregisterClass(name);
        }
    }
    std::string Made(const char* name) const { return factory.CreateObject(name)->GetClassName(); }
    std::string MadeFrom(const char* identifier) const {
        return factory.CreateObjectFromIdentifier(identifier)->GetClassName();
    }
    int Missing(const char* name) const {
        EXPECT_EQ(factory.IsRegistered(name), 0);
        return FailureOf([&] { return factory.CreateObject(name); });
    }
    int MissingIdentifier(const char* identifier) const {
        EXPECT_EQ(factory.IsRegisteredIdentifier(identifier), 0);
        return FailureOf([&] { return factory.CreateObjectFromIdentifier(identifier); });
    }

    COBJECTFACTORY& factory = *COBJECTFACTORY::GetInstance();
};

TEST_F(FactoryTest, NamesAndIdentifiersAreExact) {
    factory.RegisterClass("a", CMADE<1>::Make);
    factory.RegisterClass("b", "id", CMADE<2>::Make);
    EXPECT_EQ(factory.IsRegistered("a"), 1);
    EXPECT_EQ(factory.CreateObject("a")->GetUseCount(), 1);
    EXPECT_EQ(Made("a"), "1");
    EXPECT_EQ(Made("b"), "2");
    EXPECT_EQ(MadeFrom("id"), "2");
    for (const char* name : {"A", "", "a ", "id", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(Missing(name), 123);
    }
    for (const char* identifier : {"a", "b", "ID", "", "i", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(MissingIdentifier(identifier), 123);
    }
    factory.RegisterClass("", "", CMADE<1>::Make);
    EXPECT_EQ(Made(""), "1") << "an empty name is a name";
    EXPECT_EQ(MadeFrom(""), "1");
    EXPECT_EQ(Missing("CLOADED"), 123);
    EXPECT_EQ(factory.IsRegistered("class factorytest::CLOADED"), 1);
    EXPECT_EQ(factory.IsRegisteredIdentifier("CLOADED"), 1);
}

TEST_F(FactoryTest, TheLaterRegistrationReplaces) {
    factory.RegisterClass("a", "old", CMADE<1>::Make);
    factory.RegisterClass("a", "new", CMADE<2>::Make);
    EXPECT_EQ(Made("a"), "2");
    EXPECT_EQ(MadeFrom("new"), "2");
    EXPECT_EQ(MissingIdentifier("old"), 123);
    factory.RegisterClass("a", "new", CMADE<1>::Make);
    EXPECT_EQ(MadeFrom("new"), "1");
    factory.RegisterClass("a", CMADE<2>::Make);
    EXPECT_EQ(MissingIdentifier("new"), 123);
    EXPECT_EQ(Made("a"), "2");
}

TEST_F(FactoryTest, AnIdentifierGoesToTheClassThatTakesIt) {
    factory.RegisterClass("a", "id", CMADE<1>::Make);
    factory.RegisterClass("b", "id", CMADE<2>::Make);
    EXPECT_EQ(MadeFrom("id"), "2");
    EXPECT_EQ(Made("a"), "1");
    factory.UnregisterClass("a");
    EXPECT_EQ(MadeFrom("id"), "2") << "it is no longer the first one's to remove";
    factory.RegisterClass("a", "id", CMADE<1>::Make);
    factory.RegisterClass("b", CMADE<2>::Make);
    EXPECT_EQ(MadeFrom("id"), "1") << "nor the second one's";
    factory.UnregisterClass("a");
    EXPECT_EQ(Missing("a"), 123);
    EXPECT_EQ(MissingIdentifier("id"), 123);
    EXPECT_EQ(Made("b"), "2");
}

TEST_F(FactoryTest, NullsAndUnknownNames) {
    EXPECT_EQ(FailureOf([&] { factory.RegisterClass(nullptr, CMADE<1>::Make); }), -100);
    EXPECT_EQ(FailureOf([&] { factory.RegisterClass(nullptr, "id", CMADE<1>::Make); }), -100);
    EXPECT_EQ(FailureOf([&] { factory.RegisterClass("a", "id", nullptr); }), -100);
    EXPECT_EQ(Missing("a"), 123);
    EXPECT_EQ(MissingIdentifier("id"), 123);
    factory.UnregisterClass(nullptr);
    factory.UnregisterClass("a");
}

TEST_F(FactoryTest, WhatTheCreatorDoesPassesThrough) {
    factory.RegisterClass("a", "id", []() -> CSHAREOBJECTPTR<COBJECT> { throw std::runtime_error("creator"); });
    EXPECT_THROW(static_cast<void>(factory.CreateObject("a")), std::runtime_error);
    EXPECT_THROW(static_cast<void>(factory.CreateObjectFromIdentifier("id")), std::runtime_error);
    factory.RegisterClass("a", []() -> CSHAREOBJECTPTR<COBJECT> { return nullptr; });
    EXPECT_FALSE(factory.CreateObject("a"));
}

TEST_F(FactoryTest, AClassMayCreateItself) {
    const CSHAREOBJECTPTR<COBJECT> object = factory.CreateObjectFromIdentifier("CNUMBERED");
    EXPECT_EQ(dynamic_cast<factorytest::CNUMBERED&>(*object).number, 7);
    EXPECT_EQ(object->GetUseCount(), 1);
}

TEST_F(FactoryTest, ARegistrarThatGoesLeavesTheRegistrationBefore) {
    const CLASSREGISTRAR first("a", "id", CMADE<1>::Make);
    {
        const CLASSREGISTRAR second("a", "id", CMADE<2>::Make);
        EXPECT_EQ(MadeFrom("id"), "2");
    }
    EXPECT_EQ(Made("a"), "1");
    EXPECT_EQ(MadeFrom("id"), "1");
    {
        const CLASSREGISTRAR second("b", "id", CMADE<2>::Make);
        EXPECT_EQ(MadeFrom("id"), "2");
    }
    EXPECT_EQ(MadeFrom("id"), "1");
}

TEST(FactoryLifeTest, ANewFactoryKnowsWhatIsLoaded) {
    constexpr const char* kName = "class factorytest::CLOADED";
    COBJECTFACTORY::GetInstance()->RegisterClass("a", CMADE<1>::Make);
    COBJECTFACTORY::GetInstance()->UnregisterClass(kName);
    EXPECT_EQ(COBJECTFACTORY::GetInstance()->IsRegistered(kName), 0);
    for (int round = 0; round < 2; ++round) {
        COBJECTFACTORY::Free();
        EXPECT_EQ(COBJECTFACTORY::GetInstance()->IsRegistered("a"), 0);
        EXPECT_EQ(COBJECTFACTORY::GetInstance()->IsRegistered(kName), 1);
        EXPECT_STREQ(COBJECTFACTORY::GetInstance()->CreateObjectFromIdentifier("CLOADED")->GetClassName(), "CLOADED");
    }
    {
        const CLASSREGISTRAR registrar("a", "id", CMADE<1>::Make);
        const CLASSREGISTRAR abstract("b", nullptr, nullptr);
        COBJECTFACTORY::Free();
        EXPECT_EQ(COBJECTFACTORY::GetInstance()->IsRegistered("a"), 1);
        EXPECT_EQ(COBJECTFACTORY::GetInstance()->IsRegistered("b"), 0);
    }
    EXPECT_EQ(COBJECTFACTORY::GetInstance()->IsRegistered("a"), 0);
    {
        const CLASSREGISTRAR registrar("a", "id", CMADE<1>::Make);
        COBJECTFACTORY::GetInstance()->RegisterClass("a", "id", CMADE<2>::Make);
    }
    EXPECT_EQ(COBJECTFACTORY::GetInstance()->IsRegisteredIdentifier("id"), 1) << "another one's by then";
    COBJECTFACTORY::GetInstance()->UnregisterClass("a");
}

}  // namespace
