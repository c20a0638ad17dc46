#include <MLCore/streams/COSTREAMDECORATOR.h>

namespace MLCore {

COSTREAMDECORATOR::COSTREAMDECORATOR(COSTREAM& component)
    : CSTREAM(component.GetOpenMode()), COSTREAM(component.GetOpenMode()), mComponent(component) {}

COSTREAMDECORATOR::~COSTREAMDECORATOR() = default;

CSTREAM::OpenMode COSTREAMDECORATOR::GetOpenMode() const { return mComponent.GetOpenMode(); }

int COSTREAMDECORATOR::IsOpen() const { return mComponent.IsOpen(); }

void COSTREAMDECORATOR::Open() { mComponent.Open(); }

void COSTREAMDECORATOR::Close() { mComponent.Close(); }

void COSTREAMDECORATOR::SetValue(const void* buffer, long count) { mComponent.SetValue(buffer, count); }

void COSTREAMDECORATOR::SetValue(void* handle) { mComponent.SetValue(handle); }

void COSTREAMDECORATOR::SetValue(const CSERIALIZABLE& object) { mComponent.SetValue(object); }

void COSTREAMDECORATOR::SetValue(const CDATETIME& value) { mComponent.SetValue(value); }

void COSTREAMDECORATOR::SetValue(const CTIME& value) { mComponent.SetValue(value); }

void COSTREAMDECORATOR::SetValue(const CDATE& value) { mComponent.SetValue(value); }

void COSTREAMDECORATOR::SetValue(double value) { mComponent.SetValue(value); }

void COSTREAMDECORATOR::SetValue(unsigned long value) { mComponent.SetValue(value); }

void COSTREAMDECORATOR::SetValue(unsigned short value) { mComponent.SetValue(value); }

void COSTREAMDECORATOR::SetValue(long value) { mComponent.SetValue(value); }

void COSTREAMDECORATOR::SetValue(short value) { mComponent.SetValue(value); }

void COSTREAMDECORATOR::SetValue(const std::string& value) { mComponent.SetValue(value); }

void COSTREAMDECORATOR::SetValue(const char* value) { mComponent.SetValue(value); }

void COSTREAMDECORATOR::SetValue(char value) { mComponent.SetValue(value); }

void COSTREAMDECORATOR::SetValueBOOL(int value) { mComponent.SetValueBOOL(value); }

void COSTREAMDECORATOR::SetObject(const CSERIALIZABLEOBJECT* object) { mComponent.SetObject(object); }

void COSTREAMDECORATOR::WriteLine(const std::string& line) { mComponent.WriteLine(line); }

void COSTREAMDECORATOR::SetNextLine() { mComponent.SetNextLine(); }

}  // namespace MLCore
