#include <MLCore/datetime/CTIME.h>
#include <MLCore/datetime/CTIMESPAN.h>
#include <MLCore/platform/WinTypes.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <unordered_set>
#include <utility>

namespace {

using namespace MLCore;

constexpr long kMostLong = std::numeric_limits<long>::max();
constexpr long kLeastLong = std::numeric_limits<long>::min();
constexpr long long kMost = std::numeric_limits<long long>::max();
constexpr long long kLeast = std::numeric_limits<long long>::min();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

long Floored(long long seconds) { return static_cast<long>((seconds % 86400 + 86400) % 86400); }

TEST(TimeTest, EverySecondOfADay) {
    CTIME previous(23, 59, 59);
    for (int second = 0; second < 86400; ++second) {
        const int h = second / 3600;
        const int m = second / 60 % 60;
        const int s = second % 60;
        const CTIME time(static_cast<std::int16_t>(h), static_cast<std::int16_t>(m), static_cast<std::int16_t>(s));
        ASSERT_EQ(time.GetTotalSeconds(), second);
        ASSERT_TRUE(time.GetHours() == h && time.GetMinutes() == m && time.GetSeconds() == s && time.IsTime());
        ASSERT_EQ(time.IsNull() != 0, second == 0);
        ASSERT_EQ(time.IsEndOfDay() != 0, second == 86399);
        ASSERT_EQ(++previous, time);
        char text[16];
        ASSERT_EQ(std::snprintf(text, sizeof text, "%02d:%02d:%02d", h, m, s), 8);
        ASSERT_EQ(time.ToString(), text);
        ASSERT_EQ(CTIME(text), time);
        ASSERT_NEAR(time.ToWDate(), second / 86400.0, 1e-12);
        ASSERT_EQ(CTIME(time.ToWDate()), time);
        ASSERT_EQ(CTIME(45356.0 + second / 86400.0), time);
        const SYSTEMTIME system = time.ToSystemTime();
        ASSERT_EQ(CTIME(system), time);
        ASSERT_TRUE(system.wYear == 1899 && system.wMonth == 12 && system.wDay == 30 && system.wDayOfWeek == 0 &&
                    system.wMilliseconds == 0);
    }
    EXPECT_EQ(previous++, CTIME::Max());
    EXPECT_EQ(previous--, CTIME::Null());
    EXPECT_EQ(previous, CTIME(23, 59, 59));
    EXPECT_EQ(CTIME(-1.25), CTIME(6, 0, 0));
    EXPECT_TRUE(CTIME(1e300).IsNull() && CTIME(std::nan("")).IsNull() && CTIME(0.0).IsNull());
    EXPECT_TRUE(CTIME::Min() == CTIME() && CTIME::NullTime() == CTIME() && CTIME::Now().IsTime());
}

TEST(TimeTest, PartsOutOfRangeAreKept) {
    EXPECT_TRUE(!CTIME(24, 0, 0).IsTime() && CTIME(12, 60, 0).IsTime() && !CTIME(0, 0, -1).IsTime());
    EXPECT_EQ(CTIME(24, 0, 0).GetHours(), 0);
    EXPECT_EQ(CTIME(25, 30, 0) + 0L, CTIME(1, 30, 0));
    EXPECT_EQ(CTIME(0, 0, -1) + 0L, CTIME(23, 59, 59));
    CTIME time(1, 2, 3);
    time.SetHours(7);
    time.SetMinutes(5);
    time.SetSeconds(9);
    EXPECT_EQ(time, CTIME(7, 5, 9));
    const MLTIME parts = time;
    EXPECT_TRUE(parts.hours == 7 && parts.minutes == 5 && parts.seconds == 9);
    for (const std::int16_t value : {std::int16_t{-32768}, std::int16_t{32767}}) {
        time.Set(value, value, value);
        EXPECT_FALSE(time.IsTime());
        EXPECT_EQ(time.GetTotalSeconds(), value * 3661);
        EXPECT_EQ((time + kMostLong).IsTime(), 1);
        EXPECT_EQ((time - kLeastLong).IsTime(), 1);
        EXPECT_FALSE(time.ToString().empty());
        static_cast<void>(time.ToWDate());
        static_cast<void>(time.ToSystemTime());
    }
}

TEST(TimeTest, ArithmeticWrapsAroundMidnight) {
    EXPECT_EQ(CTIME(23, 30, 0) + 3600L, CTIME(0, 30, 0));
    EXPECT_EQ(CTIME(0, 10, 0) - 900L, CTIME(23, 55, 0));
    std::mt19937_64 random(235959);
    for (int i = 0; i < 20000; ++i) {
        const long long start = static_cast<long long>(random() % 86400);
        const long n = i < 4 ? (i % 2 == 0 ? kMostLong - i : kLeastLong + i)
                             : static_cast<long>(random()) / (i % 3 == 0 ? 1 : 65536);
        CTIME time;
        EXPECT_EQ(time.FromSeconds(n), n < 86400 ? 1 : 0);
        ASSERT_EQ(time.GetTotalSeconds(), Floored(n)) << n;
        time.FromSeconds(static_cast<long>(start));
        const long long part = n % 86400;
        ASSERT_EQ((time + n).GetTotalSeconds(), Floored(start + part)) << n;
        ASSERT_EQ((n + time).GetTotalSeconds(), Floored(start + part)) << n;
        ASSERT_EQ((time - n).GetTotalSeconds(), Floored(start - part)) << n;
        ASSERT_EQ(AddSeconds(time, n), time + n);
        ASSERT_EQ(AddMinutes(time, n).GetTotalSeconds(), Floored(start + part * 60)) << n;
        ASSERT_EQ(AddHours(time, n).GetTotalSeconds(), Floored(start + part * 3600)) << n;
        ASSERT_EQ(time + CTIMESPAN(n), time + n);
        ASSERT_EQ(time - CTIMESPAN(n), time - n);
    }
    EXPECT_TRUE((CTIME() + CTIMESPAN(kMost)).IsTime() && (CTIME() - CTIMESPAN(kLeast)).IsTime());
    EXPECT_EQ((CTIME() - CTIMESPAN(kLeast)).GetTotalSeconds(), Floored(-(kLeast % 86400)));

    EXPECT_EQ(CTIME(8, 0, 0).ComputeHours(CTIME(10, 0, 0)), -2);
    EXPECT_EQ(CTIME(8, 59, 59).ComputeHours(CTIME(10, 0, 0)), -2);
    EXPECT_EQ(CTIME(10, 0, 0).ComputeMinutes(CTIME(9, 58, 59)), 2);
    EXPECT_EQ(CTIME(9, 58, 59).ComputeSeconds(CTIME(10, 0, 0)), -61);
    EXPECT_EQ(CTIME(12, 30, 0).ToDecimalHours(), 12.5);
    EXPECT_EQ(CTIME(0, 1, 30).ToDecimalMinutes(), 1.5);
}

TEST(TimeTest, FromMinutesAndHours) {
    const CTIME before(9, 9, 9);
    for (const double seconds : {0.0, 5430.0, 86399.5, 86400.0, 86460.0, -60.0, -0.5, -86400.0, 1e15, -1e15}) {
        CTIME time = before;
        const auto whole = static_cast<long long>(std::floor(seconds));
        EXPECT_EQ(time.FromMinutes(seconds / 60), whole < 86400 ? 1 : 0) << seconds;
        EXPECT_EQ(time.GetTotalSeconds(), Floored(whole)) << seconds;
    }
    CTIME time;
    EXPECT_TRUE(time.FromHours(12.5) == 1 && time == CTIME(12, 30, 0));
    EXPECT_TRUE(time.FromHours(-0.25) == 1 && time == CTIME(23, 45, 0));
    EXPECT_TRUE(time.FromHours(49) == 0 && time == CTIME(1, 0, 0));
    EXPECT_TRUE(time.FromMinutes(1e300) == 0 && time.IsTime() && time.FromMinutes(-1e300) == 1 && time.IsTime());
    EXPECT_TRUE(time.FromHours(1e300) == 0 && time.IsTime() && time.FromHours(-1e300) == 1 && time.IsTime());
    for (const double unknown : {kInfinity, -kInfinity, std::nan(""), 1e308}) {
        time = before;
        EXPECT_TRUE(time.FromMinutes(unknown) == 0 && time.FromHours(unknown) == 0 && time == before) << unknown;
    }
    EXPECT_TRUE(time.FromSeconds(86399) == 1 && time == CTIME::Max());
    EXPECT_TRUE(time.FromSeconds(86400) == 0 && time.IsNull());
    EXPECT_TRUE(time.FromSeconds(-1) == 1 && time == CTIME::Max());
}

TEST(TimeTest, WorkedTexts) {
    const CTIME before(9, 9, 9);
    // Texts and what is read from each: nothing when it is refused.
    const auto compare = [&](const char* rows, int (CTIME::*parse)(const char*) noexcept) {
        std::istringstream in(rows);
        for (std::string row; in >> row;) {
            const std::string text = row.substr(0, row.find('>'));
            CTIME time = before;
            const int result = (time.*parse)(text.c_str());
            EXPECT_EQ(text + '>' + (result == 1 ? time.ToString() : ""), row);
            EXPECT_TRUE(result == 1 || (result == 0 && time == before)) << row;
        }
        CTIME time = before;
        EXPECT_TRUE((time.*parse)(nullptr) == 0 && time == before && (time.*parse)("07:05 09") == 0);
        EXPECT_TRUE((time.*parse)(std::string(100000, ':').c_str()) == 0 && (time.*parse)(" 70509") == 0);
    };
    compare(
        "07:05:09>07:05:09 070509>07:05:09 >00:00:00 23:59:59>23:59:59 7:05:09> 07-05-09> 24:00:00> 12:60:00> "
        "12:00:60> "
        "240000> 07:05:9> 07:05:090> 07:0509> 0705:09> +70509> 07:-5:09> :> 07:05:09Z> 0705090> 07050> ",
        &CTIME::FromString);
    compare(
        "10:00:00Z>10:00:00 10:00:00+02:00>12:00:00 10:00:00-02:30>07:30:00 23:00:00+02:00>01:00:00 >00:00:00 "
        "00:10:00-01:00>23:10:00 10:00:00.5>10:00:00 10:00:00.5+02:00>12:00:00 10:00:00.5Z>10:00:00 100000Z>10:00:00 "
        "100000>10:00:00 10:00:00>10:00:00 10:00:00.>10:00:00 10:00:00.5x>10:00:00 10:00:00+99:99>14:39:00 10:00:00.x> "
        "100000+0200> 100000-02> 100000.5> 100000+02:00> 10:00:00+0200> 10:00> 24:00:00> 24:00:00Z> 10:60:00> "
        "10:00:00Zx> "
        "10:00:00ZZ> 10:00:00Z+01:00> 10:00:00+1:000> 10:00:00+aa:00> 10:00:00+02:0a> 10:00:00+> 10:00:00-> 10:00:00x> "
        "10:00:00+02:00-01:00> 1000000> Z> T> T10:00:00> 2024-02-30T10:00:00> ",
        &CTIME::FromStringXML);
    EXPECT_TRUE(IsStrTime("070509") && IsStrTime("") && !IsStrTime("24:00:00") && !IsStrTime(nullptr));
    EXPECT_TRUE(CTIME("07:05:09") == CTIME(7, 5, 9) && CTIME("7:05:09").IsNull());
    CTIME time;
    EXPECT_EQ(time.FromStringXML(("10:00:00." + std::string(1000, '5')).c_str()), 1);
}

TEST(TimeTest, RandomTexts) {
    std::mt19937 random(4711);
    const std::string characters = "0123459:::Z+-.T";
    for (int i = 0; i < 200000; ++i) {
        std::string text(random() % 20, ' ');
        for (char& character : text) {
            character = i % 4 != 0 ? characters[random() % characters.size()] : static_cast<char>(1 + random() % 255);
        }
        if (i % 3 == 0 && text.size() >= 8) {
            text[2] = text[5] = ':';
        }
        const CTIME before(3, 2, 1);
        CTIME time = before;
        if (time.FromString(text.c_str()) == 1) {
            std::string written = text.empty() ? "00:00:00" : time.ToString();
            if (text.find(':') == text.npos) {
                std::erase(written, ':');
            }
            ASSERT_TRUE(text.empty() ? time.IsNull() != 0 : written == text) << text;
        } else {
            ASSERT_EQ(time, before) << text;
        }
        CTIME xml = before;
        ASSERT_TRUE(xml.FromStringXML(text.c_str()) == 1 ? xml.IsTime() != 0 : xml == before) << text;
    }
}

TEST(TimeTest, OrderHashAndStream) {
    EXPECT_TRUE(CTIME(7, 5, 9) < CTIME(7, 5, 10) && CTIME(8, 0, 0) > CTIME(7, 59, 59) && CTIME() <= CTIME::Max());
    EXPECT_TRUE(CTIMESPAN(-1) < CTIMESPAN() && CTIMESPAN(5) == CTIMESPAN(5) && CTIMESPAN(5) != CTIMESPAN(6));
    EXPECT_EQ((std::unordered_set<CTIME>{CTIME(1, 0, 0), CTIME(0, 60, 0), CTIME(2, 0, 0)}).size(), 2U);
    EXPECT_EQ((std::unordered_set<CTIMESPAN>{CTIMESPAN(1), CTIMESPAN(1), CTIMESPAN(kLeast)}).size(), 2U);
    std::ostringstream out;
    out.width(3);
    out << std::hex << CTIME(7, 5, 9) << CTIME(23, 15, 59) << CTIMESPAN(-300);
    EXPECT_NE(out.str().find("CTIME(7,5,9)CTIME(23,15,59)CTIMESPAN(-0:05:00)"), std::string::npos) << out.str();
}

TEST(TimeSpanTest, TextsAndParts) {
    const struct {
        long long seconds;
        const char* text;
    } rows[] = {{0, "0:00:00"},
                {5, "0:00:05"},
                {-300, "-0:05:00"},
                {25509, "7:05:09"},
                {-25509, "-7:05:09"},
                {450000, "125:00:00"},
                {-3600, "-1:00:00"},
                {kMost, "2562047788015215:30:07"},
                {kLeast, "-2562047788015215:30:08"}};
    for (const auto& row : rows) {
        const CTIMESPAN span(row.seconds);
        EXPECT_EQ(span.ToString(), row.text);
        EXPECT_EQ(span.GetHours() * 3600 + span.GetMinutes() * 60 + span.GetSeconds(), row.seconds);
        CTIMESPAN built;
        built.SetSeconds(span.GetSeconds());
        built.SetMinutes(span.GetMinutes());
        if (std::in_range<long>(span.GetHours())) {
            built.SetHours(static_cast<long>(span.GetHours()));
            EXPECT_EQ(built, span);
        }
    }
    EXPECT_EQ(CTIMESPAN::NbSecondsInOneMinute(), 60);
    EXPECT_EQ(CTIMESPAN::NbSecondsInOneHour(), 3600);
    EXPECT_EQ(CTIMESPAN::NbSecondsInOneDay(), 86400);
}

TEST(TimeSpanTest, SumsStayAtTheLongest) {
    const CTIMESPAN most(kMost);
    const CTIMESPAN least(kLeast);
    const CTIMESPAN one(1);
    EXPECT_EQ(most + one, most);
    EXPECT_EQ(least - one, least);
    EXPECT_EQ(most - one + one, most);
    EXPECT_EQ(most + least, CTIMESPAN(-1));
    EXPECT_EQ(-least, most);
    EXPECT_EQ(-most, CTIMESPAN(-kMost));
    EXPECT_EQ(CTIMESPAN(-5) - least, CTIMESPAN(kMost - 4));
    EXPECT_EQ(least - least, CTIMESPAN());
    EXPECT_EQ(CTIMESPAN(100) - CTIMESPAN(250), CTIMESPAN(-150));
    CTIMESPAN span;
    span.SetHours(kMostLong);
    span.SetMinutes(kLeastLong);
    span.SetSeconds(kMostLong);
    EXPECT_FALSE(span.ToString().empty());
    CTIMESPAN carried;
    carried.SetMinutes(90);
    EXPECT_EQ(carried.ToString(), "1:30:00");
}

}  // namespace
