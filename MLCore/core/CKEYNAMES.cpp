#include <MLCore/core/CKEYNAMES.h>

#include <MLCore/core/ClassDeclaration.h>

namespace MLCore {

CKEYNAMES::~CKEYNAMES() = default;

const CCLASSTYPEINFO& CKEYNAMES::ClassInfoStatic() {
    static CLASSDESCRIPTION<CKEYNAMES, void> gClassInfo("CKEYNAMES");
    return gClassInfo;
}

}  // namespace MLCore
