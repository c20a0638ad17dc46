#include <MLCore/logging/CLOGGERBASE.h>

#include <locale>

namespace MLCore {

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
    mStream.str(std::string());
}

}  // namespace MLCore
