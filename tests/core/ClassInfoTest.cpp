#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/core/ClassDeclaration.h>
#include <gtest/gtest.h>
#include <support/Failure.h>

#include <exception>
#include <string>

namespace zoo {

using namespace MLCore;

class CSPEAKS : public PROTOCOL {
public:
    virtual int Sound() const = 0;
    static const CCLASSTYPEINFO& ClassInfoStatic() {
        static const CLASSDESCRIPTION<CSPEAKS, void> gClassInfo("CSPEAKS");
        return gClassInfo;
    }
};

/// A protocol that includes another one, which does not stand at its start.
class CSINGS : public std::exception, public CSPEAKS {
public:
    virtual int Notes() const = 0;
    static const CCLASSTYPEINFO& ClassInfoStatic() {
        static const CLASSDESCRIPTION<CSINGS, void, CSPEAKS> gClassInfo("CSINGS");
        return gClassInfo;
    }
};

class CANIMAL : public COBJECT {
    MLCORE_CLASS(CANIMAL, COBJECT)
    virtual int Legs() const = 0;
};

class CDOG : public CANIMAL, public CSPEAKS {
    MLCORE_CLASS(CDOG, CANIMAL, CSPEAKS)
    int Legs() const override { return 4; }
    int Sound() const override { return 1; }
};

class CPUPPY : public CDOG {
    MLCORE_CLASS(CPUPPY, CDOG)
public:
    explicit CPUPPY(int its) : sound(its) {}
    int Sound() const override { return sound; }
    const int sound;
};

class CBIRD : public CANIMAL, public CSINGS {
    MLCORE_CLASS(CBIRD, CANIMAL, CSINGS)
    int Legs() const override { return 2; }
    int Notes() const override { return 8; }
    int Sound() const override { return 2; }
};

MLCORE_REGISTER_CLASS(CANIMAL)
MLCORE_REGISTER_CLASS(CDOG)
MLCORE_REGISTER_CLASS(CPUPPY)
MLCORE_REGISTER_CLASS(CBIRD, "BIRD.2")

/// Says nothing about its class.
class CSTRAY : public COBJECT {
public:
    explicit CSTRAY(const char* its = "CSTRAY") : name(its) {}
    const char* ClassName() const override { return name; }
    const char* const name;
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
    const auto derives = [&kClasses](int descendant, int ancestor) {
        int at = kClasses[descendant].parent;
        while (at > ancestor) {
            at = kClasses[at].parent;
        }
        return at == ancestor;
    };
    for (int i = 0; i < 6; ++i) {
        const CCLASSTYPEINFO& self = kClasses[i].info;
        const int parent = kClasses[i].parent;
        EXPECT_STREQ(self.GetName(), kClasses[i].name);
        EXPECT_EQ(self.HasSuper(), parent >= 0);
        EXPECT_EQ(self.GetSuper(), parent >= 0 ? &kClasses[parent].info : nullptr);
        for (int j = 0; j < 6; ++j) {
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
    const struct {
        CSHAREOBJECTPTR<COBJECT> object;
        const CCLASSTYPEINFO& info;
        const char* name;
        const char* identifier;
    } kRows[] = {{AdoptObject(new CDOG), CDOG::ClassInfoStatic(), "CDOG", "CDOG"},
                 {AdoptObject(new CPUPPY(3)), CPUPPY::ClassInfoStatic(), "CPUPPY", nullptr},
                 {AdoptObject(new CBIRD), CBIRD::ClassInfoStatic(), "CBIRD", "BIRD.2"},
                 {AdoptObject(new CSTRAY), COBJECT::ClassInfoStatic(), "CSTRAY", nullptr}};
    const COBJECTFACTORY& factory = *COBJECTFACTORY::GetInstance();
    for (const auto& row : kRows) {
        EXPECT_EQ(&row.object->ClassInfo(), &row.info) << row.name;
        EXPECT_STREQ(row.object->GetClassName(), row.name);
        EXPECT_STREQ(row.object->GetClassIdentifier(), row.identifier) << row.name;
        // Only what can be created is registered: not a class without a default constructor, nor an undeclared one.
        const std::string factoryName = std::string("class zoo::") + row.name;
        EXPECT_EQ(factory.IsRegistered(factoryName.c_str()), row.identifier != nullptr) << row.name;
        EXPECT_EQ(factory.IsRegisteredIdentifier(row.identifier), row.identifier != nullptr) << row.name;
    }
    EXPECT_EQ(factory.IsRegisteredIdentifier("CBIRD"), 0);
    EXPECT_EQ(factory.IsRegistered("class zoo::CANIMAL"), 0) << "abstract";
    EXPECT_EQ(CANIMAL::_ClassIdentifier(), nullptr);
    EXPECT_EQ(COBJECT::_ClassIdentifier(), nullptr);
}

TEST(ClassInfoTest, Protocols) {
    const CSHAREOBJECTPTR<CPUPPY> puppy = AdoptObject(new CPUPPY(3));
    const CSHAREOBJECTPTR<CBIRD> bird = AdoptObject(new CBIRD);
    const CSHAREOBJECTPTR<CSTRAY> stray = AdoptObject(new CSTRAY);
    const CCLASSTYPEINFO& speaks = CSPEAKS::ClassInfoStatic();
    const CCLASSTYPEINFO& sings = CSINGS::ClassInfoStatic();
    EXPECT_EQ(CANIMAL::ClassInfoStatic().GetProtocols().size(), 0U);
    EXPECT_EQ(CPUPPY::ClassInfoStatic().GetProtocols().size(), 1U) << "inherited";
    ASSERT_EQ(CBIRD::ClassInfoStatic().GetProtocols().size(), 2U) << "declared, with what it includes";
    EXPECT_EQ(CBIRD::ClassInfoStatic().GetProtocols()[0].GetProtocol(), &sings);
    EXPECT_EQ(CBIRD::ClassInfoStatic().GetProtocols()[1].GetProtocol(), &speaks);

    ASSERT_EQ(ProtocolCast<CSPEAKS>(puppy), static_cast<CSPEAKS*>(puppy.Get()));
    EXPECT_EQ(ProtocolCast<CSPEAKS>(puppy)->Sound(), 3);
    ASSERT_EQ(ProtocolCast<CSINGS>(bird), static_cast<CSINGS*>(bird.Get()));
    EXPECT_EQ(ProtocolCast<CSINGS>(bird)->Notes(), 8);
    ASSERT_EQ(ProtocolCast<CSPEAKS>(bird), static_cast<CSPEAKS*>(bird.Get()));
    EXPECT_EQ(ProtocolCast<CSPEAKS>(bird)->Sound(), 2);

    EXPECT_EQ(ProtocolCast<CSINGS>(puppy), nullptr);
    EXPECT_EQ(ProtocolCast<CSPEAKS>(stray), nullptr);
    EXPECT_EQ(ProtocolCast<CSPEAKS>(nullptr), nullptr);
    EXPECT_EQ(puppy->GetProtocolInstance(nullptr), nullptr);
    EXPECT_EQ(puppy->ConformsToProtocol(&speaks), 1);
    EXPECT_EQ(stray->ConformsToProtocol(&speaks), 0);
    for (const CCLASSTYPEINFO* none : {&sings, &CDOG::ClassInfoStatic(), static_cast<const CCLASSTYPEINFO*>(nullptr)}) {
        EXPECT_EQ(puppy->ConformsToProtocol(none), 0) << "another's, a base class, and null";
    }
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
    EXPECT_EQ(stray->GetUseCount(), 1);
}

}  // namespace
