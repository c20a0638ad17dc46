#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/CWRITER.h>

namespace MLCore {

class COSTREAM;

/// A CWRITER that writes to a stream: it forwards every operation. The stream is not owned and must outlive the writer.
class MLCORE_API CSTREAMWRITER : public CWRITER {
public:
    explicit CSTREAMWRITER(COSTREAM& stream) noexcept : mStream(stream) {}
    CSTREAMWRITER(const CSTREAMWRITER&) = default;
    ~CSTREAMWRITER() override;

    using CWRITER::SetValue;
    void SetValue(const void* buffer, long count) override;
    void SetValue(void* handle) override;
    void SetValue(const CDATETIME& value) override;
    void SetValue(const CTIME& value) override;
    void SetValue(const CDATE& value) override;
    void SetValue(double value) override;
    void SetValue(unsigned long value) override;
    void SetValue(unsigned short value) override;
    void SetValue(long value) override;
    void SetValue(short value) override;
    void SetValue(const std::string& value) override;
    void SetValue(const char* value) override;
    void SetValue(char value) override;
    void SetValueBOOL(int value) override;
    void SetObject(const CSERIALIZABLEOBJECT* object) override;
    void WriteLine(const std::string& line) override;
    void SetNextLine() override;

private:
    COSTREAM& mStream;
};

}  // namespace MLCore
