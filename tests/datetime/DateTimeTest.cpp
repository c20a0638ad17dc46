#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/datetime/Chrono.h>
#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <random>
#include <sstream>
#include <unordered_set>

namespace {

using namespace MLCore;

constexpr long kMostLong = std::numeric_limits<long>::max();
constexpr long kLeastLong = std::numeric_limits<long>::min();
constexpr CTIMESPAN kMost(std::numeric_limits<long long>::max());
constexpr CTIMESPAN kLeast(std::numeric_limits<long long>::min());

TEST(DateTimeTest, ArithmeticAcrossMidnightMonthAndYear) {
    const struct {
        CDATETIME start;
        long long seconds;
        CDATETIME end;
    } rows[] = {
        {{{31, 12, 2023}, {23, 59, 59}}, 1, {{1, 1, 2024}, {0, 0, 0}}},
        {{{29, 2, 2024}, {12, 0, 0}}, 43200, {{1, 3, 2024}, {0, 0, 0}}},
        {{{1, 1, 1904}, {0, 0, 0}}, -1, {{31, 12, 1903}, {23, 59, 59}}},
        {{{31, 12, 1903}, {12, 0, 0}}, -86400 - 43201, {{29, 12, 1903}, {23, 59, 59}}},
        {{{5, 3, 2024}, {7, 5, 9}}, 366 * 86400LL, {{6, 3, 2025}, {7, 5, 9}}},
        {{{1, 1, 1900}, {0, 0, 0}}, 255611289599, {{31, 12, 9999}, {23, 59, 59}}},
    };
    for (const auto& row : rows) {
        const CTIMESPAN span(row.seconds);
        EXPECT_EQ(row.start + span, row.end);
        EXPECT_EQ(span + row.start, row.end);
        EXPECT_EQ(row.end - span, row.start);
        EXPECT_EQ(row.end - row.start, span);
        EXPECT_EQ(row.start - row.end, -span);
    }
    CDATETIME moment({31, 1, 2024}, {23, 30, 0});
    EXPECT_EQ(moment.AddMinutes(45), CDATETIME({1, 2, 2024}, {0, 15, 0}));
    EXPECT_EQ(moment.AddHours(-25), CDATETIME({30, 1, 2024}, {23, 15, 0}));
    EXPECT_EQ(moment.AddDays(2).AddMonths(-1), CDATETIME({1, 1, 2024}, {23, 15, 0}));
    EXPECT_EQ(moment.AddSeconds(2701).AddYears(1), CDATETIME({2, 1, 2025}, {0, 0, 1}));
}

TEST(DateTimeTest, NullAndBeyondTheYears) {
    CDATETIME null({}, {1, 2, 3});
    EXPECT_TRUE(null.IsNull() && !null.IsDateTime() && CDATETIME().IsNull());
    EXPECT_EQ(null + CTIMESPAN(5), null);
    EXPECT_EQ(null.AddDays(5).AddMonths(kMostLong).AddYears(-3).AddHours(9).AddMinutes(1), CDATETIME({}, {1, 2, 3}));
    null.ToLocalZone();
    null.ToGMZone();
    EXPECT_EQ(null, CDATETIME({}, {1, 2, 3}));
    EXPECT_TRUE(null.ToString().empty() && null.ToStringXML().empty());
    for (const CDATETIME& start : {CDATETIME({5, 3, 2024}, {7, 5, 9}), CDATETIME({31, 12, 32767}, {23, 59, 59}),
                                   CDATETIME({1, 1, -32768}, {})}) {
        for (const CTIMESPAN& span : {kMost, kLeast}) {
            EXPECT_EQ(start + span, CDATETIME());
            EXPECT_EQ(start - span, CDATETIME());
        }
        CDATETIME moved = start;
        EXPECT_TRUE(moved.AddDays(kLeastLong).IsNull());
        moved = start;
        EXPECT_TRUE(moved.AddYears(kMostLong).IsNull());
        for (const long amount : {kMostLong, kLeastLong}) {
            for (CDATETIME& (CDATETIME::*add)(long) noexcept :
                 {&CDATETIME::AddSeconds, &CDATETIME::AddMinutes, &CDATETIME::AddHours, &CDATETIME::AddMonths}) {
                moved = start;
                static_cast<void>((moved.*add)(amount));
            }
        }
    }
    EXPECT_EQ(CDATETIME({31, 12, 32767}, {23, 59, 59}) + CTIMESPAN(1), CDATETIME());
    EXPECT_EQ(CDATETIME({1, 1, -32768}, {}) - CTIMESPAN(1), CDATETIME());
    // Parts out of range are kept, and put in order by arithmetic.
    const CDATETIME odd({31, 2, 2024}, {25, 0, 0});
    EXPECT_FALSE(odd.IsDateTime());
    EXPECT_EQ(odd.GetTime().GetTotalSeconds(), 90000);
    EXPECT_EQ(odd + CTIMESPAN(0), CDATETIME({3, 3, 2024}, {1, 0, 0}));
    const CDATETIME now = CDATETIME::Now();
    EXPECT_TRUE(now.IsDateTime() && now.GetDate().GetYear() >= 2024);
}

TEST(DateTimeTest, Texts) {
    const CDATETIME moment({5, 3, 2024}, {7, 5, 9});
    EXPECT_EQ(moment.ToString(), "05032024 07:05:09");
    CDATETIME read;
    EXPECT_EQ(read.FromString("05032024 07:05:09"), 1);
    EXPECT_EQ(read, moment);
    for (const char* const text :
         {"05032024", "05032024 07:05", "05032024 070509", "05032024T07:05:09", "32032024 07:05:09",
          "05032024 24:00:00", "05032024 07:05:09 ", " 05032024 07:05:09", "x", " "}) {
        EXPECT_EQ(read.FromString(text), 0) << text;
    }
    for (const char* const text :
         {"2024-03-05", "2024-02-30T10:00:00", "2024-03-05T24:00:00", "2024-03-05T10:00", "T", "x",
          "2024-03-05T10:00:00T10:00:00", "2024-03-05 10:00:00", "2024-03-05T100000+0100"}) {
        EXPECT_EQ(read.FromStringXML(text), 0) << text;
    }
    EXPECT_TRUE(read.FromString(nullptr) == 0 && read.FromStringXML(nullptr) == 0);
    EXPECT_EQ(read, moment);
    EXPECT_EQ(read.FromString(""), 1);
    EXPECT_EQ(read, CDATETIME());
    read = moment;
    EXPECT_EQ(read.FromStringXML(""), 1);
    EXPECT_EQ(read, CDATETIME());
    std::ostringstream out;
    out << moment << CDATETIME();
    EXPECT_EQ(out.str(), "CDATETIME(05032024 07:05:09)CDATETIME()");

    std::mt19937 random(99);
    const std::string characters = "0123456789 :-TZ+";
    for (int i = 0; i < 50000; ++i) {
        std::string text = i % 2 == 0 ? moment.ToString() : "2024-03-05T07:05:09+01:00";
        for (std::size_t changes = random() % 4; changes > 0; --changes) {
            text[random() % text.size()] = characters[random() % characters.size()];
        }
        CDATETIME value = moment;
        ASSERT_TRUE(value.FromString(text.c_str()) == 1 ? value.IsDateTime() != 0 : value == moment) << text;
        value = moment;
        ASSERT_TRUE(value.FromStringXML(text.c_str()) == 1 || value == moment) << text;
    }
}

TEST(DateTimeTest, OrderAndHash) {
    const CDATETIME ascending[] = {
        {}, {{}, {0, 0, 1}}, {{5, 3, 2024}, {}}, {{5, 3, 2024}, {0, 0, 1}}, {{6, 3, 2024}, {}}};
    std::unordered_set<CDATETIME> seen;
    for (std::size_t i = 0; i < std::size(ascending); ++i) {
        for (std::size_t j = 0; j < std::size(ascending); ++j) {
            EXPECT_TRUE((ascending[i] < ascending[j]) == (i < j) && (ascending[i] == ascending[j]) == (i == j) &&
                        (ascending[i] >= ascending[j]) == (i >= j));
        }
        EXPECT_TRUE(seen.insert(ascending[i]).second);
    }
}

TEST(ChronoTest, BothDirections) {
    using namespace std::chrono;
    for (sys_days day = sys_days(year(0) / 1 / 1); day < sys_days(year(10000) / 1 / 1); day += days(17)) {
        const year_month_day ymd = day;
        const CDATE date = FromSysDays(day);
        ASSERT_EQ(date, FromYearMonthDay(ymd));
        ASSERT_EQ(ToSysDays(date), day);
        ASSERT_EQ(ToYearMonthDay(date), ymd);
        ASSERT_TRUE(date.GetYear() == int(ymd.year()) && date.GetDay() == static_cast<int>(unsigned(ymd.day())));
    }
    for (const CDATE& date : {CDATE(), CDATE(30, 2, 2024), CDATE(257, 1, 2024), CDATE(1, 257, 2024), CDATE(1, 1, -1)}) {
        EXPECT_FALSE(ToYearMonthDay(date).ok()) << date;
    }
    EXPECT_FALSE(FromYearMonthDay(year(2023) / 2 / 29).IsDate());
    EXPECT_TRUE(FromSysDays(sys_days(days(100000000))).IsNull() && FromSysDays(sys_days(days(-100000000))).IsNull());
    EXPECT_EQ(FromSysDays(sys_days(days(0))), CDATE(1, 1, 1970));

    EXPECT_EQ(ToHhMmSs(CTIME(7, 5, 9)).minutes(), minutes(5));
    EXPECT_EQ(FromHhMmSs(hh_mm_ss<seconds>(seconds(25509))), CTIME(7, 5, 9));
    EXPECT_EQ(FromHhMmSs(hh_mm_ss<seconds>(seconds(-1))), CTIME(23, 59, 59));
    EXPECT_EQ(FromHhMmSs(hh_mm_ss<seconds>(seconds(86400 + 60))), CTIME(0, 1, 0));
    // 1700000000 seconds of the Unix epoch are 14 November 2023, 22:13:20 UTC.
    const CDATETIME moment({14, 11, 2023}, {22, 13, 20});
    EXPECT_EQ(ToSysSeconds(moment), sys_seconds(seconds(1700000000)));
    EXPECT_EQ(FromSysSeconds(sys_seconds(seconds(1700000000))), moment);
    EXPECT_EQ(FromSysSeconds(sys_seconds(seconds(-1))), CDATETIME({31, 12, 1969}, {23, 59, 59}));
    EXPECT_EQ(FromSysSeconds(sys_seconds(seconds(100000000LL * 86400 + 5))), CDATETIME());
    static_assert(ToSysDays(CDATE(1, 1, 1970)).time_since_epoch().count() == 0);
}

}  // namespace
