#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/CISTREAMDECORATORTEXT.h>

namespace MLCore {

class CENCODER;

/// Reads lines of fields, as COSTREAMDECORATORFIELD writes them: a typed read, and a read of a text, takes one field.
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
/// That finds the last field of a line also when it is empty ("a;b;" has three), and one empty field in an empty line. Only
/// a last line that ends behind a separator, without a line end, is a field short: its end looks the same.
///
/// A separator behind an odd number of double quotes is data, but a line end is none: it cuts the field, and a quote that is
/// never closed takes in the rest of its line. Field reads at the end of a line give "" until GetNextLine(). ReadLine() gives
/// the rest of the line as it stands, separators and all.
///
/// The encoder is not owned and outlives the decorator.
class MLCORE_API CISTREAMDECORATORFIELD : public CISTREAMDECORATORTEXT {
public:
    CISTREAMDECORATORFIELD(CISTREAM& component, char separator, CENCODER& encoder);
    ~CISTREAMDECORATORFIELD() override;

    /// The next field, decoded; "" when there is none. Of a field of `maxLength` characters or more before decoding, that
    /// many are taken: what is left, be it only the separator, is read as a field of its own. Fails with -110 for a
    /// negative length.
    void ReadNextValue(std::string& value, long maxLength);

    using CISTREAMDECORATORTEXT::GetValue;
    void GetValue(std::string& value, long length) override;  ///< ReadNextValue()
    /// The first character of the next field, which is taken whole up to 32767 characters; 0 of an empty field.
    /// Fails with -110 at the end.
    void GetValue(char& value) override;

private:
    char mSeparator;
    CENCODER& mEncoder;
};

}  // namespace MLCore
