#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/CISTREAM.h>

// <windows.h> makes a macro of this name; see COBJECTFACTORY.h.
#pragma push_macro("GetObject")
#undef GetObject

namespace MLCore {

/// A stream that wraps another stream, its component, and forwards every operation to it. Concrete decorators override
/// some of the operations. Decorators stack to any depth. The component is not owned and must outlive the decorator. A
/// decorator is open when its component is open.
///
/// Memory blocks, objects and object states are therefore read in the component's own format, even if a decorator
/// converts single values. One operation is not forwarded: GetValue(COSTREAM&) copies through the decorator's own
/// IsEnd() and raw read.
class MLCORE_API CISTREAMDECORATOR : public CISTREAM {
public:
    /// Wraps `component`. Pass a component of the decorator's own class as a CISTREAM&: otherwise the compiler takes it
    /// for a copy, which a stream refuses.
    explicit CISTREAMDECORATOR(CISTREAM& component);
    ~CISTREAMDECORATOR() override;

    using CISTREAM::GetValue;
    [[nodiscard]] OpenMode GetOpenMode() const override;
    [[nodiscard]] int IsOpen() const override;
    void Open() override;
    void Close() override;
    [[nodiscard]] int IsEnd() const override;
    long GetValue(void* buffer, long count) override;
    void GetValue(void*& handle) override;
    void GetValue(CSERIALIZABLE& object) override;
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
    void Skip(long count) override;
    void Rewind() override;

protected:
    [[nodiscard]] CISTREAM& GetComponent() const noexcept { return mComponent; }

private:
    friend class STREAMPLACE;

    CISTREAM& mComponent;
};

}  // namespace MLCore

#pragma pop_macro("GetObject")
