#include <MLCore/core/CINDEXEDACCESS.h>

#include <MLCore/core/ClassDeclaration.h>

namespace MLCore {

CINDEXEDACCESS::~CINDEXEDACCESS() = default;

const CCLASSTYPEINFO& CINDEXEDACCESS::ClassInfoStatic() {
    static CLASSDESCRIPTION<CINDEXEDACCESS, void> gClassInfo("CINDEXEDACCESS");
    return gClassInfo;
}

}  // namespace MLCore
