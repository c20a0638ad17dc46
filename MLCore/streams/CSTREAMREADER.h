#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/CREADER.h>

// <windows.h> makes a macro of this name; see COBJECTFACTORY.h.
#pragma push_macro("GetObject")
#undef GetObject

namespace MLCore {

class CISTREAM;

/// A CREADER that reads from a stream: it forwards every operation. The stream is not owned and must outlive the
/// reader.
class MLCORE_API CSTREAMREADER : public CREADER {
public:
    explicit CSTREAMREADER(CISTREAM& stream) noexcept : mStream(stream) {}
    CSTREAMREADER(const CSTREAMREADER&) = default;
    ~CSTREAMREADER() override;

    using CREADER::GetValue;
    [[nodiscard]] int IsEnd() const override;
    long GetValue(void* buffer, long count) override;
    void GetValue(CDATETIME& value) override;
    void GetValue(CTIME& value) override;
    void GetValue(CDATE& value) override;
    void GetValue(double& value) override;
    void GetValue(unsigned long& value) override;
    void GetValue(unsigned short& value) override;
    void GetValue(long& value) override;
    void GetValue(short& value) override;
    void GetValue(std::string& value, long length) override;
    void GetValue(char* buffer, long length) override;
    void GetValue(char& value) override;
    void GetValueBOOL(int& value) override;
    [[nodiscard]] CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> GetObject() override;
    [[nodiscard]] int IsEndOfLine() const override;
    void ReadLine(std::string& line) override;
    void GetNextLine() override;

private:
    CISTREAM& mStream;
};

}  // namespace MLCore

#pragma pop_macro("GetObject")
