#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/COSTREAMDECORATORTEXT.h>

#include <cstdint>
#include <string_view>

namespace MLCore {

class CENCODER;

/// Writes lines of fields: each value is a field, encoded, with the separator before it unless it is the first of its line.
///
///     CCSVENCODER encoder;
///     COSTREAMDECORATORFIELD fields(file, ';', encoder);
///     fields << 1L << "a;b";
///     fields.SetNextLine();  // the bytes 1;"a;b" CR LF
///
/// The encoder is not owned and outlives the decorator. Raw writes and WriteLine() are no fields: their bytes are neither
/// encoded nor separated.
class MLCORE_API COSTREAMDECORATORFIELD : public COSTREAMDECORATORTEXT {
public:
    COSTREAMDECORATORFIELD(COSTREAM& component, char separator, CENCODER& encoder);
    ~COSTREAMDECORATORFIELD() override;

    using COSTREAMDECORATORTEXT::SetValue;
    void SetValue(const std::string& value) override;
    void SetValue(const char* value) override;  ///< null is the empty field
    void SetNextLine() override;

private:
    friend class COSTREAMDECORATORTEXT;
    void WriteField(std::string_view value);
    void WriteEncoded(const std::string& value);
    [[nodiscard]] bool IsPlain() const noexcept;
    [[nodiscard]] bool WritePlain(std::string_view value);
    [[nodiscard]] bool WritePlain(std::int32_t value);
    [[nodiscard]] bool WriteQuoted(std::string_view value);

    char mSeparator;
    CENCODER& mEncoder;
    std::int32_t mIsLineStart = 1;
};

}  // namespace MLCore
