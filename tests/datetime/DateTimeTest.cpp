#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/datetime/Chrono.h>
#include <gtest/gtest.h>

#include <chrono>
#include <climits>
#include <sstream>
#include <unordered_set>

namespace {

using namespace MLCore;

TEST(DateTimeTest, ArithmeticAcrossMidnightMonthAndYear) {
    const struct {
        CDATETIME start;
        long long seconds;
        CDATETIME end;
    } rows[] = {{{{31, 12, 2023}, {23, 59, 59}}, 1, {{1, 1, 2024}, {0, 0, 0}}},
                {{{29, 2, 2024}, {12, 0, 0}}, 43200, {{1, 3, 2024}, {0, 0, 0}}},
                {{{1, 1, 1904}, {0, 0, 0}}, -1, {{31, 12, 1903}, {23, 59, 59}}},
                {{{31, 12, 1903}, {12, 0, 0}}, -86400 - 43201, {{29, 12, 1903}, {23, 59, 59}}},
                {{{1, 1, 1900}, {0, 0, 0}}, 255611289599, {{31, 12, 9999}, {23, 59, 59}}}};
    for (const auto& row : rows) {
        const CTIMESPAN span(row.seconds);
        EXPECT_EQ(row.start + span, row.end) << row.end;
        EXPECT_EQ(span + row.start, row.end) << row.end;
        EXPECT_EQ(row.end - span, row.start);
        EXPECT_EQ(row.end - row.start, span) << row.end;
        EXPECT_EQ(row.start - row.end, -span) << row.end;
    }
    CDATETIME moment({31, 1, 2024}, {23, 30, 0});
    EXPECT_EQ(moment.AddMinutes(45), CDATETIME({1, 2, 2024}, {0, 15, 0}));
    EXPECT_EQ(moment.AddHours(-25), CDATETIME({30, 1, 2024}, {23, 15, 0}));
    EXPECT_EQ(moment.AddDays(2).AddMonths(-1), CDATETIME({1, 1, 2024}, {23, 15, 0}));
    EXPECT_EQ(moment.AddSeconds(2701).AddYears(1), CDATETIME({2, 1, 2025}, {0, 0, 1}));
}

TEST(DateTimeTest, NullAndBeyondTheYears) {
    CDATETIME null({}, {1, 2, 3});
    EXPECT_TRUE(null.IsNull());
    EXPECT_FALSE(null.IsDateTime());
    EXPECT_TRUE(CDATETIME().IsNull());
    EXPECT_EQ(null + CTIMESPAN(5), null);
    null.AddDays(5).AddMonths(LONG_MAX).AddYears(-3).AddHours(9).AddMinutes(1).ToLocalZone();
    null.ToGMZone();
    EXPECT_EQ(null, CDATETIME({}, {1, 2, 3}));
    EXPECT_TRUE(null.ToString().empty());
    EXPECT_TRUE(null.ToStringXML().empty());
    for (const CDATETIME& start : {CDATETIME({5, 3, 2024}, {7, 5, 9}), CDATETIME({31, 12, 32767}, {23, 59, 59}),
                                   CDATETIME({1, 1, -32768}, {})}) {
        for (const CTIMESPAN& span : {CTIMESPAN(LLONG_MAX), CTIMESPAN(LLONG_MIN)}) {
            EXPECT_EQ(start + span, CDATETIME());
            EXPECT_EQ(start - span, CDATETIME());
        }
        EXPECT_TRUE(CDATETIME(start).AddDays(LONG_MIN).IsNull());
        EXPECT_TRUE(CDATETIME(start).AddYears(LONG_MAX).IsNull());
        for (const long n : {LONG_MAX, LONG_MIN}) {
            static_cast<void>(CDATETIME(start).AddSeconds(n) - CDATETIME(start).AddMinutes(n));
            static_cast<void>(CDATETIME(start).AddHours(n) - CDATETIME(start).AddMonths(n));
        }
    }
    EXPECT_TRUE((CDATETIME({31, 12, 32767}, CTIME::Max()) + CTIMESPAN(1)).IsNull());
    EXPECT_TRUE((CDATETIME({1, 1, -32768}, {}) - CTIMESPAN(1)).IsNull());
    // Parts out of range are kept, and put in order by arithmetic.
    const CDATETIME odd({31, 2, 2024}, {25, 0, 0});
    EXPECT_FALSE(odd.IsDateTime());
    EXPECT_EQ(odd.GetTime().GetTotalSeconds(), 90000);
    EXPECT_EQ(odd + CTIMESPAN(0), CDATETIME({3, 3, 2024}, {1, 0, 0}));
}

TEST(DateTimeTest, Texts) {
    const CDATETIME moment({5, 3, 2024}, {7, 5, 9});
    CDATETIME read;
    EXPECT_EQ(moment.ToString(), "05032024 07:05:09");
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
    EXPECT_EQ(read.FromString(nullptr), 0);
    EXPECT_EQ(read.FromStringXML(nullptr), 0);
    EXPECT_EQ(read, moment);
    CDATETIME xml = moment;
    EXPECT_EQ(read.FromString(""), 1);
    EXPECT_TRUE(read.IsNull());
    EXPECT_EQ(xml.FromStringXML(""), 1);
    EXPECT_EQ(xml, CDATETIME());
    std::ostringstream out;
    out << moment << CDATETIME();
    EXPECT_EQ(out.str(), "CDATETIME(05032024 07:05:09)CDATETIME()");
}

TEST(DateTimeTest, OrderAndHash) {
    const CDATETIME ascending[] = {
        {}, {{}, {0, 0, 1}}, {{5, 3, 2024}, {}}, {{5, 3, 2024}, {0, 0, 1}}, {{6, 3, 2024}, {}}};
    std::unordered_set<CDATETIME> seen;
    for (const CDATETIME& a : ascending) {
        for (const CDATETIME& b : ascending) {
            EXPECT_EQ(a < b, &a < &b) << a << b;
            EXPECT_EQ(a == b, &a == &b) << a << b;
            EXPECT_EQ(a >= b, &a >= &b) << a << b;
        }
        EXPECT_TRUE(seen.insert(a).second);
        EXPECT_FALSE(seen.insert(a).second);
    }
}

TEST(ChronoTest, BothDirections) {
    using namespace std::chrono;
    for (sys_days day = sys_days(year(0) / 1 / 1); day < sys_days(year(10000) / 1 / 1); day += days(17)) {
        const year_month_day ymd = day;
        const CDATE date = FromSysDays(day);
        ASSERT_EQ(date, FromYearMonthDay(ymd));
        ASSERT_EQ(ToSysDays(date), day) << date;
        ASSERT_EQ(ToYearMonthDay(date), ymd) << date;
        ASSERT_EQ(date.GetYear(), int(ymd.year()));
        ASSERT_EQ(date.GetDay(), static_cast<int>(unsigned(ymd.day())));
    }
    for (const CDATE& date : {CDATE(), CDATE(30, 2, 2024), CDATE(257, 1, 2024), CDATE(1, 257, 2024), CDATE(1, 1, -1)}) {
        EXPECT_FALSE(ToYearMonthDay(date).ok()) << date;
    }
    EXPECT_FALSE(FromYearMonthDay(year(2023) / 2 / 29).IsDate());
    EXPECT_TRUE(FromSysDays(sys_days(days(100000000))).IsNull());
    EXPECT_TRUE(FromSysDays(sys_days(days(-100000000))).IsNull());
    EXPECT_TRUE(FromSysDays(sys_days::max()).IsNull());

    EXPECT_EQ(ToHhMmSs(CTIME(7, 5, 9)).to_duration(), seconds(25509));
    const auto fromSeconds = [](int value) { return FromHhMmSs(hh_mm_ss<seconds>(seconds(value))); };
    EXPECT_EQ(fromSeconds(25509), CTIME(7, 5, 9));
    EXPECT_EQ(fromSeconds(-1), CTIME(23, 59, 59));
    EXPECT_EQ(fromSeconds(86400 + 60), CTIME(0, 1, 0));
    // 1700000000 seconds of the Unix epoch are 14 November 2023, 22:13:20 UTC.
    const CDATETIME moment({14, 11, 2023}, {22, 13, 20});
    const sys_seconds epoch(seconds(1700000000));
    EXPECT_EQ(ToSysSeconds(moment), epoch);
    EXPECT_EQ(FromSysSeconds(epoch), moment);
    EXPECT_EQ(FromSysSeconds(sys_seconds(seconds(-1))), CDATETIME({31, 12, 1969}, {23, 59, 59}));
    EXPECT_TRUE(FromSysSeconds(sys_seconds(seconds(100000000LL * 86400 + 5))).IsNull());
    static_assert(ToSysDays(CDATE(1, 1, 1970)).time_since_epoch().count() == 0);
}

}  // namespace
