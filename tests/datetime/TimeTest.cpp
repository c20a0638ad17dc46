#include <MLCore/datetime/CTIME.h>
#include <MLCore/datetime/CTIMESPAN.h>
#include <MLCore/platform/WinTypes.h>
#include <gtest/gtest.h>
#include <support/Random.h>

#include <climits>
#include <cmath>
#include <cstdio>
#include <sstream>
#include <string>
#include <unordered_set>
#include <utility>

namespace {

using namespace MLCore;

long Floored(long long seconds) { return static_cast<long>((seconds % 86400 + 86400) % 86400); }

TEST(TimeTest, EverySecondOfADay) {
    CTIME previous(23, 59, 59);
    for (int second = 0; second < 86400; ++second) {
        const int h = second / 3600;
        const int m = second / 60 % 60;
        const int s = second % 60;
        const CTIME time(static_cast<std::int16_t>(h), static_cast<std::int16_t>(m), static_cast<std::int16_t>(s));
        ASSERT_EQ(std::tuple(time.GetHours(), time.GetMinutes(), time.GetSeconds()), std::tuple(h, m, s));
        ASSERT_TRUE(time.IsTime()) << second;
        ASSERT_EQ(time.GetTotalSeconds(), second) << second;
        ASSERT_EQ(++previous, time) << second;
        ASSERT_EQ(time.IsNull() != 0, second == 0) << second;
        ASSERT_EQ(time.IsEndOfDay() != 0, second == 86399) << second;
        char text[16];
        ASSERT_EQ(std::snprintf(text, sizeof text, "%02d:%02d:%02d", h, m, s), 8);
        ASSERT_EQ(time.ToString(), text) << text;
        ASSERT_EQ(CTIME(text), time) << text;
        ASSERT_NEAR(time.ToWDate(), second / 86400.0, 1e-12);
        ASSERT_EQ(CTIME(time.ToWDate()), time) << text;
        ASSERT_EQ(CTIME(45356.0 + second / 86400.0), time) << text;
        const SYSTEMTIME system = time.ToSystemTime();
        ASSERT_EQ(CTIME(system), time) << text;
        ASSERT_EQ(std::tuple(system.wYear, system.wMonth, system.wDay, system.wDayOfWeek, system.wMilliseconds),
                  std::tuple(1899, 12, 30, 0, 0))
            << text;
    }
    EXPECT_EQ(previous++, CTIME::Max());
    EXPECT_EQ(previous--, CTIME::Null());
    EXPECT_EQ(previous, CTIME(23, 59, 59));
    EXPECT_EQ(CTIME(-1.25), CTIME(6, 0, 0));
    EXPECT_TRUE(CTIME(1e300).IsNull());
    EXPECT_TRUE(CTIME(std::nan("")).IsNull());
    EXPECT_TRUE(CTIME(0.0).IsNull());
    EXPECT_EQ(CTIME::Min(), CTIME());
    EXPECT_EQ(CTIME::NullTime(), CTIME());
}

TEST(TimeTest, PartsOutOfRangeAreKept) {
    EXPECT_FALSE(CTIME(24, 0, 0).IsTime());
    EXPECT_TRUE(CTIME(12, 60, 0).IsTime());
    EXPECT_FALSE(CTIME(0, 0, -1).IsTime());
    EXPECT_EQ(CTIME(24, 0, 0).GetHours(), 0);
    EXPECT_EQ(CTIME(25, 30, 0) + 0L, CTIME(1, 30, 0));
    EXPECT_EQ(CTIME(0, 0, -1) + 0L, CTIME(23, 59, 59));
    CTIME time;
    time.SetHours(7);
    time.SetMinutes(5);
    time.SetSeconds(9);
    const MLTIME parts = time;
    EXPECT_EQ(time, CTIME(7, 5, 9));
    EXPECT_EQ(std::tuple(parts.hours, parts.minutes, parts.seconds), std::tuple(7, 5, 9));
    for (const std::int16_t value : {std::int16_t{-32768}, std::int16_t{32767}}) {
        time.Set(value, value, value);
        EXPECT_FALSE(time.IsTime()) << value;
        EXPECT_EQ(time.GetTotalSeconds(), value * 3661) << value;
        EXPECT_TRUE((time + LONG_MAX).IsTime()) << value;
        EXPECT_TRUE((time - LONG_MIN).IsTime()) << value;
        EXPECT_FALSE(time.ToString().empty()) << value;
        static_cast<void>(time.ToWDate());
        static_cast<void>(time.ToSystemTime());
    }
}

TEST(TimeTest, ArithmeticWrapsAroundMidnight) {
    EXPECT_EQ(CTIME(23, 30, 0) + 3600L, CTIME(0, 30, 0));
    EXPECT_EQ(CTIME(0, 10, 0) - 900L, CTIME(23, 55, 0));
    support::RANDOM64 random(235959);
    for (int i = 0; i < 20000; ++i) {
        const long long start = static_cast<long long>(random() % 86400);
        const long n =
            i < 4 ? (i % 2 == 0 ? LONG_MAX - i : LONG_MIN + i) : static_cast<long>(random()) / (i % 3 == 0 ? 1 : 65536);
        CTIME time;
        EXPECT_EQ(time.FromSeconds(n), n < 86400 ? 1 : 0);
        ASSERT_EQ(time.GetTotalSeconds(), Floored(n)) << n;
        time.FromSeconds(static_cast<long>(start));
        const long long part = n % 86400;
        ASSERT_EQ((time + n).GetTotalSeconds(), Floored(start + part)) << n;
        ASSERT_EQ((time - n).GetTotalSeconds(), Floored(start - part)) << n;
        ASSERT_EQ(n + time, time + n) << n;
        ASSERT_EQ(AddSeconds(time, n), time + n) << n;
        ASSERT_EQ(AddMinutes(time, n).GetTotalSeconds(), Floored(start + part * 60)) << n;
        ASSERT_EQ(AddHours(time, n).GetTotalSeconds(), Floored(start + part * 3600)) << n;
        ASSERT_EQ(time + CTIMESPAN(n), time + n) << n;
        ASSERT_EQ(time - CTIMESPAN(n), time - n) << n;
    }
    EXPECT_TRUE((CTIME() + CTIMESPAN(LLONG_MAX)).IsTime());
    EXPECT_EQ((CTIME() - CTIMESPAN(LLONG_MIN)).GetTotalSeconds(), Floored(-(LLONG_MIN % 86400)));

    EXPECT_EQ(CTIME(8, 59, 59).ComputeHours(CTIME(10, 0, 0)), -2);
    EXPECT_EQ(CTIME(10, 0, 0).ComputeMinutes(CTIME(9, 58, 59)), 2);
    EXPECT_EQ(CTIME(9, 58, 59).ComputeSeconds(CTIME(10, 0, 0)), -61);
    EXPECT_EQ(CTIME(12, 30, 0).ToDecimalHours(), 12.5);
    EXPECT_EQ(CTIME(0, 1, 30).ToDecimalMinutes(), 1.5);
}

TEST(TimeTest, FromMinutesAndHours) {
    CTIME time;
    for (const double seconds : {0.0, 5430.0, 86399.5, 86400.0, 86460.0, -60.0, -0.5, -86400.0, 1e15, -1e15}) {
        const auto whole = static_cast<long long>(std::floor(seconds));
        EXPECT_EQ(time.FromMinutes(seconds / 60), whole < 86400 ? 1 : 0) << seconds;
        EXPECT_EQ(time.GetTotalSeconds(), Floored(whole)) << seconds;
    }
    EXPECT_EQ(time.FromHours(-0.25), 1);
    EXPECT_EQ(time, CTIME(23, 45, 0));
    EXPECT_EQ(time.FromHours(49), 0);
    EXPECT_EQ(time, CTIME(1, 0, 0));
    EXPECT_EQ(time.FromMinutes(1e300), 0);
    EXPECT_TRUE(time.IsTime());
    EXPECT_EQ(time.FromMinutes(-1e300), 1);
    EXPECT_TRUE(time.IsTime());
    EXPECT_EQ(time.FromHours(1e300), 0);
    EXPECT_TRUE(time.IsTime());
    EXPECT_EQ(time.FromHours(-1e300), 1);
    EXPECT_TRUE(time.IsTime());
    time = CTIME(9, 9, 9);
    for (const double unknown : {HUGE_VAL, -HUGE_VAL, std::nan(""), 1e308}) {
        EXPECT_EQ(time.FromMinutes(unknown), 0);
        EXPECT_EQ(time.FromHours(unknown), 0);
        EXPECT_EQ(time, CTIME(9, 9, 9));
    }
    EXPECT_EQ(time.FromSeconds(86400), 0);
    EXPECT_TRUE(time.IsNull());
    EXPECT_EQ(time.FromSeconds(-1), 1);
    EXPECT_EQ(time, CTIME::Max());
}

TEST(TimeTest, WorkedTexts) {
    const CTIME before(9, 9, 9);
    const std::pair<int (CTIME::*)(const char*) noexcept, const char*> rows[] = {
        {&CTIME::FromString,
         "07:05:09>07:05:09 070509>07:05:09 >00:00:00 23:59:59>23:59:59 7:05:09> 07-05-09> 24:00:00> 12:60:00> "
         "12:00:60> 240000> 07:05:9> 07:05:090> 07:0509> 0705:09> +70509> 07:-5:09> :> 07:05:09Z> 0705090> 07050> "},
        {&CTIME::FromStringXML,
         "10:00:00Z>10:00:00 10:00:00+02:00>12:00:00 10:00:00-02:30>07:30:00 23:00:00+02:00>01:00:00 >00:00:00 "
         "00:10:00-01:00>23:10:00 10:00:00.5>10:00:00 10:00:00.5+02:00>12:00:00 10:00:00.5Z>10:00:00 100000Z>10:00:00 "
         "100000>10:00:00 10:00:00>10:00:00 10:00:00.>10:00:00 10:00:00.5x>10:00:00 10:00:00+99:99>14:39:00 "
         "10:00:00.x> 100000+0200> 100000-02> 100000.5> 100000+02:00> 10:00:00+0200> 10:00> 24:00:00> 24:00:00Z> "
         "10:60:00> 10:00:00Zx> 10:00:00ZZ> 10:00:00Z+01:00> 10:00:00+1:000> 10:00:00+aa:00> 10:00:00+02:0a> "
         "10:00:00+> 10:00:00-> 10:00:00x> 10:00:00+02:00-01:00> 1000000> Z> T> T10:00:00> 2024-02-30T10:00:00> "}};
    for (const auto& [parse, texts] : rows) {
        std::istringstream in(texts);
        for (std::string row; in >> row;) {
            const std::string text = row.substr(0, row.find('>'));
            CTIME time = before;
            const bool isRead = (time.*parse)(text.c_str()) == 1;
            EXPECT_EQ(text + '>' + (isRead ? time.ToString() : ""), row);
            EXPECT_TRUE(isRead ? time.IsTime() != 0 : time == before) << row;
        }
        EXPECT_EQ((CTIME().*parse)(nullptr), 0);
        EXPECT_EQ((CTIME().*parse)("07:05 09"), 0);
        EXPECT_EQ((CTIME().*parse)(std::string(100000, ':').c_str()), 0);
        EXPECT_EQ((CTIME().*parse)(" 70509"), 0);
    }
    EXPECT_TRUE(IsStrTime("070509"));
    EXPECT_TRUE(IsStrTime(""));
    EXPECT_FALSE(IsStrTime("24:00:00"));
    EXPECT_FALSE(IsStrTime(nullptr));
    EXPECT_EQ(CTIME().FromStringXML(("10:00:00." + std::string(1000, '5')).c_str()), 1);
}

TEST(TimeTest, OrderHashAndStream) {
    EXPECT_LT(CTIME(7, 5, 9), CTIME(7, 5, 10));
    EXPECT_GT(CTIME(8, 0, 0), CTIME(7, 59, 59));
    EXPECT_LE(CTIME(), CTIME::Max());
    EXPECT_LT(CTIMESPAN(-1), CTIMESPAN());
    EXPECT_EQ(CTIMESPAN(5), CTIMESPAN(5));
    EXPECT_NE(CTIMESPAN(5), CTIMESPAN(6));
    EXPECT_EQ((std::unordered_set<CTIME>{CTIME(1, 0, 0), CTIME(0, 60, 0), CTIME(2, 0, 0)}).size(), 2U);
    EXPECT_EQ((std::unordered_set<CTIMESPAN>{CTIMESPAN(1), CTIMESPAN(1), CTIMESPAN(LLONG_MIN)}).size(), 2U);
    std::ostringstream out;
    out.width(3);
    out << std::hex << CTIME(7, 5, 9) << CTIME(23, 15, 59) << CTIMESPAN(-300);
    EXPECT_NE(out.str().find("CTIME(7,5,9)CTIME(23,15,59)CTIMESPAN(-0:05:00)"), std::string::npos) << out.str();
}

TEST(TimeSpanTest, TextsAndParts) {
    std::istringstream rows(
        "0 0:00:00 5 0:00:05 -300 -0:05:00 25509 7:05:09 -25509 -7:05:09 450000 125:00:00 -3600 -1:00:00 "
        "9223372036854775807 2562047788015215:30:07 -9223372036854775808 -2562047788015215:30:08");
    std::string text;
    for (long long seconds = 0; rows >> seconds >> text;) {
        const CTIMESPAN span(seconds);
        EXPECT_EQ(span.ToString(), text);
        EXPECT_EQ(span.GetHours() * 3600 + span.GetMinutes() * 60 + span.GetSeconds(), seconds);
        CTIMESPAN built;
        built.SetSeconds(span.GetSeconds());
        built.SetMinutes(span.GetMinutes());
        built.SetHours(static_cast<long>(span.GetHours()));
        EXPECT_TRUE(built == span || !std::in_range<long>(span.GetHours()));
    }
    EXPECT_EQ(CTIMESPAN::NbSecondsInOneHour(), 3600);
    EXPECT_EQ(CTIMESPAN::NbSecondsInOneDay(), 86400);
}

TEST(TimeSpanTest, SumsStayAtTheLongest) {
    const CTIMESPAN most(LLONG_MAX);
    const CTIMESPAN least(LLONG_MIN);
    const CTIMESPAN one(1);
    EXPECT_EQ(most + one, most);
    EXPECT_EQ(least - one, least);
    EXPECT_EQ(most - one + one, most);
    EXPECT_EQ(-least, most);
    EXPECT_EQ(-most, CTIMESPAN(-LLONG_MAX));
    EXPECT_EQ(most + least, CTIMESPAN(-1));
    EXPECT_EQ(CTIMESPAN(-5) - least, CTIMESPAN(LLONG_MAX - 4));
    EXPECT_EQ(least - least, CTIMESPAN());
    CTIMESPAN span;
    span.SetMinutes(90);
    span.SetSeconds(7);
    EXPECT_EQ(span.ToString(), "1:30:07");
    span.SetMinutes(59);
    span.SetSeconds(8);
    span.SetHours(5);
    EXPECT_EQ(span.ToString(), "5:59:08");
    span = CTIMESPAN();
    span.SetMinutes(LONG_MIN / 60);
    EXPECT_EQ(span, CTIMESPAN(static_cast<long long>(LONG_MIN / 60) * 60));
    span.SetHours(LONG_MAX);
    span.SetMinutes(LONG_MIN);
    span.SetSeconds(LONG_MAX);
    EXPECT_FALSE(span.ToString().empty());
}

}  // namespace
