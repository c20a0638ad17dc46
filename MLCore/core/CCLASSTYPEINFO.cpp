#include <MLCore/core/CCLASSTYPEINFO.h>

namespace MLCore {

PROTOCOL::~PROTOCOL() = default;

__protocol_base__::~__protocol_base__() = default;

CCLASSTYPEINFO::CCLASSTYPEINFO(const char* name, const CCLASSTYPEINFO* super, unsigned long long offset)
    : mName(name), mSuper(super) {
    if (super != nullptr) {
        AppendProtocolsOf(*super, offset);
    }
}

int CCLASSTYPEINFO::IsSame(const CCLASSTYPEINFO& other) const noexcept { return this == &other ? 1 : 0; }

int CCLASSTYPEINFO::IsSuper(const CCLASSTYPEINFO& other) const noexcept { return other.mSuper == this ? 1 : 0; }

int CCLASSTYPEINFO::IsBase(const CCLASSTYPEINFO& other) const noexcept {
    const CCLASSTYPEINFO* ancestor = other.mSuper;
    while (ancestor != nullptr && ancestor != this) {
        ancestor = ancestor->mSuper;
    }
    return ancestor != nullptr ? 1 : 0;
}

int CCLASSTYPEINFO::IsKind(const CCLASSTYPEINFO& other) const noexcept {
    return IsSame(other) != 0 || other.IsBase(*this) != 0 ? 1 : 0;
}

int CCLASSTYPEINFO::IsRelative(const CCLASSTYPEINFO& other) const noexcept {
    return IsKind(other) != 0 || IsBase(other) != 0 ? 1 : 0;
}

int CCLASSTYPEINFO::ConformsToProtocol(const CCLASSTYPEINFO* protocol) const noexcept {
    return FindProtocol(protocol) != nullptr ? 1 : 0;
}

PROTOCOL* CCLASSTYPEINFO::GetProtocol(const CCLASSTYPEINFO* protocol, void* object) const {
    const PROTOCOLELEM* const elem = FindProtocol(protocol);
    return elem != nullptr ? elem->mBase->Produce(static_cast<char*>(object) + elem->mOffset, object) : nullptr;
}

void CCLASSTYPEINFO::AddProtocol(const CCLASSTYPEINFO* protocol, __protocol_base__* base, unsigned long long offset) {
    mProtocols.emplace_back(protocol, base, offset);
    AppendProtocolsOf(*protocol, offset);
}

void CCLASSTYPEINFO::AppendProtocolsOf(const CCLASSTYPEINFO& other, unsigned long long offset) {
    for (const PROTOCOLELEM& elem : other.mProtocols) {
        mProtocols.emplace_back(elem.mProtocol, elem.mBase, elem.mOffset + offset);
    }
}

const CCLASSTYPEINFO::PROTOCOLELEM* CCLASSTYPEINFO::FindProtocol(const CCLASSTYPEINFO* protocol) const noexcept {
    for (const PROTOCOLELEM& elem : mProtocols) {
        if (elem.mProtocol == protocol) {
            return &elem;
        }
    }
    return nullptr;
}

}  // namespace MLCore
