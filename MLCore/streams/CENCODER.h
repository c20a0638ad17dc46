#pragma once

#include <MLCore/platform/Export.h>

#include <string>

namespace MLCore {

/// How the text of a field stands in its file, for COSTREAMDECORATORFIELD and CISTREAMDECORATORFIELD.
///
/// Line breaks that an encoder leaves in do not survive: they end the line. So do not separators, unless an odd number of
/// double quotes stands before them in the encoded text.
class MLCORE_API CENCODER {
public:
    CENCODER() = default;
    CENCODER(const CENCODER&) = default;
    CENCODER& operator=(const CENCODER&) = default;
    virtual ~CENCODER();

    virtual std::string Encode(const std::string& text) = 0;
    virtual std::string Decode(const std::string& text) = 0;
};

}  // namespace MLCore
