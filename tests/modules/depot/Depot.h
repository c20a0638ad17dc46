/// The first of the modules that share classes: it declares protocols, a base class that conforms to them and a
/// singleton.
#pragma once

#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/core/CSINGLETON.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/datetime/CCALENDARMANAGER.h>

#include <array>
#include <string>

#if defined(MLCORE_STATIC)
#define DEPOT_API
#elif !defined(_WIN32)
#define DEPOT_API __attribute__((visibility("default")))
#elif defined(depot_EXPORTS)
#define DEPOT_API __declspec(dllexport)
#else
#define DEPOT_API __declspec(dllimport)
#endif

namespace depot {

class CSTOCK;

}  // namespace depot

extern template class DEPOT_API MLCore::CSINGLETON<depot::CSTOCK, MLCore::autorelease>;

namespace depot {

class DEPOT_API CSTOCK : public MLCore::CSINGLETON<CSTOCK, MLCore::autorelease> {
public:
    int pieces = 0;

private:
    friend class MLCore::CSINGLETON<CSTOCK, MLCore::autorelease>;
    CSTOCK() = default;
    ~CSTOCK() override = default;
};

/// A protocol.
class DEPOT_API CLABELLED : public MLCore::PROTOCOL {
public:
    virtual std::string Label() const = 0;
    static const MLCore::CCLASSTYPEINFO& ClassInfoStatic();

protected:
    ~CLABELLED() override = default;
};

/// Only there to take the first place in an object.
struct FILLER {
    virtual ~FILLER() = default;
    long filler[3] = {};
};

/// A protocol that includes another one, not at its start.
class DEPOT_API CPRICED : public FILLER, public CLABELLED {
public:
    virtual long Price() const = 0;
    static const MLCore::CCLASSTYPEINFO& ClassInfoStatic();
};

class DEPOT_API CITEM : public MLCore::COBJECT, public CPRICED {
    MLCORE_CLASS(CITEM, MLCore::COBJECT, CPRICED)
public:
    std::string Label() const override { return "item"; }
    long Price() const override { return mPrice; }

protected:
    CITEM() = default;
    ~CITEM() override = default;

private:
    long mPrice = 11;
};

/// What must be the same in every module of a process: compiled into each of them.
inline std::array<const void*, 7> SharedAddresses() {
    return {&MLCore::COBJECT::ClassInfoStatic(),
            &CITEM::ClassInfoStatic(),
            &CPRICED::ClassInfoStatic(),
            &CLABELLED::ClassInfoStatic(),
            MLCore::COBJECTFACTORY::GetInstance(),
            MLCore::CCALENDARMANAGER::GetInstance(),
            CSTOCK::GetInstance()};
}

DEPOT_API std::array<const void*, 7> AddressesInDepot();
/// Throws a FrameworkException (7, `msg`) made here.
DEPOT_API void ThrowInDepot(short msg);
/// Runs `action` and returns the message number of the failure caught here, 0 for none.
DEPOT_API short CatchInDepot(void (*action)());

}  // namespace depot
