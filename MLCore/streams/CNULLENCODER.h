#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/CENCODER.h>

namespace MLCore {

/// Leaves texts unchanged, for fields without separators, double quotes and line breaks.
class MLCORE_API CNULLENCODER : public CENCODER {
public:
    ~CNULLENCODER() override;

    std::string Encode(const std::string& text) override;
    std::string Decode(const std::string& text) override;
};

}  // namespace MLCore
