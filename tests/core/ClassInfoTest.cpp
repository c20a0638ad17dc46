#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/core/ClassDeclaration.h>
#include <gtest/gtest.h>
#include <support/Failure.h>

#include <array>
#include <cstring>
#include <string>

namespace zoo {

using namespace MLCore;

class CSPEAKS : public PROTOCOL {
public:
    virtual std::string Speak() const = 0;
    static const CCLASSTYPEINFO& ClassInfoStatic() {
        static const CLASSDESCRIPTION<CSPEAKS, void> gClassInfo("CSPEAKS");
        return gClassInfo;
    }

protected:
    ~CSPEAKS() override = default;
};

struct FILLER {
    virtual ~FILLER() = default;
    long filler[2] = {};
};

/// A protocol that includes another one, which does not stand at its start.
class CSINGS : public FILLER, public CSPEAKS {
public:
    virtual int Notes() const = 0;
    static const CCLASSTYPEINFO& ClassInfoStatic() {
        static const CLASSDESCRIPTION<CSINGS, void, CSPEAKS> gClassInfo("CSINGS");
        return gClassInfo;
    }
};

class CANIMAL : public COBJECT {
    MLCORE_CLASS(CANIMAL, COBJECT)
public:
    virtual int Legs() const = 0;
};

class CDOG : public CANIMAL, public CSPEAKS {
    MLCORE_CLASS(CDOG, CANIMAL, CSPEAKS)
public:
    int Legs() const override { return 4; }
    std::string Speak() const override { return "woof"; }
};

class CPUPPY : public CDOG {
    MLCORE_CLASS(CPUPPY, CDOG)
public:
    explicit CPUPPY(int weeks) : mWeeks(weeks) {}
    std::string Speak() const override { return mWeeks < 8 ? "yip" : "woof"; }

private:
    int mWeeks;
};

class CBIRD : public CANIMAL, public CSINGS {
    MLCORE_CLASS(CBIRD, CANIMAL, CSINGS)
public:
    int Legs() const override { return 2; }
    int Notes() const override { return 8; }
    std::string Speak() const override { return "tweet"; }
};

MLCORE_REGISTER_CLASS(CANIMAL)
MLCORE_REGISTER_CLASS(CDOG)
MLCORE_REGISTER_CLASS(CPUPPY)
MLCORE_REGISTER_CLASS(CBIRD, "BIRD.2")

/// Says nothing about its class.
class CSTRAY : public COBJECT {
public:
    explicit CSTRAY(const char* name = "CSTRAY") : mName(name) {}
    const char* ClassName() const override { return mName; }

private:
    const char* mName;
};

}  // namespace zoo

namespace {

using namespace zoo;
using support::FailureOf;

static_assert(std::is_abstract_v<COBJECT> && std::is_copy_constructible_v<CSTRAY>);
static_assert(!std::is_copy_constructible_v<CCLASSTYPEINFO> && !std::is_copy_assignable_v<CCLASSTYPEINFO>);
static_assert(!std::is_copy_constructible_v<CLASSREGISTRAR> && !std::is_copy_assignable_v<CLASSREGISTRAR>);

TEST(ClassInfoTest, Relations) {
    const struct {
        const CCLASSTYPEINFO& info;
        const char* name;
        int parent;
    } kClasses[] = {{COBJECT::ClassInfoStatic(), "COBJECT", -1}, {CANIMAL::ClassInfoStatic(), "CANIMAL", 0},
                    {CDOG::ClassInfoStatic(), "CDOG", 1},        {CPUPPY::ClassInfoStatic(), "CPUPPY", 2},
                    {CBIRD::ClassInfoStatic(), "CBIRD", 1},      {CSPEAKS::ClassInfoStatic(), "CSPEAKS", -1}};
    constexpr int kCount = 6;
    const auto derives = [&kClasses](int descendant, int ancestor) {
        for (int at = kClasses[descendant].parent; at >= 0; at = kClasses[at].parent) {
            if (at == ancestor) {
                return true;
            }
        }
        return false;
    };
    for (int i = 0; i < kCount; ++i) {
        const CCLASSTYPEINFO& self = kClasses[i].info;
        EXPECT_STREQ(self.GetName(), kClasses[i].name);
        EXPECT_EQ(self.HasSuper(), kClasses[i].parent >= 0);
        EXPECT_EQ(self.GetSuper(), kClasses[i].parent >= 0 ? &kClasses[kClasses[i].parent].info : nullptr);
        for (int j = 0; j < kCount; ++j) {
            const CCLASSTYPEINFO& other = kClasses[j].info;
            SCOPED_TRACE(std::string(kClasses[i].name) + " and " + kClasses[j].name);
            EXPECT_EQ(self.IsSame(other), i == j);
            EXPECT_EQ(self.IsSuper(other), kClasses[j].parent == i);
            EXPECT_EQ(self.IsBase(other), derives(j, i));
            EXPECT_EQ(self.IsKind(other), i == j || derives(i, j));
            EXPECT_EQ(self.IsRelative(other), i == j || derives(i, j) || derives(j, i));
        }
    }
}

TEST(ClassInfoTest, ObjectsKnowTheirClass) {
    const CSHAREOBJECTPTR<COBJECT> dog = AdoptObject(new CDOG);
    const CSHAREOBJECTPTR<COBJECT> puppy = AdoptObject(new CPUPPY(3));
    const CSHAREOBJECTPTR<COBJECT> bird = AdoptObject(new CBIRD);
    const CSHAREOBJECTPTR<COBJECT> stray = AdoptObject(new CSTRAY);
    const struct {
        COBJECT* object;
        const CCLASSTYPEINFO& info;
        const char* name;
        const char* identifier;
        const char* factoryName;
    } kRows[] = {{dog, CDOG::ClassInfoStatic(), "CDOG", "CDOG", "class zoo::CDOG"},
                 {puppy, CPUPPY::ClassInfoStatic(), "CPUPPY", nullptr, "class zoo::CPUPPY"},
                 {bird, CBIRD::ClassInfoStatic(), "CBIRD", "BIRD.2", "class zoo::CBIRD"},
                 {stray, COBJECT::ClassInfoStatic(), "CSTRAY", nullptr, "class zoo::CSTRAY"}};
    const COBJECTFACTORY& factory = *COBJECTFACTORY::GetInstance();
    for (const auto& row : kRows) {
        EXPECT_EQ(&row.object->ClassInfo(), &row.info) << row.name;
        EXPECT_STREQ(row.object->GetClassName(), row.name);
        EXPECT_STREQ(row.object->GetClassIdentifier(), row.identifier) << row.name;
        // Only what can be created is registered: not a class without a default constructor, nor an undeclared one.
        EXPECT_EQ(factory.IsRegistered(row.factoryName), row.identifier != nullptr) << row.name;
        EXPECT_EQ(factory.IsRegisteredIdentifier(row.identifier), row.identifier != nullptr) << row.name;
    }
    EXPECT_EQ(factory.IsRegisteredIdentifier("CBIRD"), 0);
    EXPECT_EQ(CANIMAL::_ClassIdentifier(), nullptr);
    EXPECT_EQ(COBJECT::_ClassIdentifier(), nullptr);
    EXPECT_EQ(factory.IsRegistered("class zoo::CANIMAL"), 0) << "abstract";
    EXPECT_EQ(FactoryNameOf<CDOG>(), "class zoo::CDOG");
}

TEST(ClassInfoTest, Protocols) {
    const CSHAREOBJECTPTR<CPUPPY> puppy = AdoptObject(new CPUPPY(3));
    const CSHAREOBJECTPTR<CBIRD> bird = AdoptObject(new CBIRD);
    const CSHAREOBJECTPTR<CSTRAY> stray = AdoptObject(new CSTRAY);
    EXPECT_EQ(CANIMAL::ClassInfoStatic().GetProtocols().size(), 0U);
    EXPECT_EQ(CDOG::ClassInfoStatic().GetProtocols().size(), 1U);
    EXPECT_EQ(CPUPPY::ClassInfoStatic().GetProtocols().size(), 1U) << "inherited";
    ASSERT_EQ(CBIRD::ClassInfoStatic().GetProtocols().size(), 2U) << "declared, with what it includes";
    EXPECT_EQ(CBIRD::ClassInfoStatic().GetProtocols()[0].GetProtocol(), &CSINGS::ClassInfoStatic());
    EXPECT_EQ(CBIRD::ClassInfoStatic().GetProtocols()[1].GetProtocol(), &CSPEAKS::ClassInfoStatic());

    ASSERT_EQ(ProtocolCast<CSPEAKS>(puppy), static_cast<CSPEAKS*>(puppy.Get()));
    EXPECT_EQ(ProtocolCast<CSPEAKS>(puppy)->Speak(), "yip");
    ASSERT_EQ(ProtocolCast<CSINGS>(bird), static_cast<CSINGS*>(bird.Get()));
    EXPECT_EQ(ProtocolCast<CSINGS>(bird)->Notes(), 8);
    ASSERT_EQ(ProtocolCast<CSPEAKS>(bird), static_cast<CSPEAKS*>(bird.Get()));
    EXPECT_EQ(ProtocolCast<CSPEAKS>(bird)->Speak(), "tweet");

    EXPECT_EQ(ProtocolCast<CSINGS>(puppy), nullptr);
    EXPECT_EQ(ProtocolCast<CSPEAKS>(stray), nullptr);
    EXPECT_EQ(ProtocolCast<CSPEAKS>(nullptr), nullptr);
    EXPECT_EQ(CDOG::ClassInfoStatic().GetProtocol(&CSINGS::ClassInfoStatic(), puppy.Get()), nullptr);
    EXPECT_EQ(puppy->GetProtocolInstance(nullptr), nullptr);
    EXPECT_EQ(puppy->ConformsToProtocol(&CSPEAKS::ClassInfoStatic()), 1);
    EXPECT_EQ(puppy->ConformsToProtocol(&CSINGS::ClassInfoStatic()), 0);
    EXPECT_EQ(puppy->ConformsToProtocol(&CDOG::ClassInfoStatic()), 0) << "a base class is no protocol";
    EXPECT_EQ(puppy->ConformsToProtocol(nullptr), 0);
    EXPECT_EQ(stray->ConformsToProtocol(&CSPEAKS::ClassInfoStatic()), 0);
}

TEST(ClassInfoTest, ClassesCompareByName) {
    const struct {
        const char* left;
        const char* right;
        short order;
    } kRows[] = {{"CARRAY", "CSET", -1}, {"CARRAY", "CARRAY", 0}, {"C", "CA", -1}, {"", "C", -1}, {"", "", 0},
                 {"z", "\xE9", -1}};
    for (const auto& row : kRows) {
        const CSHAREOBJECTPTR<CSTRAY> left = AdoptObject(new CSTRAY(row.left));
        const CSHAREOBJECTPTR<CSTRAY> right = AdoptObject(new CSTRAY(row.right));
        EXPECT_EQ(left->CmpClass(*right), row.order) << row.left << " and " << row.right;
        EXPECT_EQ(right->CmpClass(*left), -row.order) << row.right << " and " << row.left;
    }
}

TEST(ClassInfoTest, TheRootSupportsNothing) {
    const CSHAREOBJECTPTR<CSTRAY> stray = AdoptObject(new CSTRAY);
    EXPECT_EQ(FailureOf([&] { return stray->Clone(); }), 150);
    EXPECT_EQ(FailureOf([&] { return stray->GetKeyValue("key"); }), 151);
    EXPECT_EQ(FailureOf([&] { stray->SetKeyValue("key", stray); }), 151);
    EXPECT_EQ(FailureOf([&] { return stray->GetKeyPathValue("key"); }), 151);
    EXPECT_EQ(FailureOf([&] { stray->SetKeyPathValue("key", nullptr); }), 151);
    EXPECT_EQ(stray->GetUseCount(), 1);
}

}  // namespace
