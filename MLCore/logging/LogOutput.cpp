#include <MLCore/logging/LogOutput.h>

#include <cstddef>

namespace MLCore {

namespace {

constexpr std::size_t kMostPending = std::size_t{64} * 1024;

}  // namespace

LOGOUTPUT::~LOGOUTPUT() { Close(); }

bool LOGOUTPUT::Open(const char* path) noexcept {
    Close();
    mFile = platform::FileOpen(path, platform::kFileWrite | platform::kFileAppend | platform::kFileCreate);
    return IsOpen();
}

void LOGOUTPUT::Close() noexcept {
    Flush();
    if (IsOpen()) {
        platform::FileClose(mFile);
        mFile = platform::kNoFile;
    }
}

void LOGOUTPUT::Append(std::string_view text) {
    if (!IsOpen()) {
        return;
    }
    if (mPending.size() + text.size() > kMostPending) {
        Flush();
    }
    if constexpr (platform::kLineEnd == std::string_view("\n")) {
        mPending.append(text);
    } else {
        const std::size_t before = mPending.size();
        try {
            for (std::size_t begin = 0; begin < text.size();) {
                const std::size_t end = text.find('\n', begin);
                mPending.append(text.substr(begin, end - begin));
                if (end == std::string_view::npos) {
                    break;
                }
                mPending.append(platform::kLineEnd);
                begin = end + 1;
            }
        } catch (...) {
            mPending.resize(before);
            throw;
        }
    }
}

bool LOGOUTPUT::Flush() noexcept {
    const std::size_t count = mPending.size();
    const bool isWritten = count == 0 || platform::FileAppend(mFile, mPending.data(), count) == count;
    mPending.clear();
    if (mPending.capacity() > 2 * kMostPending) {
        mPending.shrink_to_fit();
    }
    return isWritten;
}

LOGOUTPUT::int_type LOGOUTPUT::overflow(int_type character) {
    if (!traits_type::eq_int_type(character, traits_type::eof())) {
        const char byte = traits_type::to_char_type(character);
        Append(std::string_view(&byte, 1));
    }
    return traits_type::not_eof(character);
}

std::streamsize LOGOUTPUT::xsputn(const char* text, std::streamsize count) {
    Append(std::string_view(text, static_cast<std::size_t>(count)));
    return count;
}

int LOGOUTPUT::sync() { return Flush() ? 0 : -1; }

}  // namespace MLCore
