#pragma once

#include <MLCore/core/CCLASSTYPEINFO.h>
#include <MLCore/platform/Export.h>

#include <string>
#include <vector>

namespace MLCore {

/// The protocol of objects that can list their keys. The failure of an unknown key then suggests the nearest one:
/// "CORDER has no key 'custmer'; did you mean 'customer'?"
class MLCORE_API CKEYNAMES : public PROTOCOL {
public:
    /// The keys that GetKeyValue() knows, in any order. Called when a failure is described. May throw std::bad_alloc:
    /// the failure then suggests nothing.
    [[nodiscard]] virtual std::vector<std::string> GetKeyNames() const = 0;

    static const CCLASSTYPEINFO& ClassInfoStatic();

protected:
    ~CKEYNAMES() override;
};

}  // namespace MLCore
