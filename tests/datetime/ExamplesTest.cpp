// The examples of the folder's headers: see header_examples.cmake.

#include <MLCore/datetime/CCALENDARFRENCHSTRATEGY.h>
#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/datetime/Periods.h>
#include <gtest/gtest.h>

namespace {

using namespace MLCore;

const char* const text = "no date";

TEST(DateTimeExamplesTest, Date) {
#include "header_examples/CDATE.inc"
    EXPECT_EQ(date, CDATE(29, 2, 2024));
    EXPECT_EQ(date.GetDayOfWeek(), CDATE::Thursday);
    EXPECT_EQ(NextDateOuvre(date), CDATE(1, 3, 2024));
}

TEST(DateTimeExamplesTest, Time) {
#include "header_examples/CTIME.inc"
    EXPECT_EQ(time, CTIME(0, 30, 0));
}

TEST(DateTimeExamplesTest, DateTime) {
#include "header_examples/CDATETIME.inc"
    CDATETIME expected(CDATE(5, 3, 2024), CTIME(23, 30, 0));
    expected.ToLocalZone();
    EXPECT_EQ(moment, expected + CTIMESPAN(90 * 60));
    EXPECT_GT(since, CTIMESPAN());
}

TEST(DateTimeExamplesTest, Periods) {
    const CDATE date(15, 8, 2024);
    const CDATETIME moment(date, CTIME(12, 0, 0));
#include "header_examples/Periods.inc"
    EXPECT_EQ(LastDateTrimestre(CDATE(15, 8, 2024)), CDATE(30, 9, 2024));
    EXPECT_EQ(FirstDateEchelonnement(date, CDATE::EchelonWeek, nullptr), CDATE(12, 8, 2024));
    EXPECT_EQ(LastDateTimeMonth(moment), CDATETIME(CDATE(31, 8, 2024), CTIME(23, 59, 59)));
}

TEST(DateTimeExamplesTest, Calendar) {
#include "header_examples/CCALENDARSTRATEGY.inc"
    EXPECT_EQ(NextDateOuvre({31, 12, 2024}, calendar), CDATE(3, 1, 2025));
}

}  // namespace
