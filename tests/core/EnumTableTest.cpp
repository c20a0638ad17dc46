#include <MLCore/core/EnumTable.h>
#include <MLCore/core/ExactClass.h>
#include <gtest/gtest.h>

namespace {

using namespace MLCore;

enum class Fruit { Apple, Pear, Plum };
struct ROW {
    Fruit fruit;
};
constexpr ROW kWhole[] = {{Fruit::Apple}, {Fruit::Pear}, {Fruit::Plum}};
constexpr ROW kShort[] = {{Fruit::Apple}, {Fruit::Pear}};
constexpr ROW kGap[] = {{Fruit::Apple}, {Fruit::Plum}};
constexpr ROW kTwice[] = {{Fruit::Apple}, {Fruit::Pear}, {Fruit::Pear}};
constexpr ROW kSwapped[] = {{Fruit::Pear}, {Fruit::Apple}, {Fruit::Plum}};
static_assert(IsIndexedBy(kWhole, &ROW::fruit, 3));
static_assert(!IsIndexedBy(kWhole, &ROW::fruit, 4));
static_assert(!IsIndexedBy(kShort, &ROW::fruit, 3));
static_assert(!IsIndexedBy(kGap, &ROW::fruit, 2));
static_assert(!IsIndexedBy(kTwice, &ROW::fruit, 3));
static_assert(!IsIndexedBy(kSwapped, &ROW::fruit, 3));

struct BASE {
    BASE() = default;
    BASE(const BASE&) = delete;
    BASE& operator=(const BASE&) = delete;
    virtual ~BASE() = default;
};
struct MIDDLE : BASE {};
struct LEAF : MIDDLE {};

TEST(ExactClassTest, IsTheClassItself) {
    const MIDDLE middle;
    const LEAF leaf;
    const BASE& asBase = middle;
    EXPECT_TRUE(IsExactly<MIDDLE>(asBase));
    EXPECT_FALSE(IsExactly<BASE>(asBase));
    EXPECT_FALSE(IsExactly<MIDDLE>(static_cast<const BASE&>(leaf))) << "a derived class is another one";
    EXPECT_TRUE((IsExactly<LEAF, MIDDLE>(asBase)));
    EXPECT_FALSE((IsExactly<LEAF, BASE>(asBase)));
}

}  // namespace
