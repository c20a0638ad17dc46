#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/datetime/Chrono.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>
#include <vector>

// Run once in each of the zones known here, given to the process as TZ.

namespace {

using namespace MLCore;
using namespace std::chrono;

std::string Zone() {
    const char* const zone = std::getenv("TZ");
    return zone != nullptr ? zone : "";
}

CDATETIME At(int y, unsigned m, unsigned d, int hour = 0, int minute = 0, int second = 0) {
    return {
        FromYearMonthDay(year(y) / static_cast<int>(m) / static_cast<int>(d)),
        CTIME(static_cast<std::int16_t>(hour), static_cast<std::int16_t>(minute), static_cast<std::int16_t>(second))};
}

CDATETIME Local(CDATETIME utc) {
    utc.ToLocalZone();
    return utc;
}

CDATETIME Utc(CDATETIME local) {
    local.ToGMZone();
    return local;
}

// The offset from UTC in seconds as the zones' laws give it: those with summer time from 2007 on, Kiritimati from 1995.
int OffsetAt(const std::string& zone, sys_seconds utc) {
    const year y = year_month_day(floor<days>(utc)).year();
    if (zone == "Europe/Paris") {
        const bool isSummer = utc >= sys_days(y / March / Sunday[last]) + hours(1) &&
                              utc < sys_days(y / October / Sunday[last]) + hours(1);
        return isSummer ? 7200 : 3600;
    }
    if (zone == "America/New_York") {
        const bool isSummer =
            utc >= sys_days(y / March / Sunday[2]) + hours(7) && utc < sys_days(y / November / Sunday[1]) + hours(6);
        return isSummer ? -14400 : -18000;
    }
    if (zone == "Pacific/Kiritimati") {
        return 50400;
    }
    return zone == "UTC-2" ? 7200 : zone == "UTC5" ? -18000 : 0;
}

bool IsFixed(const std::string& zone) { return zone == "UTC" || zone.substr(0, 3) == "UTC"; }

class DateTimeZoneTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!IsFixed(mZone) && mZone != "Europe/Paris" && mZone != "America/New_York" &&
            mZone != "Pacific/Kiritimati") {
            GTEST_SKIP() << "TZ is none of the zones that are known here: \"" << mZone << '"';
        }
    }
    // What `utc` is in local time, by the laws above.
    [[nodiscard]] CDATETIME Expected(const CDATETIME& utc) const {
        return utc + CTIMESPAN(OffsetAt(mZone, ToSysSeconds(utc)));
    }

    const std::string mZone = Zone();
};

TEST_F(DateTimeZoneTest, RandomMomentsBothWays) {
    std::mt19937_64 random(1970);
    const sys_seconds first = sys_days(year(IsFixed(mZone) ? 0 : 2007) / 1 / 2);
    const sys_seconds end = sys_days(year(IsFixed(mZone) ? 10000 : 2200) / 1 / 1);
    for (int i = 0; i < 40000; ++i) {
        const sys_seconds moment = first + seconds(random() % static_cast<std::uint64_t>((end - first).count()));
        const CDATETIME utc = FromSysSeconds(moment);
        const CDATETIME local = Local(utc);
        ASSERT_EQ(local, Expected(utc)) << utc;
        // A local time that is there leads to a moment that leads to it, the earlier one where it is there twice.
        const CDATETIME back = Utc(local);
        ASSERT_EQ(Local(back), local) << utc;
        ASSERT_LE(back, utc);
        const CDATETIME hourBefore = utc - CTIMESPAN(3600);
        ASSERT_EQ(back, Expected(hourBefore) == local ? hourBefore : utc);
    }
}

TEST_F(DateTimeZoneTest, HoursAroundEachChange) {
    for (int y = 2007; y < 2150; y += y < 2045 ? 1 : 13) {
        for (const CDATETIME& start : {At(y, 3, 7), At(y, 3, 24), At(y, 10, 24), At(y, 10, 31)}) {
            for (int step = 0; step < 8 * 48; ++step) {
                const CDATETIME utc = start + CTIMESPAN(step * 1800 - step % 2);
                const CDATETIME local = Expected(utc);
                ASSERT_EQ(Local(utc), local) << utc;
                const CDATETIME hourBefore = utc - CTIMESPAN(3600);
                ASSERT_EQ(Utc(local), Expected(hourBefore) == local ? hourBefore : utc) << local;
            }
        }
    }
}

TEST_F(DateTimeZoneTest, SkippedAndRepeatedTimes) {
    const struct {
        const char* zone;
        CDATETIME local;
        CDATETIME utc;
        bool isSkipped;
    } rows[] = {
        {"Europe/Paris", At(2024, 3, 31, 1, 59, 59), At(2024, 3, 31, 0, 59, 59), false},
        {"Europe/Paris", At(2024, 3, 31, 2, 0, 0), At(2024, 3, 31, 1, 0, 0), true},
        {"Europe/Paris", At(2024, 3, 31, 2, 59, 59), At(2024, 3, 31, 1, 59, 59), true},
        {"Europe/Paris", At(2024, 3, 31, 3, 0, 0), At(2024, 3, 31, 1, 0, 0), false},
        {"Europe/Paris", At(2024, 10, 27, 1, 59, 59), At(2024, 10, 26, 23, 59, 59), false},
        {"Europe/Paris", At(2024, 10, 27, 2, 30, 0), At(2024, 10, 27, 0, 30, 0), false},
        {"Europe/Paris", At(2024, 10, 27, 3, 0, 0), At(2024, 10, 27, 2, 0, 0), false},
        {"America/New_York", At(2024, 3, 10, 2, 30, 0), At(2024, 3, 10, 7, 30, 0), true},
        {"America/New_York", At(2024, 3, 10, 3, 0, 0), At(2024, 3, 10, 7, 0, 0), false},
        {"America/New_York", At(2024, 11, 3, 1, 30, 0), At(2024, 11, 3, 5, 30, 0), false},
        {"America/New_York", At(2024, 11, 3, 2, 0, 0), At(2024, 11, 3, 7, 0, 0), false},
        // The islands went over the date line: 31 December 1994 was no day there.
        {"Pacific/Kiritimati", At(1994, 12, 30, 23, 59, 59), At(1994, 12, 31, 9, 59, 59), false},
        {"Pacific/Kiritimati", At(1994, 12, 31, 12, 0, 0), At(1994, 12, 31, 22, 0, 0), true},
        {"Pacific/Kiritimati", At(1995, 1, 1, 0, 0, 0), At(1994, 12, 31, 10, 0, 0), false},
    };
    for (const auto& row : rows) {
        if (mZone == row.zone) {
            EXPECT_EQ(Utc(row.local), row.utc) << row.local;
            EXPECT_EQ(Local(row.utc) == row.local, !row.isSkipped) << row.local;
        }
    }
}

TEST_F(DateTimeZoneTest, OldAndFarDates) {
    const struct {
        const char* zone;
        CDATETIME utc;
        int offset;
    } rows[] = {
        {"Europe/Paris", At(1, 7, 1), 561},
        {"Europe/Paris", At(1850, 7, 1), 561},
        {"Europe/Paris", At(1935, 1, 10), 0},
        {"Europe/Paris", At(1960, 7, 1), 3600},
        {"Europe/Paris", At(1977, 7, 1), 7200},
        {"Europe/Paris", At(9999, 7, 1), 7200},
        {"Europe/Paris", At(9999, 12, 30), 3600},
        {"Europe/Paris", At(30000, 7, 1), 7200},
        {"America/New_York", At(1, 7, 1), -17762},
        {"America/New_York", At(1850, 7, 1), -17762},
        {"America/New_York", At(1900, 7, 1), -18000},
        {"America/New_York", At(2006, 3, 20), -18000},
        {"America/New_York", At(2006, 4, 20), -14400},
        {"America/New_York", At(9999, 7, 1), -14400},
        {"Pacific/Kiritimati", At(1985, 1, 1), -36000},
        {"Pacific/Kiritimati", At(9999, 7, 1), 50400},
    };
    for (const auto& row : rows) {
        if (mZone == row.zone) {
            const CDATETIME local = row.utc + CTIMESPAN(row.offset);
            EXPECT_EQ(Local(row.utc), local) << row.utc;
            EXPECT_EQ(Utc(local), row.utc) << local;
        }
    }
    // Where the year leaves its 16 bits there is no date; nowhere is there a failure.
    for (const CDATETIME& end : {CDATETIME({1, 1, -32768}, {}), CDATETIME({31, 12, 32767}, CTIME::Max()),
                                 CDATETIME({1, 1, 0}, {}), CDATETIME({31, 12, 1600}, CTIME::Max())}) {
        for (const CDATETIME& moment : {Local(end), Utc(end)}) {
            EXPECT_TRUE(moment.IsNull() || (moment - end < CTIMESPAN(86400) && end - moment < CTIMESPAN(86400))) << end;
            if (IsFixed(mZone) && !moment.IsNull()) {
                const CTIMESPAN shift(OffsetAt(mZone, ToSysSeconds(end)));
                EXPECT_TRUE(moment == end + shift || moment == end - shift) << end;
            }
        }
    }
}

TEST_F(DateTimeZoneTest, XmlTexts) {
    const struct {
        const char* text;
        CDATETIME utc;
    } rows[] = {{"2024-03-05T23:30:00", At(2024, 3, 5, 23, 30)},
                {"2024-03-05T23:30:00Z", At(2024, 3, 5, 23, 30)},
                {"20240305T233000Z", At(2024, 3, 5, 23, 30)},
                {"2024-03-05T23:30:00.75", At(2024, 3, 5, 23, 30)},
                {"2024-12-31T23:30:00", At(2024, 12, 31, 23, 30)},
                {"2024-01-01T01:30:00", At(2024, 1, 1, 1, 30)},
                {"2024-07-14T22:30:00", At(2024, 7, 14, 22, 30)},
                // An offset is added to the time with its own sign, which wraps and leaves the date alone.
                {"2024-03-05T23:30:00+02:00", At(2024, 3, 5, 1, 30)},
                {"2024-03-05T23:30:00-02:30", At(2024, 3, 5, 21, 0)},
                // No time is midnight.
                {"2024-03-05T", At(2024, 3, 5)}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const CDATETIME local = Expected(row.utc);
        CDATE date;
        EXPECT_EQ(date.FromStringXML(row.text), 1);
        EXPECT_EQ(date, local.GetDate());
        EXPECT_TRUE(IsStrXMLDate(row.text));
        if (row.text[4] == '-') {
            EXPECT_EQ(CDATE(row.text), local.GetDate());
            EXPECT_TRUE(IsStrDate(row.text));
        }
        CTIME time;
        EXPECT_EQ(time.FromStringXML(row.text), 1);
        EXPECT_EQ(time, local.GetTime());
        CDATETIME moment;
        EXPECT_EQ(moment.FromStringXML(row.text), 1);
        EXPECT_EQ(moment, local);
        EXPECT_EQ(moment.ToStringXML(), row.utc.GetDate().ToStringXML() + "T" + row.utc.GetTime().ToString());
    }
    if (mZone == "UTC-2") {
        EXPECT_EQ(Local(At(2024, 3, 5, 23, 30)).ToString(), "06032024 01:30:00");
    }
    if (mZone == "Europe/Paris") {
        EXPECT_EQ(CDATETIME({6, 7, 2024}, {1, 30, 0}).ToStringXML(), "2024-07-05T23:30:00");
    }
}

TEST_F(DateTimeZoneTest, XmlTextsAtTheEndsAreDatesOrRefused) {
    for (const char* const text : {"0000-01-01T00:00:00", "0000-01-01T23:59:59", "32767-12-31T23:59:59",
                                   "32767-12-31T00:00:00", "00000101T000000", "9999-12-31T23:59:59"}) {
        CDATE date(7, 8, 1999);
        const int result = date.FromStringXML(text);
        EXPECT_TRUE(result == 1 ? date.IsDate() != 0 : date == CDATE(7, 8, 1999)) << text << date;
        EXPECT_EQ(IsStrXMLDate(text), result);
        CTIME time(1, 2, 3);
        EXPECT_TRUE(time.FromStringXML(text) == 1 ? time.IsTime() != 0 : time == CTIME(1, 2, 3)) << text;
    }
}

TEST_F(DateTimeZoneTest, RandomXmlTexts) {
    std::mt19937 random(30);
    const std::string characters = "0123456789-:TZ+.";
    for (int i = 0; i < 50000; ++i) {
        std::string text = i % 2 == 0 ? "2024-03-05T07:05:09+01:00" : "20240305T070509Z";
        for (std::size_t changes = random() % 4; changes > 0; --changes) {
            text[random() % text.size()] = characters[random() % characters.size()];
        }
        for (int (CDATE::*parse)(const char*) noexcept : {&CDATE::FromString, &CDATE::FromStringXML}) {
            CDATE date(7, 8, 1999);
            ASSERT_TRUE((date.*parse)(text.c_str()) == 1 ? date.IsDate() != 0 : date == CDATE(7, 8, 1999)) << text;
        }
        CTIME time(1, 2, 3);
        ASSERT_TRUE(time.FromStringXML(text.c_str()) == 1 ? time.IsTime() != 0 : time == CTIME(1, 2, 3)) << text;
    }
}

TEST_F(DateTimeZoneTest, TheClockInTheZone) {
    const sys_seconds before = floor<seconds>(system_clock::now()) - seconds(1);
    const CDATETIME now = CDATETIME::Now();
    const CDATE today = CDATE::Today();
    const CTIME time = CTIME::Now();
    const sys_seconds after = floor<seconds>(system_clock::now()) + seconds(1);
    EXPECT_GE(now, Expected(FromSysSeconds(before)));
    EXPECT_LE(now, Expected(FromSysSeconds(after)));
    EXPECT_TRUE(today == now.GetDate() || today == now.GetDate() + 1);
    EXPECT_LE((time - static_cast<long>(now.GetTime().GetTotalSeconds())).GetTotalSeconds(), 5);
}

}  // namespace
