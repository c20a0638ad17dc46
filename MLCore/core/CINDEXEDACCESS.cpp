#include <MLCore/core/CINDEXEDACCESS.h>
#include <MLCore/core/ClassDeclaration.h>

namespace MLCore {

const CCLASSTYPEINFO& CINDEXEDACCESS::ClassInfoStatic() {
    static const CLASSDESCRIPTION<CINDEXEDACCESS, void> gClassInfo("CINDEXEDACCESS");
    return gClassInfo;
}

}  // namespace MLCore
