// The examples of the folder's headers: see header_examples.cmake.

#include <MLCore/datetime/CCALENDARFRENCHSTRATEGY.h>
#include <MLCore/datetime/CCALENDARMANAGER.h>
#include <MLCore/datetime/CCALENDARPORTOSTRATEGY.h>
#include <MLCore/datetime/Chrono.h>
#include <MLCore/datetime/Easter.h>
#include <MLCore/datetime/Periods.h>
#include <gtest/gtest.h>

namespace {

using namespace MLCore;

TEST(DateTimeExamplesTest, Date) {
#include "header_examples/CDATE.inc"
    EXPECT_EQ(date, CDATE(29, 2, 2024));
    EXPECT_EQ(day, CDATE::Thursday);
    EXPECT_EQ(next, CDATE(1, 3, 2024));
    EXPECT_EQ(isRead, 0);
}

TEST(DateTimeExamplesTest, Time) {
#include "header_examples/CTIME.inc"
    EXPECT_EQ(time, CTIME(0, 30, 0));
    EXPECT_EQ(text, "00:30:00");
    EXPECT_EQ(isRead, 0);
}

TEST(DateTimeExamplesTest, TimeSpan) {
#include "header_examples/CTIMESPAN.inc"
    EXPECT_EQ(text, "1:30:09");
}

TEST(DateTimeExamplesTest, DateTime) {
#include "header_examples/CDATETIME.inc"
    CDATETIME expected(CDATE(5, 3, 2024), CTIME(23, 30, 0));
    expected.ToLocalZone();
    EXPECT_EQ(moment, expected + CTIMESPAN(90 * 60));
    EXPECT_GT(since, CTIMESPAN());
}

TEST(DateTimeExamplesTest, Chrono) {
#include "header_examples/Chrono.inc"
    EXPECT_EQ(day, std::chrono::Thursday);
    EXPECT_EQ(due, CDATE(10, 5, 2026));
}

TEST(DateTimeExamplesTest, Periods) {
#include "header_examples/Periods.inc"
    EXPECT_EQ(quarterEnd, CDATE(30, 9, 2024));
    EXPECT_EQ(monday, CDATE(12, 8, 2024));
    EXPECT_EQ(monthEnd, CDATETIME(CDATE(31, 8, 2024), CTIME(23, 59, 59)));
}

TEST(DateTimeExamplesTest, Easter) {
#include "header_examples/Easter.inc"
    EXPECT_EQ(easter, (EASTERSUNDAY{5, 4}));
    EXPECT_EQ(date, CDATE(5, 4, 2026));
}

TEST(DateTimeExamplesTest, Calendar) {
#include "header_examples/CCALENDARSTRATEGY.inc"
    EXPECT_EQ(next, CDATE(3, 1, 2025));
    EXPECT_EQ(NextDateOuvre({31, 12, 2024}, calendar), CDATE(3, 1, 2025));
}

TEST(DateTimeExamplesTest, CurrentCalendar) {
#include "header_examples/CCALENDARMANAGER.inc"
    EXPECT_EQ(isFerie, 1);
    EXPECT_EQ(CDATE(10, 6, 2024).IsFerie(), 0);
}

}  // namespace
