#include <MLCore/core/COBJECTFACTORY.h>

#include <MLCore/core/FailureChecks.h>

#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace MLCore {

MLCORE_DEFINE_INSTANCE(CSINGLETON<COBJECTFACTORY, noautorelease>)

namespace {

struct ENTRY {
    COBJECTFACTORY::CREATOR creator;
    std::string identifier;
    bool hasIdentifier;
};

template <class Value>
using REGISTRY = std::map<std::string, Value, std::less<>>;

template <class Value>
const Value* Find(const REGISTRY<Value>& registry, const char* key) {
    if (key == nullptr) {
        return nullptr;
    }
    const auto found = registry.find(std::string_view(key));
    return found != registry.end() ? &found->second : nullptr;
}

}  // namespace

struct COBJECTFACTORY::IMPLEMENTATION {
    REGISTRY<ENTRY> byName;
    REGISTRY<const REGISTRY<ENTRY>::value_type*> byIdentifier;  // identifier -> the class that owns it
};

namespace {

bool IsSameText(const char* left, const char* right) noexcept {
    return left != nullptr && right != nullptr && std::strcmp(left, right) == 0;
}

FAILUREPART NameOrNull(const char* name) noexcept {
    return name != nullptr ? FAILUREPART(Quoted(name)) : FAILUREPART("null");
}

// The registrars of all loaded modules, first to last. Constant-initialised: it stands before any registrar runs.
CLASSREGISTRAR* gFirstRegistrar = nullptr;

}  // namespace

CLASSREGISTRAR::CLASSREGISTRAR(std::string className, const char* classIdentifier, CREATOR creator)
    : mClassName(std::move(className)), mClassIdentifier(classIdentifier), mCreator(creator) {
    if (mCreator == nullptr) {
        return;
    }
    COBJECTFACTORY::GetInstance()->Enter(*this);
    CLASSREGISTRAR** end = &gFirstRegistrar;
    while (*end != nullptr) {
        end = &(*end)->mNext;
    }
    *end = this;
}

CLASSREGISTRAR::~CLASSREGISTRAR() {
    for (CLASSREGISTRAR** link = &gFirstRegistrar; *link != nullptr; link = &(*link)->mNext) {
        if (*link == this) {
            *link = mNext;
            break;
        }
    }
    if (mCreator != nullptr && COBJECTFACTORY::mInstance != nullptr) {
        COBJECTFACTORY::mInstance->Leave(*this);
    }
}

COBJECTFACTORY::COBJECTFACTORY() : mImplementation(std::make_unique<IMPLEMENTATION>()) {
    for (const CLASSREGISTRAR* registrar = gFirstRegistrar; registrar != nullptr; registrar = registrar->mNext) {
        Enter(*registrar);
    }
}

COBJECTFACTORY::~COBJECTFACTORY() = default;

void COBJECTFACTORY::RegisterClass(const char* className, const char* classIdentifier, CREATOR creator) {
    Require(className != nullptr, kErrNull, "the name of the class to register is null");
    Require(creator != nullptr, kErrNull, "the creator of the class to register is null");
    const bool hasIdentifier = classIdentifier != nullptr;
    ENTRY entry{creator, hasIdentifier ? classIdentifier : "", hasIdentifier};
    // Every allocation comes before the first change, so a failure leaves the registries as they were.
    REGISTRY<ENTRY> newName;
    newName.emplace(className, std::move(entry));
    REGISTRY<const REGISTRY<ENTRY>::value_type*> newIdentifier;
    if (hasIdentifier) {
        newIdentifier.emplace(classIdentifier, &*newName.begin());  // stays where it is when the maps are merged
        mImplementation->byIdentifier.erase(classIdentifier);
    }
    UnregisterClass(className);
    mImplementation->byName.merge(newName);
    mImplementation->byIdentifier.merge(newIdentifier);
}

void COBJECTFACTORY::RegisterClass(const char* className, CREATOR creator) {
    RegisterClass(className, nullptr, creator);
}

void COBJECTFACTORY::UnregisterClass(const char* className) {
    if (className == nullptr) {
        return;
    }
    const auto found = mImplementation->byName.find(className);
    if (found == mImplementation->byName.end()) {
        return;
    }
    if (found->second.hasIdentifier) {
        const auto owner = mImplementation->byIdentifier.find(found->second.identifier);
        if (owner != mImplementation->byIdentifier.end() && owner->second == &*found) {
            mImplementation->byIdentifier.erase(owner);
        }
    }
    mImplementation->byName.erase(found);
}

int COBJECTFACTORY::IsRegistered(const char* className) const {
    return Find(mImplementation->byName, className) != nullptr ? 1 : 0;
}

int COBJECTFACTORY::IsRegisteredIdentifier(const char* classIdentifier) const {
    return Find(mImplementation->byIdentifier, classIdentifier) != nullptr ? 1 : 0;
}

CSHAREOBJECTPTR<COBJECT> COBJECTFACTORY::CreateObject(const char* className) const {
    const ENTRY* const entry = Find(mImplementation->byName, className);
    if (entry == nullptr) {
        FailWith(kErrUnknownClass, "no class is registered under the name ", NameOrNull(className));
    }
    return entry->creator();
}

CSHAREOBJECTPTR<COBJECT> COBJECTFACTORY::CreateObjectFromIdentifier(const char* classIdentifier) const {
    const auto* const owner = Find(mImplementation->byIdentifier, classIdentifier);
    if (owner == nullptr) {
        FailWith(kErrUnknownClass, "no class is registered under the identifier ", NameOrNull(classIdentifier));
    }
    return (*owner)->second.creator();
}

void COBJECTFACTORY::Enter(const CLASSREGISTRAR& registrar) {
    RegisterClass(registrar.mClassName.c_str(), registrar.mClassIdentifier, registrar.mCreator);
}

// A class of the same name that was registered since stays. Those that this registrar had replaced come back, in the
// order in which they were loaded.
void COBJECTFACTORY::Leave(const CLASSREGISTRAR& registrar) noexcept {
    const char* const name = registrar.mClassName.c_str();
    const char* const identifier = registrar.mClassIdentifier;
    const auto isInForce = [this](const CLASSREGISTRAR& entered) {
        const ENTRY* const entry = Find(mImplementation->byName, entered.mClassName.c_str());
        return entry != nullptr && entry->creator == entered.mCreator;
    };
    if (!isInForce(registrar)) {
        return;
    }
    UnregisterClass(name);
    const bool isIdentifierFree = IsRegisteredIdentifier(identifier) == 0;
    try {
        for (const CLASSREGISTRAR* other = gFirstRegistrar; other != nullptr; other = other->mNext) {
            const bool lostIdentifier = isIdentifierFree && IsSameText(other->mClassIdentifier, identifier);
            if (other->mClassName == name || (lostIdentifier && isInForce(*other))) {
                Enter(*other);
            }
        }
    } catch (const std::bad_alloc&) {
        // A module is being unloaded: nobody is there to handle a failure.
    }
}

}  // namespace MLCore
