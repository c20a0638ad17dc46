#pragma once

#include <MLCore/platform/Export.h>

#include <string>

namespace MLCore {

/// Converts the text of a field to its format in a file and back, for COSTREAMDECORATORFIELD and
/// CISTREAMDECORATORFIELD.
///
/// An encoded text must not contain line breaks, because they end the line. It must not contain the separator either,
/// because it ends the field, unless an odd number of double quotes stands before it in the encoded text.
class MLCORE_API CENCODER {
public:
    CENCODER() = default;
    CENCODER(const CENCODER&) = default;
    CENCODER& operator=(const CENCODER&) = default;
    virtual ~CENCODER();

    /// Returns the format of `text` in the file.
    virtual std::string Encode(const std::string& text) = 0;
    /// Returns the text of a field from `text`, its format in the file. `text` may be anything: files have errors.
    virtual std::string Decode(const std::string& text) = 0;
};

}  // namespace MLCore
