// A stranger's program: a date from the library, a class of its own in the library's factory.
#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/datetime/CDATE.h>

#include <iostream>
#include <string>

namespace shop {

class CORDER : public MLCore::COBJECT {
    MLCORE_CLASS(CORDER, MLCore::COBJECT)
public:
    CORDER() = default;
};

MLCORE_REGISTER_CLASS(CORDER)

}  // namespace shop

namespace {

int failures = 0;

void Expect(const std::string& what, const std::string& got, const std::string& wanted) {
    if (got != wanted) {
        std::cerr << what << ": got " << got << ", wanted " << wanted << '\n';
        ++failures;
    }
}

}  // namespace

int main() {
    // Friday 1 May is a holiday in France, so the next business day after Thursday is Monday.
    const MLCore::CDATE thursday(30, 4, 2026);
    Expect("the date", thursday.ToStringXML(), "2026-04-30");
    Expect("the next business day", MLCore::NextDateOuvre(thursday, nullptr).ToStringXML(), "2026-05-04");

    MLCore::COBJECTFACTORY* factory = MLCore::COBJECTFACTORY::GetInstance();
    Expect("our class is registered", std::to_string(factory->IsRegistered("class shop::CORDER")), "1");
    Expect("an unknown one is not", std::to_string(factory->IsRegistered("class shop::CINVOICE")), "0");
    Expect("its name", factory->CreateObject("class shop::CORDER")->ClassName(), "CORDER");

    if (failures == 0) std::cout << "works\n";
    return failures;
}
