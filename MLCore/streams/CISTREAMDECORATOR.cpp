#include <MLCore/streams/CISTREAMDECORATOR.h>

namespace MLCore {

CISTREAMDECORATOR::CISTREAMDECORATOR(CISTREAM& component)
    : CSTREAM(component.GetOpenMode()), CISTREAM(component.GetOpenMode()), mComponent(component) {}

CISTREAMDECORATOR::~CISTREAMDECORATOR() = default;

CSTREAM::OpenMode CISTREAMDECORATOR::GetOpenMode() const { return mComponent.GetOpenMode(); }

int CISTREAMDECORATOR::IsOpen() const { return mComponent.IsOpen(); }

void CISTREAMDECORATOR::Open() { mComponent.Open(); }

void CISTREAMDECORATOR::Close() { mComponent.Close(); }

int CISTREAMDECORATOR::IsEnd() const { return mComponent.IsEnd(); }

long CISTREAMDECORATOR::GetValue(void* buffer, long count) { return mComponent.GetValue(buffer, count); }

void CISTREAMDECORATOR::GetValue(void*& handle) { mComponent.GetValue(handle); }

void CISTREAMDECORATOR::GetValue(CSERIALIZABLE& object) { mComponent.GetValue(object); }

void CISTREAMDECORATOR::GetValue(CDATETIME& value) { mComponent.GetValue(value); }

void CISTREAMDECORATOR::GetValue(CTIME& value) { mComponent.GetValue(value); }

void CISTREAMDECORATOR::GetValue(CDATE& value) { mComponent.GetValue(value); }

void CISTREAMDECORATOR::GetValue(double& value) { mComponent.GetValue(value); }

void CISTREAMDECORATOR::GetValue(unsigned long& value) { mComponent.GetValue(value); }

void CISTREAMDECORATOR::GetValue(unsigned short& value) { mComponent.GetValue(value); }

void CISTREAMDECORATOR::GetValue(long& value) { mComponent.GetValue(value); }

void CISTREAMDECORATOR::GetValue(short& value) { mComponent.GetValue(value); }

void CISTREAMDECORATOR::GetValue(std::string& value, long length) { mComponent.GetValue(value, length); }

void CISTREAMDECORATOR::GetValue(char* buffer, long length) { mComponent.GetValue(buffer, length); }

void CISTREAMDECORATOR::GetValue(char& value) { mComponent.GetValue(value); }

void CISTREAMDECORATOR::GetValueBOOL(int& value) { mComponent.GetValueBOOL(value); }

CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> CISTREAMDECORATOR::GetObject() { return mComponent.GetObject(); }

int CISTREAMDECORATOR::IsEndOfLine() const { return mComponent.IsEndOfLine(); }

void CISTREAMDECORATOR::ReadLine(std::string& line) { mComponent.ReadLine(line); }

void CISTREAMDECORATOR::GetNextLine() { mComponent.GetNextLine(); }

void CISTREAMDECORATOR::Skip(long count) { mComponent.Skip(count); }

void CISTREAMDECORATOR::Rewind() { mComponent.Rewind(); }

}  // namespace MLCore
