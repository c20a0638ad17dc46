#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/COSTREAMDECORATOR.h>

#include <cstdint>

namespace MLCore {

/// Writes values as text (docs/formats/streams.md), in lines that end with CR LF.
///
///     COSTREAMDECORATORTEXT text(file);
///     text << "Orders of " << CDATE::Today();
///     text.SetNextLine();
///
/// Nothing stands between two values of a line: what is to be read back as a value is a line of its own, or a field
/// (COSTREAMDECORATORFIELD). Memory blocks and objects go to the component in their binary form.
class MLCORE_API COSTREAMDECORATORTEXT : public COSTREAMDECORATOR {
public:
    explicit COSTREAMDECORATORTEXT(COSTREAM& component);
    ~COSTREAMDECORATORTEXT() override;

    using COSTREAMDECORATOR::SetValue;
    /// The raw write: every CR and every LF becomes CR LF, each on its own (so CR LF becomes two line ends), up to the
    /// first zero byte; from there on the bytes are written as they are.
    void SetValue(const void* buffer, long count) override;
    // All values but texts are written through the two SetValue() of texts.
    void SetValue(const CDATETIME& value) override;
    void SetValue(const CTIME& value) override;
    void SetValue(const CDATE& value) override;
    void SetValue(double value) override;
    void SetValue(unsigned long value) override;  ///< as a signed number: 4000000000 is "-294967296"
    void SetValue(unsigned short value) override;
    void SetValue(long value) override;
    void SetValue(short value) override;
    void SetValue(const std::string& value) override;
    void SetValue(const char* value) override;
    void SetValue(char value) override;
    void SetValueBOOL(int value) override;
    /// Writes the text, then calls SetNextLine().
    void WriteLine(const std::string& line) override;
    /// Ends the line here, then in the component.
    void SetNextLine() override;

private:
    friend class COSTREAMDECORATORFIELD;
    /// Where the component lets its memory be written; null when it does not.
    [[nodiscard]] STREAMCURSOR* GetLent() const noexcept { return GetComponent().mLent; }
    /// Writes what stays as it is.
    void WriteRun(const char* from, const char* to);
    void WriteInteger(std::int32_t value);
    void WriteLineEnd();
};

}  // namespace MLCore
