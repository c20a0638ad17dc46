#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/COSTREAM.h>

namespace MLCore {

/// A stream that wraps another stream, its component, and forwards every operation to it: the counterpart of
/// CISTREAMDECORATOR for output. The component is not owned and must outlive the decorator.
class MLCORE_API COSTREAMDECORATOR : public COSTREAM {
public:
    /// Wraps `component`. Pass a component of the decorator's own class as a COSTREAM&.
    explicit COSTREAMDECORATOR(COSTREAM& component);
    ~COSTREAMDECORATOR() override;

    using COSTREAM::SetValue;
    [[nodiscard]] OpenMode GetOpenMode() const override;
    [[nodiscard]] int IsOpen() const override;
    void Open() override;
    void Close() override;
    void SetValue(const void* buffer, long count) override;
    void SetValue(void* handle) override;
    void SetValue(const CSERIALIZABLE& object) override;
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

protected:
    [[nodiscard]] COSTREAM& GetComponent() const noexcept { return mComponent; }

private:
    COSTREAM& mComponent;
};

}  // namespace MLCore
