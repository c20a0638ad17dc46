#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/datetime/Chrono.h>
#include <gtest/gtest.h>
#include <support/Random.h>

#include <chrono>
#include <cstdlib>
#include <map>
#include <sstream>
#include <string>

// Run once in each of the zones known here, given to the process as TZ.

namespace {

using namespace MLCore;
using namespace std::chrono;

// A moment from a text as it is written in the tables: 2024-03-31T01:59:59, or the date alone.
CDATETIME At(const std::string& text) {
    const std::size_t t = text.find('T');
    const CDATETIME moment(CDATE(text.substr(0, t).c_str()),
                           t == text.npos ? CTIME() : CTIME(text.substr(t + 1).c_str()));
    EXPECT_TRUE(moment.IsDateTime()) << text;
    return moment;
}

CDATETIME Local(CDATETIME utc) { return utc.ToLocalZone(), utc; }

CDATETIME Utc(CDATETIME local) { return local.ToGMZone(), local; }

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
    return zone == "Pacific/Kiritimati" ? 50400 : zone == "UTC-2" ? 7200 : zone == "UTC5" ? -18000 : 0;
}

class DateTimeZoneTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!mIsFixed && mZone != "Europe/Paris" && mZone != "America/New_York" && mZone != "Pacific/Kiritimati") {
            GTEST_SKIP() << "TZ is none of the zones that are known here: \"" << mZone << '"';
        }
    }
    // What `utc` is in local time, by the laws above.
    [[nodiscard]] CDATETIME Expected(const CDATETIME& utc) const {
        return utc + CTIMESPAN(OffsetAt(mZone, ToSysSeconds(utc)));
    }
    // Both ways. A local time that exists leads to a moment that leads back to it, the earlier one if the time occurs
    // twice.
    void Compare(const CDATETIME& utc) const {
        const CDATETIME local = Expected(utc);
        ASSERT_EQ(Local(utc), local) << utc;
        const CDATETIME hourBefore = utc - CTIMESPAN(3600);
        ASSERT_EQ(Utc(local), Expected(hourBefore) == local ? hourBefore : utc) << local;
    }

    const std::string mZone = std::getenv("TZ") != nullptr ? std::getenv("TZ") : "";
    const bool mIsFixed = mZone.substr(0, 3) == "UTC";
};

TEST_F(DateTimeZoneTest, RandomMomentsAndHoursAroundEachChange) {
    support::RANDOM64 random(1970);
    const sys_seconds first = sys_days(year(mIsFixed ? 0 : 2007) / 1 / 2);
    const sys_seconds end = sys_days(year(mIsFixed ? 10000 : 2200) / 1 / 1);
    for (int i = 0; i < 20000; ++i) {
        const sys_seconds moment = first + seconds(random() % static_cast<std::uint64_t>((end - first).count()));
        ASSERT_NO_FATAL_FAILURE(Compare(FromSysSeconds(moment)));
    }
    for (int y = 2007; y < 2150; y += y < 2045 ? 1 : 13) {
        for (const sys_days start : {year(y) / 3 / 7, year(y) / 3 / 24, year(y) / 10 / 24, year(y) / 10 / 31}) {
            for (int step = 0; step < 8 * 48; ++step) {
                ASSERT_NO_FATAL_FAILURE(Compare(FromSysSeconds(start + seconds(step * 1800 - step % 2))));
            }
        }
    }
}

TEST_F(DateTimeZoneTest, SkippedAndRepeatedTimesAndOldAndFarDates) {
    // Local time, UTC, and whether the local time is there. Kiritimati went over the date line: 31 December 1994 was no
    // day there.
    const std::map<std::string, const char*> kRows = {
        {"Europe/Paris",
         "2024-03-31T02:00:00 2024-03-31T01:00:00 0 2024-03-31T02:59:59 2024-03-31T01:59:59 0 "
         "2024-10-27T02:30:00 2024-10-27T00:30:00 1 2024-10-27T03:00:00 2024-10-27T02:00:00 1 "
         "0001-07-01T00:09:21 0001-07-01 1 1850-07-01T00:09:21 1850-07-01 1 1935-01-10 1935-01-10 1 "
         "1960-07-01T01:00:00 1960-07-01 1 1977-07-01T02:00:00 1977-07-01 1 9999-07-01T02:00:00 9999-07-01 1 "
         "9999-12-30T01:00:00 9999-12-30 1 30000-07-01T02:00:00 30000-07-01 1"},
        {"America/New_York",
         "2024-03-10T02:30:00 2024-03-10T07:30:00 0 2024-11-03T01:30:00 2024-11-03T05:30:00 1 "
         "0001-06-30T19:03:58 0001-07-01 1 1850-06-30T19:03:58 1850-07-01 1 1900-06-30T19:00:00 1900-07-01 1 "
         "2006-03-19T19:00:00 2006-03-20 1 2006-04-19T20:00:00 2006-04-20 1 9999-06-30T20:00:00 9999-07-01 1"},
        {"Pacific/Kiritimati",
         "1994-12-30T23:59:59 1994-12-31T09:59:59 1 1994-12-31T12:00:00 1994-12-31T22:00:00 0 "
         "1995-01-01 1994-12-31T10:00:00 1 1984-12-31T14:00:00 1985-01-01 1 9999-07-01T14:00:00 9999-07-01 1"}};
    std::istringstream rows(kRows.count(mZone) != 0 ? kRows.at(mZone) : "");
    std::string local, utc;
    for (bool isThere = false; rows >> local >> utc >> isThere;) {
        EXPECT_EQ(Utc(At(local)), At(utc)) << local;
        EXPECT_EQ(Local(At(utc)) == At(local), isThere) << local;
    }
    // Where the year leaves its 16 bits the result is null; nothing fails.
    for (const CDATETIME& end : {CDATETIME({1, 1, -32768}, {}), CDATETIME({31, 12, 32767}, CTIME::Max()),
                                 CDATETIME({1, 1, 0}, {}), CDATETIME({31, 12, 1600}, CTIME::Max())}) {
        const CTIMESPAN shift(OffsetAt(mZone, ToSysSeconds(end)));
        for (const CDATETIME& moment : {Local(end), Utc(end)}) {
            if (moment.IsNull() == 0) {
                EXPECT_LT(moment - end, CTIMESPAN(86400)) << end;
                EXPECT_LT(end - moment, CTIMESPAN(86400)) << end;
            }
            EXPECT_TRUE(moment.IsNull() || !mIsFixed || moment == end + shift || moment == end - shift) << end;
        }
    }
}

TEST_F(DateTimeZoneTest, XmlTexts) {
    // Texts and their moments in UTC. An offset is added to the time with its own sign, which wraps and leaves the date
    // alone; no time is midnight.
    std::istringstream rows(
        "2024-03-05T23:30:00 2024-03-05T23:30:00 2024-03-05T23:30:00Z 2024-03-05T23:30:00 20240305T233000Z "
        "2024-03-05T23:30:00 2024-03-05T23:30:00.75 2024-03-05T23:30:00 2024-12-31T23:30:00 2024-12-31T23:30:00 "
        "2024-01-01T01:30:00 2024-01-01T01:30:00 2024-07-14T22:30:00 2024-07-14T22:30:00 2024-03-05T23:30:00+02:00 "
        "2024-03-05T01:30:00 2024-03-05T23:30:00-02:30 2024-03-05T21:00:00 2024-03-05T 2024-03-05T00:00:00");
    std::string written, utc;
    while (rows >> written >> utc) {
        SCOPED_TRACE(written);
        const char* const text = written.c_str();
        const CDATETIME local = Expected(At(utc));
        CDATE date;
        EXPECT_EQ(date.FromStringXML(text), 1) << date;
        EXPECT_EQ(date, local.GetDate()) << date;
        EXPECT_TRUE(IsStrXMLDate(text)) << date;
        if (text[4] == '-') {
            EXPECT_EQ(CDATE(text), local.GetDate());
            EXPECT_TRUE(IsStrDate(text)) << text;
        }
        CTIME time;
        EXPECT_EQ(time.FromStringXML(text), 1) << time;
        EXPECT_EQ(time, local.GetTime()) << time;
        CDATETIME moment;
        EXPECT_EQ(moment.FromStringXML(text), 1) << moment;
        EXPECT_EQ(moment, local) << moment;
        EXPECT_EQ(moment.ToStringXML(), utc);
    }
    // At the ends the zone may lead out of the years there are: then nothing is read.
    for (const char* const text : {"0000-01-01T00:00:00", "0000-01-01T23:59:59", "32767-12-31T23:59:59",
                                   "32767-12-31T00:00:00", "00000101T000000", "9999-12-31T23:59:59"}) {
        CDATE date(7, 8, 1999);
        const bool isRead = date.FromStringXML(text) == 1;
        EXPECT_TRUE(isRead ? date.IsDate() != 0 : date == CDATE(7, 8, 1999)) << text;
        EXPECT_EQ(IsStrXMLDate(text), isRead) << text;
    }
    EXPECT_TRUE(mZone != "Europe/Paris" || At("2024-07-06T01:30:00").ToStringXML() == "2024-07-05T23:30:00");
}

TEST_F(DateTimeZoneTest, TheClockInTheZone) {
    const sys_seconds before = floor<seconds>(system_clock::now()) - seconds(1);
    const CDATETIME now = CDATETIME::Now();
    const CDATE today = CDATE::Today();
    const CTIME time = CTIME::Now();
    const sys_seconds after = floor<seconds>(system_clock::now()) + seconds(1);
    EXPECT_GE(now, Expected(FromSysSeconds(before))) << now;
    EXPECT_LE(now, Expected(FromSysSeconds(after))) << now;
    EXPECT_TRUE(today == now.GetDate() || today == now.GetDate() + 1) << today;
    EXPECT_LE((time - static_cast<long>(now.GetTime().GetTotalSeconds())).GetTotalSeconds(), 5);
}

}  // namespace
