#include <MLCore/platform/TypeName.h>
#include <gtest/gtest.h>

namespace MLCore {

class TYPENAMEPROBE {
public:
    struct INNER {};
};
enum class TYPENAMEKIND { One };
template <class T>
class TYPENAMEHOLDER {};

}  // namespace MLCore

struct class_struct {};

namespace {

using MLCore::platform::TypeName;

TEST(TypeNameTest, ReadsAsWritten) {
    EXPECT_EQ(TypeName(typeid(MLCore::TYPENAMEPROBE)), "MLCore::TYPENAMEPROBE");
    EXPECT_EQ(TypeName(typeid(MLCore::TYPENAMEPROBE::INNER)), "MLCore::TYPENAMEPROBE::INNER");
    EXPECT_EQ(TypeName(typeid(MLCore::TYPENAMEKIND)), "MLCore::TYPENAMEKIND");
    EXPECT_EQ(TypeName(typeid(class_struct)), "class_struct");
    EXPECT_EQ(TypeName(typeid(int)), "int");
    EXPECT_EQ(TypeName(typeid(MLCore::TYPENAMEHOLDER<class_struct>)), "MLCore::TYPENAMEHOLDER<class_struct>");
}

}  // namespace
