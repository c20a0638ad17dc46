#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/CISTREAMDECORATORTEXT.h>

namespace MLCore {

class CENCODER;

/// Reads lines of fields, as COSTREAMDECORATORFIELD writes them. Each typed read and each read of a text takes one
/// field.
///
///     CCSVENCODER encoder;
///     CISTREAMDECORATORFIELD fields(file, ';', encoder);
///     while (fields.IsEnd() == 0) {
///         do {
///             fields.GetValue(field, 32767);
///         } while (fields.IsEndOfLine() == 0);
///         fields.GetNextLine();
///     }
///
/// This loop also finds a last field that is empty ("a;b;" has three fields), and one empty field in an empty line.
/// Only in a last line that ends with a separator, and without a line end, it misses the empty field: there it cannot
/// see that one follows.
///
/// The fields end by the rules of FIELDSCANNER. A separator after an odd number of double quotes is data. A line end is
/// never data: it ends the field, so a quote that is not closed takes the rest of its line. At the end of a line, field
/// reads give "" until GetNextLine(). ReadLine() gives the rest of the line unchanged, with separators and quotes.
///
/// The encoder is not owned and must outlive the decorator.
class MLCORE_API CISTREAMDECORATORFIELD : public CISTREAMDECORATORTEXT {
public:
    /// Reads fields from `component` that `separator` separates and `encoder` decodes.
    CISTREAMDECORATORFIELD(CISTREAM& component, char separator, CENCODER& encoder);
    ~CISTREAMDECORATORFIELD() override;

    /// Reads the next field and decodes it; gives "" when there is none. Of a field that has `maxLength` characters or
    /// more before decoding, that many are read. The rest, even if it is only the separator, is then read as a separate
    /// field. Fails with kErrStreamEnd (-110) for a negative length.
    void ReadNextValue(std::string& value, long maxLength);

    using CISTREAMDECORATORTEXT::GetValue;
    void GetValue(std::string& value, long length) override;  ///< ReadNextValue()
    /// Reads the next field, up to 32767 characters, and gives its first character; 0 for an empty field. Fails with
    /// kErrStreamEnd at the end of the stream.
    void GetValue(char& value) override;

private:
    char mSeparator;
    CENCODER& mEncoder;
};

}  // namespace MLCore
