#include <MLCore/core/CINDEXEDACCESS.h>
#include <MLCore/core/CKEYPARSER.h>
#include <MLCore/core/COBJECT.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>

#include <cstring>

namespace MLCore {

namespace {

using STEP = CKEYPARSER::STEP;

// The array behind `object`, with `index` known to lie in it.
CINDEXEDACCESS& ArrayWithIndex(COBJECT* object, long index) {
    CINDEXEDACCESS* const array = ProtocolCast<CINDEXEDACCESS>(object);
    if (array == nullptr || index >= array->GetCount()) {
        FailOSErr(kErrUnknownKey);
    }
    return *array;
}

CSHAREOBJECTPTR<COBJECT> ValueAtStep(COBJECT* object, const STEP& step) {
    return step.isIndex ? ArrayWithIndex(object, step.index).GetObjectAt(step.index) : object->GetKeyValue(step.name);
}

void SetValueAtStep(COBJECT* object, const STEP& step, COBJECT* value) {
    if (step.isIndex) {
        ArrayWithIndex(object, step.index).SetObjectAt(step.index, value);
    } else {
        object->SetKeyValue(step.name, value);
    }
}

// Each object on the way is held: a property may be computed, and then nobody else owns it.
CSHAREOBJECTPTR<COBJECT> Walk(COBJECT* start, const STEP* first, const STEP* last) {
    CSHAREOBJECTPTR<COBJECT> current(start);
    for (const STEP* step = first; step != last && !!current; ++step) {
        current = ValueAtStep(current, *step);
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
    const CKEYPARSER parser(keyPath);
    const std::vector<STEP>& path = parser.GetAccessPath();
    return Walk(this, path.data(), path.data() + path.size());
}

void COBJECT::SetKeyPathValue(const std::string& keyPath, COBJECT* value) {
    const CKEYPARSER parser(keyPath);
    const std::vector<STEP>& path = parser.GetAccessPath();
    const STEP* const last = &path.back();
    const CSHAREOBJECTPTR<COBJECT> target = Walk(this, path.data(), last);
    if (!target) {
        FailOSErr(kErrUnknownKey);
    }
    SetValueAtStep(target, *last, value);
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
