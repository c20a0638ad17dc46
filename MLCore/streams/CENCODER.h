#pragma once

#include <MLCore/platform/Export.h>

#include <string>

namespace MLCore {

/// Converts the text of a field to its form in a file and back, for COSTREAMDECORATORFIELD and CISTREAMDECORATORFIELD.
///
/// An encoded text must not contain line breaks: they end the line. Nor must it contain the separator, unless an odd
/// number of double quotes stands before it in the encoded text: it ends the field.
class MLCORE_API CENCODER {
public:
    CENCODER() = default;
    CENCODER(const CENCODER&) = default;
    CENCODER& operator=(const CENCODER&) = default;
    virtual ~CENCODER();

    /// The form of `text` in the file.
    virtual std::string Encode(const std::string& text) = 0;
    /// The text of a field whose form in the file is `text`. That may be any text: files have errors.
    virtual std::string Decode(const std::string& text) = 0;
};

}  // namespace MLCore
