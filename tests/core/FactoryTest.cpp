#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/core/ClassDeclaration.h>
#include <gtest/gtest.h>
#include <support/Failure.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

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

/// Makes an object of its own, told as one of any class; the class below inherits that.
class CPLAIN : public MLCore::COBJECT {
    MLCORE_CLASS(CPLAIN, MLCore::COBJECT)
public:
    static MLCore::CSHAREOBJECTPTR<MLCore::COBJECT> Create() { return MLCore::AdoptObject(new CPLAIN(7)); }
    const int number;

protected:
    explicit CPLAIN(int its) : number(its) {}
};
class CHEIR : public CPLAIN {
    MLCORE_CLASS(CHEIR, CPLAIN)
public:
    CHEIR() : CPLAIN(8) {}
};

MLCORE_REGISTER_CLASS(CPLAIN)
MLCORE_REGISTER_CLASS(CHEIR)
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
        for (const char* name : {"a", "b", ""}) {
            factory.UnregisterClass(name);
        }
    }
    /// The classes made by these names and identifiers: "-" for what is not known and "0" for no object.
    std::string Made(const std::vector<const char*>& names, const std::vector<const char*>& identifiers) const {
        std::string made;
        for (const char* name : names) {
            made += Made(factory.IsRegistered(name), [&] { return factory.CreateObject(name); });
        }
        for (const char* identifier : identifiers) {
            made += Made(factory.IsRegisteredIdentifier(identifier),
                         [&] { return factory.CreateObjectFromIdentifier(identifier); });
        }
        return made;
    }

    COBJECTFACTORY& factory = *COBJECTFACTORY::GetInstance();

private:
    template <class Create>
    static std::string Made(int isKnown, const Create& create) {
        if (isKnown == 1) {
            const CSHAREOBJECTPTR<COBJECT> object = create();
            return object ? object->GetClassName() : "0";
        }
        EXPECT_EQ(FailureOf(create), 123);
        return "-";
    }
};

TEST_F(FactoryTest, NamesAndIdentifiersAreExact) {
    factory.RegisterClass("a", CMADE<1>::Make);
    factory.RegisterClass("b", "id", CMADE<2>::Make);
    EXPECT_EQ(factory.CreateObject("a")->GetUseCount(), 1);
    EXPECT_EQ(Made({"a", "b", "A", "", "a ", "id", nullptr}, {"id", "a", "b", "ID", "", "i", nullptr}),
              "12-----2------");
    factory.RegisterClass("", "", CMADE<1>::Make);
    EXPECT_EQ(Made({""}, {""}), "11") << "an empty name is a name";
    EXPECT_EQ(Made({"CLOADED", "class factorytest::CLOADED"}, {"CLOADED"}), "-CLOADEDCLOADED");
    for (const char* name : {static_cast<const char*>(nullptr), "unknown"}) {
        factory.UnregisterClass(name);
    }
}

TEST_F(FactoryTest, TheLaterRegistrationReplaces) {
    factory.RegisterClass("a", "old", CMADE<1>::Make);
    factory.RegisterClass("a", "new", CMADE<2>::Make);
    EXPECT_EQ(Made({"a"}, {"old", "new"}), "2-2");
    factory.RegisterClass("a", "new", CMADE<1>::Make);
    EXPECT_EQ(Made({"a"}, {"new"}), "11");
    factory.RegisterClass("a", CMADE<2>::Make);
    EXPECT_EQ(Made({"a"}, {"new"}), "2-");
}

TEST_F(FactoryTest, AnIdentifierGoesToTheClassThatTakesIt) {
    factory.RegisterClass("a", "id", CMADE<1>::Make);
    factory.RegisterClass("b", "id", CMADE<2>::Make);
    EXPECT_EQ(Made({"a", "b"}, {"id"}), "122");
    factory.UnregisterClass("a");
    EXPECT_EQ(Made({"a", "b"}, {"id"}), "-22") << "it is no longer the first one's to remove";
    factory.RegisterClass("a", "id", CMADE<1>::Make);
    factory.RegisterClass("b", CMADE<2>::Make);
    EXPECT_EQ(Made({"a", "b"}, {"id"}), "121") << "nor the second one's";
    factory.UnregisterClass("a");
    EXPECT_EQ(Made({"a", "b"}, {"id"}), "-2-");
}

TEST_F(FactoryTest, NullsAreRefused) {
    EXPECT_EQ(FailureOf([&] { factory.RegisterClass(nullptr, CMADE<1>::Make); }), -100);
    EXPECT_EQ(FailureOf([&] { factory.RegisterClass(nullptr, "id", CMADE<1>::Make); }), -100);
    EXPECT_EQ(FailureOf([&] { factory.RegisterClass("a", "id", nullptr); }), -100);
    EXPECT_EQ(Made({"a"}, {"id"}), "--");
}

TEST_F(FactoryTest, WhatTheCreatorDoesPassesThrough) {
    factory.RegisterClass("a", "id", []() -> CSHAREOBJECTPTR<COBJECT> { throw std::runtime_error("creator"); });
    EXPECT_THROW(static_cast<void>(factory.CreateObject("a")), std::runtime_error);
    EXPECT_THROW(static_cast<void>(factory.CreateObjectFromIdentifier("id")), std::runtime_error);
    factory.RegisterClass("a", []() -> CSHAREOBJECTPTR<COBJECT> { return nullptr; });
    EXPECT_EQ(Made({"a"}, {}), "0");
    const CSHAREOBJECTPTR<COBJECT> object = factory.CreateObjectFromIdentifier("CNUMBERED");
    EXPECT_EQ(dynamic_cast<factorytest::CNUMBERED&>(*object).number, 7) << "the class says how it is created";
    for (const auto& [identifier, number] : {std::pair("CPLAIN", 7), std::pair("CHEIR", 8)}) {
        const CSHAREOBJECTPTR<COBJECT> made = factory.CreateObjectFromIdentifier(identifier);
        EXPECT_EQ(dynamic_cast<factorytest::CPLAIN&>(*made).number, number) << identifier;
    }
    EXPECT_EQ(object->GetUseCount(), 1);
}

TEST_F(FactoryTest, ARegistrarThatGoesLeavesTheRegistrationBefore) {
    const CLASSREGISTRAR first("a", "id", CMADE<1>::Make);
    for (const char* name : {"a", "b"}) {
        {
            const CLASSREGISTRAR second(name, "id", CMADE<2>::Make);
            EXPECT_EQ(Made({name}, {"id"}), "22");
        }
        EXPECT_EQ(Made({"a", "b"}, {"id"}), "1-1");
    }
}

TEST(FactoryLifeTest, ANewFactoryKnowsWhatIsLoaded) {
    const auto knows = [](const char* name) { return COBJECTFACTORY::GetInstance()->IsRegistered(name) != 0; };
    constexpr const char* kName = "class factorytest::CLOADED";
    COBJECTFACTORY::GetInstance()->RegisterClass("a", CMADE<1>::Make);
    COBJECTFACTORY::GetInstance()->UnregisterClass(kName);
    EXPECT_FALSE(knows(kName));
    for (int round = 0; round < 2; ++round) {
        COBJECTFACTORY::Free();
        EXPECT_FALSE(knows("a"));
        EXPECT_TRUE(knows(kName));
        EXPECT_STREQ(COBJECTFACTORY::GetInstance()->CreateObjectFromIdentifier("CLOADED")->GetClassName(), "CLOADED");
    }
    {
        const CLASSREGISTRAR registrar("a", "id", CMADE<1>::Make);
        const CLASSREGISTRAR abstract("b", nullptr, nullptr);
        COBJECTFACTORY::Free();
        EXPECT_TRUE(knows("a"));
        EXPECT_FALSE(knows("b"));
    }
    EXPECT_FALSE(knows("a"));
    {
        const CLASSREGISTRAR registrar("a", "id", CMADE<1>::Make);
        COBJECTFACTORY::GetInstance()->RegisterClass("a", "id", CMADE<2>::Make);
    }
    EXPECT_TRUE(knows("a")) << "another one's by then";
    COBJECTFACTORY::GetInstance()->UnregisterClass("a");
}

}  // namespace
