#include <MLCore/streams/COSTREAMDECORATORTEXT.h>

#include <MLCore/core/Narrowing.h>
#include <MLCore/streams/detail/CHARACTERSET.h>
#include <MLCore/streams/detail/STREAMCURSOR.h>
#include <MLCore/text/DoubleText.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <limits>

namespace MLCore {

namespace {

constexpr char kLineEnd[] = {'\r', '\n'};
/// The characters that end a run which is written as it stands.
constexpr CHARACTERSET kRunEnds(std::string_view("\r\n\0", 3));

const char* FindRunEnd(const char* from, const char* end) {
    return std::find_if(from, end, [](char character) { return kRunEnds.Has(character); });
}

}  // namespace

COSTREAMDECORATORTEXT::COSTREAMDECORATORTEXT(COSTREAM& component)
    : COSTREAMDECORATORTEXT(component, typeid(COSTREAMDECORATORTEXT)) {}

COSTREAMDECORATORTEXT::COSTREAMDECORATORTEXT(COSTREAM& component, const std::type_info& own)
    : CSTREAM(component.GetOpenMode()), COSTREAMDECORATOR(component), mOwn(&own) {}

COSTREAMDECORATORTEXT::~COSTREAMDECORATORTEXT() = default;

void COSTREAMDECORATORTEXT::WriteRun(const char* from, const char* to) {
    STREAMCURSOR* const lent = GetLent();
    if (lent == nullptr || !lent->Put(from, static_cast<std::size_t>(to - from))) {
        GetComponent().SetValue(static_cast<const void*>(from), static_cast<long>(to - from));
    }
}

void COSTREAMDECORATORTEXT::SetValue(const void* buffer, long count) {
    RequireBuffer(buffer, count, "write from");
    const char* from = static_cast<const char*>(buffer);
    const char* end = from + std::max(count, 0L);
    // The component's own bytes may move with the first run that is written; not every component says which bytes are
    // its own.
    std::string copy;
    if (from != end && (GetLent() != nullptr ? GetLent()->Holds(from, end) : FindRunEnd(from, end) != end)) {
        copy.assign(from, end);
        from = copy.data();
        end = from + copy.size();
    }
    do {
        const char* const to = FindRunEnd(from, end);
        if (to == end || *to == '\0') {
            WriteRun(from, end);
            return;
        }
        if (to != from) {
            WriteRun(from, to);
        }
        WriteRun(std::begin(kLineEnd), std::end(kLineEnd));
        from = to + 1;
    } while (from != end);
}

void COSTREAMDECORATORTEXT::SetValue(const CDATETIME& value) { SetValue(value.ToString()); }

void COSTREAMDECORATORTEXT::SetValue(const CTIME& value) { SetValue(value.ToString()); }

void COSTREAMDECORATORTEXT::SetValue(const CDATE& value) { SetValue(value.ToString()); }

void COSTREAMDECORATORTEXT::SetValue(double value) {
    char text[kDoubleTextSize];
    lftoa(value, text, kDoubleTextSize);
    SetValue(static_cast<const char*>(text));
}

void COSTREAMDECORATORTEXT::WriteInteger(std::int32_t value) {
    char text[std::numeric_limits<std::int32_t>::digits10 + 3] = {};  // with the digit not counted, a sign and a zero
    std::to_chars(std::begin(text), std::end(text) - 1, value);
    SetValue(static_cast<const char*>(text));
}

void COSTREAMDECORATORTEXT::SetValue(unsigned long value) {
    WriteInteger(static_cast<std::int32_t>(UInt32OrFail(value)));
}

void COSTREAMDECORATORTEXT::SetValue(unsigned short value) { WriteInteger(value); }

void COSTREAMDECORATORTEXT::SetValue(long value) { WriteInteger(Int32OrFail(value)); }

void COSTREAMDECORATORTEXT::SetValue(short value) { WriteInteger(value); }

void COSTREAMDECORATORTEXT::SetValue(const std::string& value) { COSTREAM::SetValue(value); }

void COSTREAMDECORATORTEXT::SetValue(const char* value) { COSTREAM::SetValue(value); }

void COSTREAMDECORATORTEXT::SetValue(char value) { SetValue(std::string(1, value)); }

void COSTREAMDECORATORTEXT::SetValueBOOL(int value) { WriteInteger(value); }

void COSTREAMDECORATORTEXT::WriteLine(const std::string& line) {
    COSTREAM::SetValue(line);
    SetNextLine();
}

void COSTREAMDECORATORTEXT::WriteLineEnd() {
    if (!IsOwn() || GetLent() == nullptr || !GetLent()->Put(kLineEnd, sizeof(kLineEnd))) {
        SetValue(static_cast<const void*>("\n"), 1L);
    }
}

void COSTREAMDECORATORTEXT::SetNextLine() {
    WriteLineEnd();
    GetComponent().SetNextLine();
}

}  // namespace MLCore
