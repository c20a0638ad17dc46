// Code that must not compile. Without REFUSED the file does; with it the compiler must complain about every line that
// ends in "refused": see checks/refused.sh.

#include <MLCore/core/CCLASSTYPEINFO.h>
#include <MLCore/core/COBJECT.h>
#include <MLCore/core/CSHAREOBJECTCOUNTER.h>
#include <MLCore/core/CSINGLETON.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/core/FailureChecks.h>

#include <utility>

namespace {

using namespace MLCore;

class CFRUIT : public COBJECT {
public:
    const char* ClassName() const override { return "CFRUIT"; }
};
class CAPPLE : public CFRUIT {};
class CSTONE : public COBJECT {
public:
    const char* ClassName() const override { return "CSTONE"; }
};

class CLABELLED : public PROTOCOL {
public:
    static const CCLASSTYPEINFO& ClassInfoStatic() {
        static const CLASSDESCRIPTION<CLABELLED, void> gClassInfo("CLABELLED");
        return gClassInfo;
    }
};
class CPLAIN : public COBJECT, public CLABELLED {};
class CVIRTUAL : public COBJECT, public virtual CLABELLED {};

struct OTHERPOLICY {};
template <class Policy>
class CMANAGER : public CSINGLETON<CMANAGER<Policy>, Policy> {};

}  // namespace

void Holders(CSHAREOBJECTPTR<CFRUIT>& fruit, CSHAREOBJECTPTR<CAPPLE>& apple, CSHAREOBJECTPTR<CSTONE>& stone) {
    fruit = apple;
    static_cast<void>(fruit == apple);
    static_cast<void>(stone);
#ifdef REFUSED
    fruit = stone;                                   // refused
    apple = fruit;                                   // refused
    CSHAREOBJECTPTR<CFRUIT> made(std::move(stone));  // refused
    static_cast<void>(fruit == stone);               // refused
    delete static_cast<COBJECT*>(fruit.Get());       // refused
#endif
}

void Descriptions(const CCLASSTYPEINFO& info, const CLASSREGISTRAR& registrar, const CSHAREOBJECTCOUNTER& counter) {
    CLASSDESCRIPTION<CPLAIN, COBJECT, CLABELLED> description("CPLAIN");
    static_cast<void>(info.GetName());
    static_cast<void>(&registrar);
    static_cast<void>(&counter);
#ifdef REFUSED
    CCLASSTYPEINFO infoCopy(info);                                           // refused
    CLASSREGISTRAR registrarCopy(registrar);                                 // refused
    CSHAREOBJECTCOUNTER counterCopy(counter);                                // refused
    CLASSDESCRIPTION<CVIRTUAL, COBJECT, CLABELLED> virtualBase("CVIRTUAL");  // refused
    CLASSDESCRIPTION<CSTONE, COBJECT, CLABELLED> noBase("CSTONE");           // refused
#endif
}

void Objects(const CFRUIT& fruit) {
    static_cast<void>(new CFRUIT(fruit));
    sizeof(CMANAGER<autorelease>);
#ifdef REFUSED
    static_cast<void>(new COBJECT);                                     // refused
    static_cast<void>(new CSHAREOBJECT);                                // refused
    CMANAGER<autorelease> copy(*CMANAGER<autorelease>::GetInstance());  // refused
    sizeof(CMANAGER<OTHERPOLICY>);                                      // refused
#endif
}
