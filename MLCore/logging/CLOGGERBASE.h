#pragma once

#include <MLCore/logging/CLOGMANAGER.h>
#include <MLCore/platform/Export.h>

#include <cstddef>
#include <limits>
#include <ostream>
#include <sstream>
#include <string>
#include <utility>

namespace MLCore {

/// The part of a logger that does not depend on its policy: a channel's name, a level, and the current line.
///
/// A logger must be used by one thread at a time; each thread may have its own logger of the same channel. A copy has
/// the same state, with the current line and the format of numbers, and is independent from then on.
class MLCORE_API CLOGGERBASE {
public:
    CLOGGERBASE(const CLOGGERBASE& other);
    CLOGGERBASE& operator=(const CLOGGERBASE& other);

    /// The name of the channel, which may be "".
    [[nodiscard]] const std::string& GetName() const noexcept { return mName; }
    [[nodiscard]] CLOGMANAGER::Level GetLevel() const noexcept { return mLevel; }
    /// The logger's number from the manager. Only copies have the same number.
    [[nodiscard]] long GetId() const noexcept { return mId; }
    /// The number of lines passed to the policy; it stops at the largest long.
    [[nodiscard]] long GetMsgNumber() const noexcept { return mMsgNumber; }

    /// 1 when the channel is enabled and the level is not above the manager's; else 0, and lines are dropped.
    [[nodiscard]] int IsEnable() const;

    /// The stream of the current line. Numbers are written in the "C" locale. Without memory the line is cut.
    [[nodiscard]] std::ostream& GetStream() noexcept { return mStream; }
    /// The current line so far.
    [[nodiscard]] std::string GetStr() const { return mStream.str(); }

protected:
    // A class, so that MLCore::endl is the better match where std::endl is in scope too.
    struct STREAMMANIPULATOR {
        using FUNCTION = std::ostream& (*)(std::ostream&);
        // Implicit and inline, because each module with its own standard library has its own std::endl.
        STREAMMANIPULATOR(FUNCTION manipulator)
            : function(manipulator), endsLine(manipulator == static_cast<FUNCTION>(std::endl)) {}
        FUNCTION function;
        bool endsLine;
    };

    /// \param name  copied; null means the channel "".
    CLOGGERBASE(const char* name, CLOGMANAGER::Level level);
    ~CLOGGERBASE();

    /// True when nothing has been written to the current line.
    [[nodiscard]] bool IsStartLine() const;
    void NextMsg() noexcept { mMsgNumber += mMsgNumber != (std::numeric_limits<long>::max)() ? 1 : 0; }
    /// Empties the line and clears the stream's state of failure.
    void ResetStr();
    /// Returns the line and empties it as ResetStr() does.
    [[nodiscard]] std::string TakeStr();
    /// Keeps the memory of a text from TakeStr() for the next line, unless it is large.
    void GiveBack(std::string&& text) noexcept;

    /// Inserts a number as the stream does, in a fraction of the time. False, and nothing is inserted, when the stream
    /// has failed or has another format or locale.
    [[nodiscard]] bool InsertPlain(long long number);
    [[nodiscard]] bool InsertPlain(unsigned long long number);
    [[nodiscard]] bool InsertPlain(double number);

private:
    template <class... FORM>
    bool InsertNumber(FORM... form);

    static constexpr std::size_t kMaxSpare = std::size_t{1} << 17;

    std::string mName;
    CLOGMANAGER::Level mLevel;
    long mId;
    long mMsgNumber = 0;
    std::ostringstream mStream;
    std::string mSpare;
};

inline void CLOGGERBASE::GiveBack(std::string&& text) noexcept {
    if (text.capacity() <= kMaxSpare) {
        mSpare = std::move(text);
    }
}

}  // namespace MLCore
