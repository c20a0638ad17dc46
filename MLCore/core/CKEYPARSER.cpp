#include <MLCore/core/CKEYPARSER.h>

#include <MLCore/core/detail/KEYSTEPS.h>

namespace MLCore {

CKEYPARSER::CKEYPARSER(const std::string& keyPath) {
    KEYSTEPS steps(keyPath);
    do {
        const KEYSTEPS::STEP step = steps.Take();
        mAccessPath.push_back({step.isIndex, std::string(step.name), step.index});
    } while (!steps.IsEnd());
}

}  // namespace MLCore
