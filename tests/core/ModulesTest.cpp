#include <MLCore/core/FailureChecks.h>
#include <gtest/gtest.h>
#include <support/Failure.h>
#include <support/SharedModule.h>
#include <workshop/Workshop.h>

#include <vector>

namespace {

using namespace MLCore;
using support::FailureOf;

TEST(ModulesTest, ClassInformationAndSingletonsAreOnePerProcess) {
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(depot::SharedAddresses(), depot::AddressesInDepot());
        EXPECT_EQ(depot::SharedAddresses(), workshop::AddressesInWorkshop());
        depot::CSTOCK::GetInstance()->pieces = 5;
        depot::CSTOCK::Free();
        EXPECT_EQ(depot::CSTOCK::GetInstance()->pieces, 0) << "freed here, created here";
    }
}

TEST(ModulesTest, AClassOfOneModuleDerivesFromAClassOfAnother) {
    const CCLASSTYPEINFO& part = workshop::CPART::ClassInfoStatic();
    EXPECT_EQ(part.GetSuper(), &depot::CITEM::ClassInfoStatic());
    EXPECT_EQ(COBJECT::ClassInfoStatic().IsBase(part), 1);
    EXPECT_EQ(part.IsKind(depot::CITEM::ClassInfoStatic()), 1);

    COBJECTFACTORY& factory = *COBJECTFACTORY::GetInstance();
    EXPECT_EQ(factory.IsRegistered("class workshop::CPART"), 1);
    EXPECT_EQ(factory.IsRegistered("class depot::CITEM"), 1) << "a constructor that is not public serves as well";
    const CSHAREOBJECTPTR<COBJECT> object = factory.CreateObjectFromIdentifier("CPART");
    EXPECT_NE(dynamic_cast<workshop::CPART*>(object.Get()), nullptr);
}

TEST(ModulesTest, InheritedProtocolsAreFoundBehindOtherBases) {
    const CSHAREOBJECTPTR<COBJECT> object = COBJECTFACTORY::GetInstance()->CreateObject("class workshop::CPART");
    auto& part = dynamic_cast<workshop::CPART&>(*object);
    ASSERT_NE(static_cast<void*>(&part), static_cast<void*>(object.Get())) << "the object must not start with its root";

    EXPECT_EQ(ProtocolCast<depot::CPRICED>(object)->Price(), 11);
    EXPECT_EQ(ProtocolCast<depot::CLABELLED>(object)->Label(), "part");
    EXPECT_EQ(ProtocolCast<workshop::CREPAIRED>(object)->Repairs(), 3);

    std::vector<const CCLASSTYPEINFO*> order;
    for (const CCLASSTYPEINFO::PROTOCOLELEM& element : part.ClassInfo().GetProtocols()) {
        order.push_back(element.GetProtocol());
    }
    const CCLASSTYPEINFO* const repaired = &workshop::CREPAIRED::ClassInfoStatic();
    EXPECT_EQ(order, (std::vector<const CCLASSTYPEINFO*>{&depot::CPRICED::ClassInfoStatic(),
                                                         &depot::CLABELLED::ClassInfoStatic(), repaired}));
    EXPECT_EQ(depot::CITEM::ClassInfoStatic().ConformsToProtocol(repaired), 0);
}

TEST(ModulesTest, FailuresCrossModules) {
    EXPECT_EQ(FailureOf([] { depot::ThrowInDepot(9); }), (support::FAILURE{7, 9, 0, ""}));
    EXPECT_EQ(FailureOf([] { workshop::FailInWorkshop(151); }), 151);
    EXPECT_EQ(depot::CatchInDepot([] { workshop::FailInWorkshop(-7); }), -7);
    EXPECT_EQ(depot::CatchInDepot([] { throw FrameworkException(1, 2); }), 2);
    EXPECT_EQ(depot::CatchInDepot([] { static_cast<void>(FailNull(nullptr)); }), -100);
}

TEST(ModulesTest, AnArchiveKeepsItsRegistrations) {
    EXPECT_EQ(COBJECTFACTORY::GetInstance()->CreateObjectFromIdentifier("CTRUNK")->GetUseCount(), 1);
}

#if !defined(MLCORE_STATIC)
TEST(ModulesTest, ALoadedModuleComesAndGoes) {
    int freed = 0;
    for (int round = 1; round <= 2; ++round) {
        COBJECTFACTORY& factory = *COBJECTFACTORY::GetInstance();
        support::SHAREDMODULE module(MLCORE_LOADED_MODULE);
        ASSERT_TRUE(module.IsLoaded());
        EXPECT_STREQ(factory.CreateObject("class press::CSHEET")->GetClassName(), "CSHEET");
        reinterpret_cast<void (*)(int*)>(module.Find("StartPress"))(&freed);
        EXPECT_EQ(freed, round - 1);
        if (round == 2) {
            // A new factory knows what is loaded, and forgets it with the module too.
            COBJECTFACTORY::Free();
            EXPECT_EQ(COBJECTFACTORY::GetInstance()->IsRegisteredIdentifier("CSHEET"), 1);
        }
        module.Close();
        EXPECT_EQ(COBJECTFACTORY::GetInstance()->IsRegistered("class press::CSHEET"), 0);
        EXPECT_EQ(COBJECTFACTORY::GetInstance()->IsRegisteredIdentifier("CSHEET"), 0);
        EXPECT_EQ(freed, round) << "the module's singleton goes with it";
    }
}

TEST(ModulesTest, ChecksAreExportedUnderTheirPlainNames) {
#if defined(_WIN32)
    const support::SHAREDMODULE library("MLCore.dll");
#else
    const support::SHAREDMODULE library(nullptr);
#endif
    ASSERT_TRUE(library.IsLoaded());
    for (const char* name : {"Fail", "FailOSErr", "FailCbErr", "FailCoherErr", "FailCoherFieldErr", "FailFALSE",
                             "FailTRUE", "FailNull", "FailNullPtr", "FailLastError", "FailOLEErr"}) {
        EXPECT_NE(library.Find(name), nullptr) << name;
    }
    const auto check = reinterpret_cast<void (*)(short)>(library.Find("FailOSErr"));
    EXPECT_EQ(FailureOf([check] { check(151); }), 151);
}
#endif

}  // namespace
