#include <MLCore/logging/CLOGGERBASIC.h>
#include <MLCore/platform/DebugOutput.h>
#include <gtest/gtest.h>

#include <iomanip>
#include <limits>
#include <locale>
#include <sstream>
#include <stdexcept>

#include "LogSupport.h"

// Both are in scope, as in a program that spares itself the names.
using namespace MLCore;
using namespace std;

namespace {

using support::LOGFILE;
using Level = CLOGMANAGER::Level;

struct KEEPLINES {
    static inline vector<string> lines;
    static void Write(const string& name, const string& text) {
        if (text == "refused") {
            throw runtime_error("refused");
        }
        lines.push_back(name + ": " + text);
    }
};

class KEEPER : public CLOGGERBASIC<KEEPLINES> {
public:
    using CLOGGERBASIC::CLOGGERBASIC;
    using CLOGGERBASIC::IsStartLine;
};

vector<string> TakeLines() { return exchange(KEEPLINES::lines, {}); }

TEST(Logger, TakesWhatStreamsTake) {
    KEEPER log("form");
    const char* const none = nullptr;
    char* const nothing = nullptr;
    const unsigned char* const nobody = nullptr;
    log << nothing << nobody << "n=" << 255 << ' ' << hex << 255 << dec << setw(4) << 7 << none << ' ' << true << endl;
    log << fixed << setprecision(2) << 1234.5;
    ostream& (*const end)(ostream&) = std::endl;
    log << end;
    log.GetStream() << "and its stream";
    log << MLCore::endl << flush << ends;
    EXPECT_EQ(TakeLines(), (vector<string>{"form: n=255 ff   7 1", "form: 1234.50", "form: and its stream"}));
    EXPECT_EQ(log.GetStr(), string(1, '\0'));
    ostringstream names;
    names << Level::ERR << Level::WAR << Level::INF << Level::DEB << static_cast<Level>(4) << LogEventType::INFO
          << LogEventType::ALERTE << LogEventType::ERREUR << static_cast<LogEventType>(-1);
    EXPECT_EQ(names.str(), "ERRWARINFDEB4INFOALERTEERREUR-1");
}

struct GROUPING : numpunct<char> {
    string do_grouping() const override { return "\3"; }
};

// Whatever the stream has been told.
TEST(Logger, WritesNumbersAsStreamsDo) {
    ios_base& (*const forms[])(ios_base&) = {dec, hex, showpos, uppercase, boolalpha, fixed, scientific};
    const locale grouped(locale::classic(), new GROUPING);
    for (const auto form : forms) {
        for (const int precision : {6, 3}) {
            for (const locale& place : {locale::classic(), grouped}) {
                KEEPER log("numbers");
                ostringstream expected;
                for (ostream* const stream : {&log.GetStream(), static_cast<ostream*>(&expected)}) {
                    stream->imbue(place);
                    stream->precision(precision);
                    form(*stream);
                }
                const auto add = [&](auto... numbers) {
                    ((log << setw(3) << numbers << numbers << ' '), ...);
                    ((expected << setw(3) << numbers << numbers << ' '), ...);
                };
                add(true, short{-7}, numeric_limits<unsigned short>::max(), numeric_limits<int>::min(), 7U, -70000L,
                    numeric_limits<unsigned long>::max(), numeric_limits<long long>::min(),
                    numeric_limits<unsigned long long>::max(), 'c', static_cast<signed char>('c'));
                add(0.0, -0.0, 100000.0, 999999.5, 1e6, 0.0001, 0.00001, -1234.5678, 0.1F, 1e100, 5e-324, 1.5L,
                    numeric_limits<double>::max(), numeric_limits<double>::infinity(),
                    -numeric_limits<float>::infinity(), numeric_limits<double>::quiet_NaN());
                EXPECT_EQ(log.GetStr(), expected.str());
            }
        }
    }
}

TEST(Logger, SpeaksWhenItsLevelAndItsChannelAllow) {
    const LOGFILE restored;
    KEEPER debug("level", Level::DEB);
    KEEPER error("level", Level::ERR);
    debug << 1 << endl;
    error << 2 << endl;
    CLOGMANAGER::SetLevel(Level::DEB);
    debug << 3 << endl;
    CLOGMANAGER::Enable("level", 0);
    error << 4 << endl;
    EXPECT_EQ(error.IsEnable(), 0);
    EXPECT_TRUE(error.IsStartLine()) << "a line that nobody hears ends too";
    CLOGMANAGER::Enable("level", 1);
    error << 5 << endl;
    EXPECT_EQ(TakeLines(), (vector<string>{"level: 2", "level: 3", "level: 5"}));
    EXPECT_EQ(error.GetMsgNumber(), 2);
    EXPECT_EQ(error.GetLevel(), Level::ERR);
    EXPECT_NE(error.GetId(), debug.GetId());
}

TEST(Logger, CopiesGoOnByThemselves) {
    KEEPER log("copy");
    EXPECT_TRUE(log.IsStartLine());
    log << 0 << endl << "begun " << hex;
    EXPECT_FALSE(log.IsStartLine());
    KEEPER copy(log);
    copy << 10 << endl;
    log << 11 << endl;
    KEEPER other(nullptr);
    other = copy;
    other << "other" << endl;
    EXPECT_EQ(TakeLines(), (vector<string>{"copy: 0", "copy: begun a", "copy: begun b", "copy: other"}));
    EXPECT_EQ(other.GetMsgNumber(), 3);
    EXPECT_EQ(copy.GetMsgNumber(), 2);
    EXPECT_EQ(KEEPER(nullptr).GetName(), "");
}

TEST(Logger, SurvivesFailures) {
    KEEPER log("failing");
    EXPECT_THROW(log << "refused" << endl, runtime_error);
    log.GetStream().setstate(ios_base::badbit);
    log << "not taken" << endl;
    log << "again" << endl;
    EXPECT_EQ(TakeLines(), (vector<string>{"failing: ", "failing: again"}));
}

string gDebugged;

TEST(Logger, SendsLinesToTheDebugger) {
    const platform::DEBUGSINK before = platform::SetDebugSink([](const char* text) { gDebugged += text; });
    CLOGDEBUGGERLOGGER log("unused");
    log << "one" << endl << "two" << '\0' << "cut" << endl;
    platform::SetDebugSink(before);
    EXPECT_EQ(gDebugged, "one\r\ntwo\r\n");
}

}  // namespace
