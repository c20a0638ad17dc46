#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/COSTREAMDECORATORTEXT.h>

#include <cstdint>
#include <string_view>

namespace MLCore {

class CENCODER;

/// Writes lines of fields. Each value is one field: its text, encoded, with the separator before it unless it is the
/// first field of its line.
///
///     CCSVENCODER encoder;
///     COSTREAMDECORATORFIELD fields(file, ';', encoder);
///     fields << 1L << "a;b";
///     fields.SetNextLine();  // the bytes 1;"a;b" CR LF
///
/// The encoder is not owned and must outlive the decorator. Raw writes and WriteLine() do not write fields: their bytes
/// are neither encoded nor separated.
class MLCORE_API COSTREAMDECORATORFIELD : public COSTREAMDECORATORTEXT {
public:
    /// Writes fields to `component`, each encoded by `encoder`, with `separator` between them.
    COSTREAMDECORATORFIELD(COSTREAM& component, char separator, CENCODER& encoder);
    ~COSTREAMDECORATORFIELD() override;

    using COSTREAMDECORATORTEXT::SetValue;
    void SetValue(const std::string& value) override;
    void SetValue(const char* value) override;  ///< null is written as an empty field
    /// Ends the line. The next field is the first of its line.
    void SetNextLine() override;

private:
    void WriteInteger(std::int32_t value) override;
    void WriteField(std::string_view value);
    void WriteEncoded(const std::string& value);
    [[nodiscard]] bool IsPlain() const noexcept;
    [[nodiscard]] bool WritePlain(std::string_view value);
    [[nodiscard]] bool WriteQuoted(std::string_view value);

    char mSeparator;
    CENCODER& mEncoder;
    std::int32_t mIsLineStart = 1;
};

}  // namespace MLCore
