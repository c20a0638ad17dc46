// In an archive whose objects nobody refers to: the class registers itself all the same.

#include <MLCore/core/ClassDeclaration.h>

namespace attic {

class CTRUNK : public MLCore::COBJECT {
    MLCORE_CLASS(CTRUNK, MLCore::COBJECT)
};

MLCORE_REGISTER_CLASS(CTRUNK)

}  // namespace attic
