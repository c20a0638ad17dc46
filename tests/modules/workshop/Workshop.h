/// The second of the modules that share classes: it derives from a class of the first one.
#pragma once

#include <depot/Depot.h>

#if defined(MLCORE_STATIC)
#define WORKSHOP_API
#elif !defined(_WIN32)
#define WORKSHOP_API __attribute__((visibility("default")))
#elif defined(workshop_EXPORTS)
#define WORKSHOP_API __declspec(dllexport)
#else
#define WORKSHOP_API __declspec(dllimport)
#endif

namespace workshop {

/// A protocol of this module.
class WORKSHOP_API CREPAIRED : public MLCore::PROTOCOL {
public:
    virtual int Repairs() const = 0;
    static const MLCore::CCLASSTYPEINFO& ClassInfoStatic();

protected:
    ~CREPAIRED() override = default;
};

/// Stands in front of the base class with the class information: whatever is inherited lies further behind.
struct FRONT {
    virtual ~FRONT() = default;
    double front[5] = {};
};

class WORKSHOP_API CPART : public FRONT, public depot::CITEM, public CREPAIRED {
    MLCORE_CLASS(CPART, depot::CITEM, CREPAIRED)
public:
    std::string Label() const override { return "part"; }
    int Repairs() const override { return 3; }
};

WORKSHOP_API std::array<const void*, 7> AddressesInWorkshop();
/// Fails with `code` through a check of the library.
WORKSHOP_API void FailInWorkshop(short code);

}  // namespace workshop
