// What the debugger is asked to show; the lines that it should print are in expected.txt.
#include <MLCore/core/COBJECT.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/datetime/CTIMESPAN.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/CMEMDICTIONARY.h>
#include <MLCore/values/CMEMSET.h>
#include <MLCore/values/CVALUE.h>
#include <MLCore/values/CVALUEOBJECT.h>

#include <string>

using namespace MLCore;

namespace shop {

class CORDER : public COBJECT {
    MLCORE_CLASS(CORDER, COBJECT)
public:
    int mNumber = 7;
};

MLCORE_REGISTER_CLASS(CORDER)

}  // namespace shop

namespace {

volatile int gStopped = 0;

void StopHere() { gStopped = gStopped + 1; }

CSHAREOBJECTPTR<CVALUEOBJECT> Boxed(long number) { return CVALUEOBJECT::Create(CVALUE(number)); }

}  // namespace

int main() {
    const CDATE date(30, 4, 2026), noDate;
    const CTIME time(7, 5, 9);
    const CDATETIME moment(date, time), noMoment;
    const CTIMESPAN span(125L * 3600 + 61), back(-300);

    const CVALUE unknown, shortValue(short(-5)), ushortValue(static_cast<unsigned short>(65535)), longValue(-70000L),
        ulongValue(4000000000UL), boolValue(1), floatValue(0.5F), doubleValue(0.1), dateValue(date), timeValue(time),
        momentValue(moment), text("\xE9t\xE9 \x80 \"\n"), empty(""), longText(std::string(300, 'x').c_str());
    const unsigned char guidBytes[16] = {0x33, 0x22, 0x11, 0x00, 0x55, 0x44, 0x77, 0x66,
                                         0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF};
    const CVALUE guidValue(CVALUE::Type::Guid, guidBytes), noObject(CVALUE::Type::Object, nullptr);

    const CSHAREOBJECTPTR<COBJECT> none, order = AdoptObject(new shop::CORDER), sameOrder(order);
    const CVALUE objectValue(order.Get());
    const CSHAREOBJECTPTR<CVALUEOBJECT> boxed = CVALUEOBJECT::Create(CVALUE("abc"));

    const CSHAREOBJECTPTR<CARRAY> array = CMEMARRAY::Create({Boxed(1), Boxed(2)}), noElements = CMEMARRAY::Create();
    const CSHAREOBJECTPTR<CDICTIONARY> small = CMEMDICTIONARY::Create("\xE9", Boxed(3)),
                                       large = CMEMDICTIONARY::Create();
    small->SetKeyValue("b", nullptr);
    for (int key = 29; key >= 10; --key) large->SetKeyValue("k" + std::to_string(key), nullptr);
    const CSHAREOBJECTPTR<COBJECT> first = Boxed(4), second = Boxed(5);
    const CSHAREOBJECTPTR<CSET> set = CMEMSET::Create({first, second});
    set->RemoveObject(first);
    const CSHAREOBJECTPTR<CARRAY> mixed = CMEMARRAY::Create({order, nullptr, array});
    StopHere();
    return gStopped - 1;
}
