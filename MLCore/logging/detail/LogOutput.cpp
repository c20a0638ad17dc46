#include <MLCore/logging/detail/LogOutput.h>

#include <cstddef>

namespace MLCore {

namespace {

constexpr std::size_t kMostPending = std::size_t{64} * 1024;

void AppendText(std::string& out, std::string_view text) {
    if constexpr (platform::kLineEnd == std::string_view("\n")) {
        out.append(text);
        return;
    }
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        out.append(text.substr(0, end)).append(platform::kLineEnd);
        text.remove_prefix(end + 1);
    }
    out.append(text);
}

std::size_t SizeOf(std::initializer_list<std::string_view> texts) noexcept {
    std::size_t size = 0;
    for (const std::string_view text : texts) {
        size += text.size();
    }
    return size;
}

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

void LOGOUTPUT::Append(std::initializer_list<std::string_view> texts) {
    if (IsOpen()) {
        MakeRoom(SizeOf(texts));
        Add(texts);
    }
}

void LOGOUTPUT::AppendLine(std::initializer_list<std::string_view> texts) {
    if (!IsOpen()) {
        return;
    }
    MakeRoom(SizeOf(texts) + 1);
    // Asked now: making room may have ended in the middle of a line.
    if (mPending.empty() ? mIsCut : mPending.back() != '\n') {
        Add({"\n"});
    }
    Add(texts);
}

void LOGOUTPUT::MakeRoom(std::size_t count) noexcept {
    if (mPending.size() + count > kMostPending) {
        Flush();
    }
}

void LOGOUTPUT::Add(std::initializer_list<std::string_view> texts) {
    const std::size_t before = mPending.size();
    try {
        for (const std::string_view text : texts) {
            AppendText(mPending, text);
        }
    } catch (...) {
        mPending.resize(before);
        throw;
    }
}

bool LOGOUTPUT::Flush() noexcept {
    const std::size_t count = mPending.size();
    const std::size_t written = count == 0 ? 0 : platform::FileAppend(mFile, mPending.data(), count);
    mIsCut = written == 0 ? mIsCut : mPending[written - 1] != '\n';
    mPending.clear();
    if (mPending.capacity() > 2 * kMostPending) {
        mPending.shrink_to_fit();
    }
    return written == count;
}

LOGOUTPUT::int_type LOGOUTPUT::overflow(int_type character) {
    if (!traits_type::eq_int_type(character, traits_type::eof())) {
        const char byte = traits_type::to_char_type(character);
        Append({std::string_view(&byte, 1)});
    }
    return traits_type::not_eof(character);
}

std::streamsize LOGOUTPUT::xsputn(const char* text, std::streamsize count) {
    Append({std::string_view(text, static_cast<std::size_t>(count))});
    return count;
}

int LOGOUTPUT::sync() { return Flush() ? 0 : -1; }

}  // namespace MLCore
