#include <MLCore/datetime/CTIME.h>
#include <MLCore/datetime/CTIMESPAN.h>
#include <MLCore/platform/WinTypes.h>
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdio>
#include <random>
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
        ASSERT_TRUE(time.GetHours() == h && time.GetMinutes() == m && time.GetSeconds() == s && time.IsTime());
        ASSERT_TRUE(time.GetTotalSeconds() == second && ++previous == time) << second;
        ASSERT_TRUE((time.IsNull() != 0) == (second == 0) && (time.IsEndOfDay() != 0) == (second == 86399));
        char text[16];
        ASSERT_EQ(std::snprintf(text, sizeof text, "%02d:%02d:%02d", h, m, s), 8);
        ASSERT_TRUE(time.ToString() == text && CTIME(text) == time) << text;
        ASSERT_NEAR(time.ToWDate(), second / 86400.0, 1e-12);
        ASSERT_TRUE(CTIME(time.ToWDate()) == time && CTIME(45356.0 + second / 86400.0) == time) << text;
        const SYSTEMTIME system = time.ToSystemTime();
        ASSERT_EQ(CTIME(system), time);
        ASSERT_TRUE(system.wYear == 1899 && system.wMonth == 12 && system.wDay == 30 && system.wDayOfWeek == 0 &&
                    system.wMilliseconds == 0);
    }
    EXPECT_TRUE(previous++ == CTIME::Max() && previous-- == CTIME::Null() && previous == CTIME(23, 59, 59));
    EXPECT_EQ(CTIME(-1.25), CTIME(6, 0, 0));
    EXPECT_TRUE(CTIME(1e300).IsNull() && CTIME(std::nan("")).IsNull() && CTIME(0.0).IsNull());
    EXPECT_TRUE(CTIME::Min() == CTIME() && CTIME::NullTime() == CTIME());
}

TEST(TimeTest, PartsOutOfRangeAreKept) {
    EXPECT_TRUE(!CTIME(24, 0, 0).IsTime() && CTIME(12, 60, 0).IsTime() && !CTIME(0, 0, -1).IsTime());
    EXPECT_TRUE(CTIME(24, 0, 0).GetHours() == 0 && CTIME(25, 30, 0) + 0L == CTIME(1, 30, 0) &&
                CTIME(0, 0, -1) + 0L == CTIME(23, 59, 59));
    CTIME time;
    time.SetHours(7);
    time.SetMinutes(5);
    time.SetSeconds(9);
    const MLTIME parts = time;
    EXPECT_TRUE(time == CTIME(7, 5, 9) && parts.hours == 7 && parts.minutes == 5 && parts.seconds == 9);
    for (const std::int16_t value : {std::int16_t{-32768}, std::int16_t{32767}}) {
        time.Set(value, value, value);
        EXPECT_TRUE(!time.IsTime() && time.GetTotalSeconds() == value * 3661) << value;
        EXPECT_TRUE((time + LONG_MAX).IsTime() && (time - LONG_MIN).IsTime() && !time.ToString().empty()) << value;
        static_cast<void>(time.ToWDate());
        static_cast<void>(time.ToSystemTime());
    }
}

TEST(TimeTest, ArithmeticWrapsAroundMidnight) {
    EXPECT_TRUE(CTIME(23, 30, 0) + 3600L == CTIME(0, 30, 0) && CTIME(0, 10, 0) - 900L == CTIME(23, 55, 0));
    std::mt19937_64 random(235959);
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
        ASSERT_TRUE(n + time == time + n && AddSeconds(time, n) == time + n) << n;
        ASSERT_EQ(AddMinutes(time, n).GetTotalSeconds(), Floored(start + part * 60)) << n;
        ASSERT_EQ(AddHours(time, n).GetTotalSeconds(), Floored(start + part * 3600)) << n;
        ASSERT_TRUE(time + CTIMESPAN(n) == time + n && time - CTIMESPAN(n) == time - n) << n;
    }
    EXPECT_TRUE((CTIME() + CTIMESPAN(LLONG_MAX)).IsTime());
    EXPECT_EQ((CTIME() - CTIMESPAN(LLONG_MIN)).GetTotalSeconds(), Floored(-(LLONG_MIN % 86400)));

    EXPECT_EQ(CTIME(8, 59, 59).ComputeHours(CTIME(10, 0, 0)), -2);
    EXPECT_EQ(CTIME(10, 0, 0).ComputeMinutes(CTIME(9, 58, 59)), 2);
    EXPECT_EQ(CTIME(9, 58, 59).ComputeSeconds(CTIME(10, 0, 0)), -61);
    EXPECT_TRUE(CTIME(12, 30, 0).ToDecimalHours() == 12.5 && CTIME(0, 1, 30).ToDecimalMinutes() == 1.5);
}

TEST(TimeTest, FromMinutesAndHours) {
    CTIME time;
    for (const double seconds : {0.0, 5430.0, 86399.5, 86400.0, 86460.0, -60.0, -0.5, -86400.0, 1e15, -1e15}) {
        const auto whole = static_cast<long long>(std::floor(seconds));
        EXPECT_EQ(time.FromMinutes(seconds / 60), whole < 86400 ? 1 : 0) << seconds;
        EXPECT_EQ(time.GetTotalSeconds(), Floored(whole)) << seconds;
    }
    EXPECT_TRUE(time.FromHours(-0.25) == 1 && time == CTIME(23, 45, 0) && time.FromHours(49) == 0 &&
                time == CTIME(1, 0, 0));
    EXPECT_TRUE(time.FromMinutes(1e300) == 0 && time.IsTime() && time.FromMinutes(-1e300) == 1 && time.IsTime());
    EXPECT_TRUE(time.FromHours(1e300) == 0 && time.IsTime() && time.FromHours(-1e300) == 1 && time.IsTime());
    time = CTIME(9, 9, 9);
    for (const double unknown : {HUGE_VAL, -HUGE_VAL, std::nan(""), 1e308}) {
        EXPECT_TRUE(time.FromMinutes(unknown) == 0 && time.FromHours(unknown) == 0 && time == CTIME(9, 9, 9));
    }
    EXPECT_TRUE(time.FromSeconds(86400) == 0 && time.IsNull() && time.FromSeconds(-1) == 1 && time == CTIME::Max());
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
        EXPECT_TRUE((CTIME().*parse)(nullptr) == 0 && (CTIME().*parse)("07:05 09") == 0);
        EXPECT_TRUE((CTIME().*parse)(std::string(100000, ':').c_str()) == 0 && (CTIME().*parse)(" 70509") == 0);
    }
    EXPECT_TRUE(IsStrTime("070509") && IsStrTime("") && !IsStrTime("24:00:00") && !IsStrTime(nullptr));
    EXPECT_EQ(CTIME().FromStringXML(("10:00:00." + std::string(1000, '5')).c_str()), 1);
}

TEST(TimeTest, OrderHashAndStream) {
    EXPECT_TRUE(CTIME(7, 5, 9) < CTIME(7, 5, 10) && CTIME(8, 0, 0) > CTIME(7, 59, 59) && CTIME() <= CTIME::Max());
    EXPECT_TRUE(CTIMESPAN(-1) < CTIMESPAN() && CTIMESPAN(5) == CTIMESPAN(5) && CTIMESPAN(5) != CTIMESPAN(6));
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
    EXPECT_TRUE(CTIMESPAN::NbSecondsInOneHour() == 3600 && CTIMESPAN::NbSecondsInOneDay() == 86400);
}

TEST(TimeSpanTest, SumsStayAtTheLongest) {
    const CTIMESPAN most(LLONG_MAX);
    const CTIMESPAN least(LLONG_MIN);
    const CTIMESPAN one(1);
    EXPECT_TRUE(most + one == most && least - one == least && most - one + one == most);
    EXPECT_TRUE(-least == most && -most == CTIMESPAN(-LLONG_MAX) && most + least == CTIMESPAN(-1));
    EXPECT_TRUE(CTIMESPAN(-5) - least == CTIMESPAN(LLONG_MAX - 4) && least - least == CTIMESPAN());
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
