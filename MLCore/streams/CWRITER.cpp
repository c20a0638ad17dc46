#include <MLCore/streams/CWRITER.h>

#include <istream>
#include <iterator>

namespace MLCore {

namespace {

template <class Value>
CWRITER& Write(CWRITER& writer, const Value& value) {
    writer.SetValue(value);
    return writer;
}

}  // namespace

CWRITER::~CWRITER() = default;

void CWRITER::WriteLine(const std::string&) {}

void CWRITER::SetNextLine() {}

CWRITER& operator<<(CWRITER& writer, char value) { return Write(writer, value); }

CWRITER& operator<<(CWRITER& writer, short value) { return Write(writer, value); }

CWRITER& operator<<(CWRITER& writer, unsigned short value) { return Write(writer, value); }

CWRITER& operator<<(CWRITER& writer, long value) { return Write(writer, value); }

CWRITER& operator<<(CWRITER& writer, unsigned long value) { return Write(writer, value); }

CWRITER& operator<<(CWRITER& writer, double value) { return Write(writer, value); }

CWRITER& operator<<(CWRITER& writer, const char* value) { return Write(writer, value); }

CWRITER& operator<<(CWRITER& writer, const std::string& value) { return Write(writer, value); }

CWRITER& operator<<(CWRITER& writer, const CDATE& value) { return Write(writer, value); }

CWRITER& operator<<(CWRITER& writer, const CTIME& value) { return Write(writer, value); }

CWRITER& operator<<(CWRITER& writer, const CDATETIME& value) { return Write(writer, value); }

CWRITER& operator<<(CWRITER& writer, const CSERIALIZABLE& object) {
    object.WriteState(writer);
    return writer;
}

CWRITER& endl(CWRITER& writer) {
    writer.SetNextLine();
    return writer;
}

CWRITER& operator<<(CWRITER& writer, CWRITER& (*manipulator)(CWRITER&)) { return manipulator(writer); }

std::istream& operator>>(std::istream& in, CWRITER& writer) {
    if (const std::istream::sentry ready(in, true); ready) {
        for (std::istreambuf_iterator<char> at(in), end; at != end; ++at) {
            writer << *at;
        }
        in.setstate(std::ios_base::eofbit);
    }
    return in;
}

}  // namespace MLCore
