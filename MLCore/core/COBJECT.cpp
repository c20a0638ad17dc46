#include <MLCore/core/CINDEXEDACCESS.h>
#include <MLCore/core/COBJECT.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/core/KEYSTEPS.h>

#include <cstring>

namespace MLCore {

namespace {

using STEP = KEYSTEPS::STEP;

// The array behind `object`, with `index` known to lie in it.
CINDEXEDACCESS& ArrayWithIndex(COBJECT* object, long index) {
    CINDEXEDACCESS* const array = ProtocolCast<CINDEXEDACCESS>(object);
    if (array == nullptr || index >= array->GetCount()) {
        FailOSErr(kErrUnknownKey);
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

// The object that the last step of the path, put into `last`, is asked of; null after a null on the way. Each object is held:
// a property may be computed, and then nobody else owns it. Nothing is asked when the path is malformed.
CSHAREOBJECTPTR<COBJECT> WalkToLast(COBJECT* start, const std::string& keyPath, STEP& last) {
    KEYSTEPS::Check(keyPath);
    KEYSTEPS steps(keyPath);
    CSHAREOBJECTPTR<COBJECT> current(start);
    for (last = steps.Take(); !steps.IsEnd() && !!current; last = steps.Take()) {
        current = ValueAtStep(current, last);
    }
    return current;
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

COBJECT* COBJECT::Clone() const {
    FailOSErr(kErrUnsupported);
    return nullptr;
}

CSHAREOBJECTPTR<COBJECT> COBJECT::GetKeyValue(const std::string&) {
    FailOSErr(kErrUnknownKey);
    return nullptr;
}

void COBJECT::SetKeyValue(const std::string&, COBJECT*) { FailOSErr(kErrUnknownKey); }

CSHAREOBJECTPTR<COBJECT> COBJECT::GetKeyPathValue(const std::string& keyPath) {
    if (KEYSTEPS::IsName(keyPath)) {
        return GetKeyValue(keyPath);  // most paths are one name: without a copy of it
    }
    const std::string path = keyPath;  // a property asked on the way may change what holds the caller's
    STEP last;
    const CSHAREOBJECTPTR<COBJECT> source = WalkToLast(this, path, last);
    return !source ? nullptr : ValueAtStep(source, last);
}

void COBJECT::SetKeyPathValue(const std::string& keyPath, COBJECT* value) {
    const std::string path = keyPath;
    const CSHAREOBJECTPTR<COBJECT> held(value);
    STEP last;
    const CSHAREOBJECTPTR<COBJECT> target = WalkToLast(this, path, last);
    if (!target) {
        FailOSErr(kErrUnknownKey);
    }
    SetValueAtStep(target, last, value);
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
