#include <MLCore/streams/CSTREAMREADER.h>

#include <MLCore/streams/CISTREAM.h>

namespace MLCore {

CSTREAMREADER::~CSTREAMREADER() = default;

int CSTREAMREADER::IsEnd() const { return mStream.IsEnd(); }

long CSTREAMREADER::GetValue(void* buffer, long count) { return mStream.GetValue(buffer, count); }

void CSTREAMREADER::GetValue(CDATETIME& value) { mStream.GetValue(value); }

void CSTREAMREADER::GetValue(CTIME& value) { mStream.GetValue(value); }

void CSTREAMREADER::GetValue(CDATE& value) { mStream.GetValue(value); }

void CSTREAMREADER::GetValue(double& value) { mStream.GetValue(value); }

void CSTREAMREADER::GetValue(unsigned long& value) { mStream.GetValue(value); }

void CSTREAMREADER::GetValue(unsigned short& value) { mStream.GetValue(value); }

void CSTREAMREADER::GetValue(long& value) { mStream.GetValue(value); }

void CSTREAMREADER::GetValue(short& value) { mStream.GetValue(value); }

void CSTREAMREADER::GetValue(std::string& value, long length) { mStream.GetValue(value, length); }

void CSTREAMREADER::GetValue(char* buffer, long length) { mStream.GetValue(buffer, length); }

void CSTREAMREADER::GetValue(char& value) { mStream.GetValue(value); }

void CSTREAMREADER::GetValueBOOL(int& value) { mStream.GetValueBOOL(value); }

CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> CSTREAMREADER::GetObject() { return mStream.GetObject(); }

int CSTREAMREADER::IsEndOfLine() const { return mStream.IsEndOfLine(); }

void CSTREAMREADER::ReadLine(std::string& line) { mStream.ReadLine(line); }

void CSTREAMREADER::GetNextLine() { mStream.GetNextLine(); }

}  // namespace MLCore
