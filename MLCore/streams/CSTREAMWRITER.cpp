#include <MLCore/streams/CSTREAMWRITER.h>

#include <MLCore/streams/COSTREAM.h>

namespace MLCore {

CSTREAMWRITER::~CSTREAMWRITER() = default;

void CSTREAMWRITER::SetValue(const void* buffer, long count) { mStream.SetValue(buffer, count); }

void CSTREAMWRITER::SetValue(void* handle) { mStream.SetValue(handle); }

void CSTREAMWRITER::SetValue(const CDATETIME& value) { mStream.SetValue(value); }

void CSTREAMWRITER::SetValue(const CTIME& value) { mStream.SetValue(value); }

void CSTREAMWRITER::SetValue(const CDATE& value) { mStream.SetValue(value); }

void CSTREAMWRITER::SetValue(double value) { mStream.SetValue(value); }

void CSTREAMWRITER::SetValue(unsigned long value) { mStream.SetValue(value); }

void CSTREAMWRITER::SetValue(unsigned short value) { mStream.SetValue(value); }

void CSTREAMWRITER::SetValue(long value) { mStream.SetValue(value); }

void CSTREAMWRITER::SetValue(short value) { mStream.SetValue(value); }

void CSTREAMWRITER::SetValue(const std::string& value) { mStream.SetValue(value); }

void CSTREAMWRITER::SetValue(const char* value) { mStream.SetValue(value); }

void CSTREAMWRITER::SetValue(char value) { mStream.SetValue(value); }

void CSTREAMWRITER::SetValueBOOL(int value) { mStream.SetValueBOOL(value); }

void CSTREAMWRITER::SetObject(const CSERIALIZABLEOBJECT* object) { mStream.SetObject(object); }

void CSTREAMWRITER::WriteLine(const std::string& line) { mStream.WriteLine(line); }

void CSTREAMWRITER::SetNextLine() { mStream.SetNextLine(); }

}  // namespace MLCore
