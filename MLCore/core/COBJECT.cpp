#include <MLCore/core/COBJECT.h>

#include <MLCore/core/CINDEXEDACCESS.h>
#include <MLCore/core/CKEYNAMES.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/core/ExactClass.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/core/detail/KEYSTEPS.h>
#include <MLCore/core/detail/NearestName.h>

#include <algorithm>
#include <cstring>
#include <string_view>
#include <vector>

namespace MLCore {

namespace {

using STEP = KEYSTEPS::STEP;

// The array that `object` is, with `index` known to lie in it.
CINDEXEDACCESS& ArrayWithIndex(COBJECT* object, long index) {
    CINDEXEDACCESS* const array = ProtocolCast<CINDEXEDACCESS>(object);
    if (array == nullptr) {
        FailWith(kErrUnknownKey, object->GetClassName(), " has no elements, asked for [", index, "]");
    }
    if (const long count = array->GetCount(); index >= count) {
        FailWith(kErrUnknownKey, object->GetClassName(), " has ", count, " elements, asked for [", index, "]");
    }
    return *array;
}

CSHAREOBJECTPTR<COBJECT> ValueAtStep(COBJECT* object, const STEP& step) {
    return step.isIndex ? ArrayWithIndex(object, step.index).GetObjectAt(step.index)
                        : object->GetKeyValue(std::string(step.name));
}

void SetValueAtStep(COBJECT* object, const STEP& step, COBJECT* value) {
    if (step.isIndex) {
        ArrayWithIndex(object, step.index).SetObjectAt(step.index, value);
    } else {
        object->SetKeyValue(std::string(step.name), value);
    }
}

// The keys that the object lists. That they cannot be listed must not hide what failed.
std::vector<std::string> KeyNamesOf(COBJECT* object) {
    try {
        const CKEYNAMES* const known = ProtocolCast<CKEYNAMES>(object);
        return known != nullptr ? known->GetKeyNames() : std::vector<std::string>();
    } catch (...) {
        return {};
    }
}

// A key that is unknown in a path of several steps is named with its path, unless the object that was asked threw an
// exception of another class. Must be called while the failure is handled.
[[noreturn]] void FailInPath(const FrameworkException& failure, const std::string& keyPath, int step) {
    const bool isPlain = IsExactly<FrameworkException>(failure) && failure.GetClass() == kErrUnknownKey &&
                         failure.GetMsg() == kErrUnknownKey;
    if (!isPlain || KEYSTEPS::IsName(keyPath)) {
        throw;
    }
    constexpr std::size_t kMostOfText = 200;  // leaves room for the path
    const char* const text = failure.GetText();
    const std::string_view reason = text != nullptr ? text : DescribeFailure(kErrUnknownKey);
    FailWith(kErrUnknownKey, reason.substr(0, kMostOfText), " (step ", step, " of the path ", Quoted(keyPath), ")");
}

// Walks to the object that the last step of a path is asked of, and calls `action(object, last)`; calls nothing after a
// null on the way, and reports it. Each object is held: a property may be computed, and then nobody else owns it.
// Nothing is asked when the path is malformed.
template <class Action>
bool AtLastStep(COBJECT* start, const std::string& keyPath, const Action& action) {
    KEYSTEPS::Check(keyPath);
    KEYSTEPS steps(keyPath);
    CSHAREOBJECTPTR<COBJECT> current(start);
    int step = 1;
    try {
        STEP next = steps.Take();
        for (; !steps.IsEnd() && !!current; next = steps.Take()) {
            current = ValueAtStep(current, next);
            ++step;
        }
        if (!!current) {
            action(current.Get(), next);
        }
        return !!current;
    } catch (const FrameworkException& failure) {
        FailInPath(failure, keyPath, step);
    }
}

}  // namespace

COBJECT::~COBJECT() = default;

const CCLASSTYPEINFO* COBJECT::_ClassInfo() {
    static const CCLASSTYPEINFO gClassInfo("COBJECT", nullptr, 0);
    return &gClassInfo;
}

const CCLASSTYPEINFO& COBJECT::ClassInfoStatic() { return *_ClassInfo(); }

const char* COBJECT::_ClassIdentifier() { return nullptr; }

const CCLASSTYPEINFO& COBJECT::ClassInfo() const { return ClassInfoStatic(); }

PROTOCOL* COBJECT::GetProtocolInstance(const CCLASSTYPEINFO* protocol) {
    return ClassInfoStatic().GetProtocol(protocol, this);
}

COBJECT* COBJECT::Clone() const { FailWith(kErrUnsupported, GetClassName(), " cannot be copied by Clone()"); }

CSHAREOBJECTPTR<COBJECT> COBJECT::GetKeyValue(const std::string& key) { FailUnknownKey(key); }

void COBJECT::SetKeyValue(const std::string& key, COBJECT*) { FailUnknownKey(key); }

void COBJECT::FailUnknownKey(const std::string& key) {
    const std::vector<std::string> names = KeyNamesOf(this);
    if (std::find(names.begin(), names.end(), key) != names.end()) {
        FailWith(kErrUnknownKey, GetClassName(), " lists the key ", Quoted(key),
                 " but does not let it be read or set here");
    }
    const std::string* const nearest = NearestName(names, key);
    if (nearest == nullptr) {
        FailWith(kErrUnknownKey, GetClassName(), " has no key ", Quoted(key));
    }
    FailWith(kErrUnknownKey, GetClassName(), " has no key ", Quoted(key), "; did you mean ", Quoted(*nearest), "?");
}

CSHAREOBJECTPTR<COBJECT> COBJECT::GetKeyPathValue(const std::string& keyPath) {
    if (KEYSTEPS::IsName(keyPath)) {
        return GetKeyValue(keyPath);  // most paths are one name: without a copy of it
    }
    const std::string path = keyPath;  // a property asked on the way may change what holds the caller's
    CSHAREOBJECTPTR<COBJECT> value;
    AtLastStep(this, path, [&value](COBJECT* source, const STEP& last) { value = ValueAtStep(source, last); });
    return value;
}

void COBJECT::SetKeyPathValue(const std::string& keyPath, COBJECT* value) {
    const std::string path = keyPath;
    const CSHAREOBJECTPTR<COBJECT> held(value);
    const bool isSet =
        AtLastStep(this, path, [&held](COBJECT* target, const STEP& last) { SetValueAtStep(target, last, held); });
    Require(isSet, kErrUnknownKey, "null on the way of the path ", Quoted(path), ": nothing to set");
}

int COBJECT::ConformsToProtocol(const CCLASSTYPEINFO* protocol) const {
    return ClassInfo().ConformsToProtocol(protocol);
}

const char* COBJECT::ClassIdentifier() const { return _ClassIdentifier(); }

short COBJECT::CmpClass(const COBJECT& other) const {
    const int order = std::strcmp(ClassName(), other.ClassName());
    return static_cast<short>((order > 0) - (order < 0));
}

}  // namespace MLCore
