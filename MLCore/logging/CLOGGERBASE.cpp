#include <MLCore/logging/CLOGGERBASE.h>

#include <charconv>
#include <cmath>
#include <locale>

namespace MLCore {

namespace {

constexpr int kPrecision = 6;

// What a stream of the "C" locale writes as std::to_chars() does.
bool HasPlainForm(const std::ostream& stream) {
    return stream.good() && stream.flags() == (std::ios_base::skipws | std::ios_base::dec) && stream.width() == 0 &&
           stream.precision() == kPrecision && stream.getloc() == std::locale::classic();
}

}  // namespace

CLOGGERBASE::CLOGGERBASE(const char* name, CLOGMANAGER::Level level)
    : mName(name != nullptr ? name : ""), mLevel(level), mId(CLOGMANAGER::GetLoggerId()) {
    mStream.imbue(std::locale::classic());
}

CLOGGERBASE::CLOGGERBASE(const CLOGGERBASE& other)
    : mName(other.mName),
      mLevel(other.mLevel),
      mId(other.mId),
      mMsgNumber(other.mMsgNumber),
      mStream(other.GetStr(), std::ios_base::out | std::ios_base::ate) {
    mStream.copyfmt(other.mStream);
}

CLOGGERBASE& CLOGGERBASE::operator=(const CLOGGERBASE& other) {
    if (this != &other) {
        CLOGGERBASE copy(other);
        mName.swap(copy.mName);
        mLevel = copy.mLevel;
        mId = copy.mId;
        mMsgNumber = copy.mMsgNumber;
        mStream = std::move(copy.mStream);
    }
    return *this;
}

CLOGGERBASE::~CLOGGERBASE() = default;

int CLOGGERBASE::IsEnable() const {
    return mLevel <= CLOGMANAGER::GetLevel() ? CLOGMANAGER::IsEnable(mName.c_str()) : 0;
}

bool CLOGGERBASE::IsStartLine() const { return mStream.view().empty(); }

void CLOGGERBASE::ResetStr() {
    mStream.clear();
    mSpare.clear();
    mStream.str(std::move(mSpare));
}

std::string CLOGGERBASE::TakeStr() {
    std::string text = std::move(mStream).str();
    ResetStr();
    return text;
}

template <class... FORM>
bool CLOGGERBASE::InsertNumber(FORM... form) {
    if (!HasPlainForm(mStream)) {
        return false;
    }
    char text[32];
    const char* const end = std::to_chars(text, text + sizeof text, form...).ptr;
    mStream.write(text, end - text);
    return true;
}

bool CLOGGERBASE::InsertPlain(long long number) { return InsertNumber(number); }

bool CLOGGERBASE::InsertPlain(unsigned long long number) { return InsertNumber(number); }

bool CLOGGERBASE::InsertPlain(double number) {
    return std::isfinite(number) && InsertNumber(number, std::chars_format::general, kPrecision);
}

}  // namespace MLCore
