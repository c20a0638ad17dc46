#include <MLCore/streams/CREADER.h>

#include <ostream>

namespace MLCore {

namespace {

/// The longest text that `>>` reads: the greatest length that fits in 16 bits.
constexpr long kLongestText = 32767;

template <class... Arguments>
CREADER& Read(CREADER& reader, Arguments&&... arguments) {
    reader.GetValue(arguments...);
    return reader;
}

}  // namespace

CREADER::~CREADER() = default;

int CREADER::IsEndOfLine() const { return IsEnd(); }

void CREADER::ReadLine(std::string&) {}

void CREADER::GetNextLine() {}

CREADER& operator>>(CREADER& reader, char& value) { return Read(reader, value); }

CREADER& operator>>(CREADER& reader, short& value) { return Read(reader, value); }

CREADER& operator>>(CREADER& reader, unsigned short& value) { return Read(reader, value); }

CREADER& operator>>(CREADER& reader, long& value) { return Read(reader, value); }

CREADER& operator>>(CREADER& reader, unsigned long& value) { return Read(reader, value); }

CREADER& operator>>(CREADER& reader, double& value) { return Read(reader, value); }

CREADER& operator>>(CREADER& reader, CDATE& value) { return Read(reader, value); }

CREADER& operator>>(CREADER& reader, CTIME& value) { return Read(reader, value); }

CREADER& operator>>(CREADER& reader, CDATETIME& value) { return Read(reader, value); }

CREADER& operator>>(CREADER& reader, CSERIALIZABLE& object) {
    object.ReadState(reader);
    return reader;
}

CREADER& operator>>(CREADER& reader, std::string& value) { return Read(reader, value, kLongestText); }

CREADER& operator>>(CREADER& reader, char* value) { return Read(reader, value, kLongestText); }

CREADER& endl(CREADER& reader) {
    reader.GetNextLine();
    return reader;
}

CREADER& operator>>(CREADER& reader, CREADER& (*manipulator)(CREADER&)) { return manipulator(reader); }

std::ostream& operator<<(std::ostream& out, CREADER& reader) {
    while (reader.IsEnd() == 0) {
        char character = 0;
        reader >> character;
        out.put(character);
    }
    return out;
}

}  // namespace MLCore
