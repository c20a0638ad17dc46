// A module that nobody links: the test loads and unloads it.

#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/core/CSINGLETON.h>
#include <MLCore/core/ClassDeclaration.h>

namespace press {

class CSHEET : public MLCore::COBJECT {
    MLCORE_CLASS(CSHEET, MLCore::COBJECT)
};

MLCORE_REGISTER_CLASS(CSHEET)

class CROLLERS : public MLCore::CSINGLETON<CROLLERS, MLCore::autorelease> {
public:
    int* freed = nullptr;

private:
    friend class MLCore::CSINGLETON<CROLLERS, MLCore::autorelease>;
    CROLLERS() = default;
    ~CROLLERS() override { ++*freed; }
};

}  // namespace press

#if defined(_WIN32)
#define PRESS_API __declspec(dllexport)
#else
#define PRESS_API __attribute__((visibility("default")))
#endif

// Creates the module's own singleton, which counts its end in `freed`.
extern "C" PRESS_API void StartPress(int* freed) { press::CROLLERS::GetInstance()->freed = freed; }
