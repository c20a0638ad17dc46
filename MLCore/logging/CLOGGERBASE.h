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

/// A logger, whatever becomes of its lines: a channel's name, a level, and the line that is being written.
///
/// A logger is for one thread at a time; each thread may have one of its own for the same channel. A copy takes over
/// everything, the line begun and the form of numbers included, and goes on by itself.
class MLCORE_API CLOGGERBASE {
public:
    CLOGGERBASE(const CLOGGERBASE& other);
    CLOGGERBASE& operator=(const CLOGGERBASE& other);

    /// The name of the channel, "" for the one without.
    [[nodiscard]] const std::string& GetName() const noexcept { return mName; }
    [[nodiscard]] CLOGMANAGER::Level GetLevel() const noexcept { return mLevel; }
    /// A number that the manager gave: unlike that of any other logger but a copy.
    [[nodiscard]] long GetId() const noexcept { return mId; }
    /// How many lines were passed on; the largest long is not exceeded.
    [[nodiscard]] long GetMsgNumber() const noexcept { return mMsgNumber; }

    /// 1 when the channel is enabled and the level is not above the manager's, else 0: then lines are dropped.
    [[nodiscard]] int IsEnable() const;

    /// The stream that takes the current line. Numbers are written in the "C" locale. Where memory ends, the line is cut.
    [[nodiscard]] std::ostream& GetStream() noexcept { return mStream; }
    /// The current line so far.
    [[nodiscard]] std::string GetStr() const { return mStream.str(); }

protected:
    // Not the function itself: where both kinds of `endl` are in scope, the logger's is the better match.
    struct STREAMMANIPULATOR {
        using FUNCTION = std::ostream& (*)(std::ostream&);
        // Implicit, and inline: std::endl is another function in each module that has its own standard library.
        STREAMMANIPULATOR(FUNCTION manipulator)
            : function(manipulator), endsLine(manipulator == static_cast<FUNCTION>(std::endl)) {}
        FUNCTION function;
        bool endsLine;
    };

    /// \param name  copied; null for the channel "".
    CLOGGERBASE(const char* name, CLOGMANAGER::Level level);
    ~CLOGGERBASE();

    /// True when nothing has been written to the current line.
    [[nodiscard]] bool IsStartLine() const;
    void NextMsg() noexcept { mMsgNumber += mMsgNumber != (std::numeric_limits<long>::max)() ? 1 : 0; }
    /// Empties the line, and has the stream work again if something failed to be written.
    void ResetStr();
    /// The line, which is empty afterwards as after ResetStr(). Giving the text back spares the next line its memory,
    /// unless that is much.
    [[nodiscard]] std::string TakeStr();
    void GiveBack(std::string&& text) noexcept {
        if (text.capacity() <= kMaxSpare) {
            mSpare = std::move(text);
        }
    }

    /// Inserts what the stream would, in a fraction of the time; false, and nothing is inserted, when the stream does not
    /// work or has been told of another form or locale.
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

}  // namespace MLCore
