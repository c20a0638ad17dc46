// In the place of the platform's OLE dates: a system that converts none.

#include <MLCore/datetime/CDATE.h>
#include <MLCore/datetime/CTIME.h>
#include <MLCore/platform/OleDate.h>
#include <gtest/gtest.h>

namespace {

bool gFillsResults = false;

}  // namespace

namespace MLCore::platform {

bool OleDateFromCivil(const CIVILTIME&, double& date) noexcept {
    if (gFillsResults) {
        date = 12345.5;
    }
    return false;
}

bool CivilFromOleDate(double, CIVILTIME& time) noexcept {
    if (gFillsResults) {
        time = {2024, 3, 5, 7, 5, 9};
    }
    return false;
}

}  // namespace MLCore::platform

namespace {

using namespace MLCore;

TEST(NoOleDateTest, WhatTheSystemRefusesIsNull) {
    for (const bool fills : {false, true}) {
        gFillsResults = fills;
        EXPECT_EQ(CDATE(45356.0).IsNull(), 1);
        EXPECT_EQ(CDATE(5, 3, 2024).ToWDate(), 0.0);
        EXPECT_EQ(CDATE().ToWDate(), 0.0);
        EXPECT_EQ(CTIME(0.25), CTIME());
        EXPECT_EQ(CTIME(7, 5, 9).ToWDate(), 0.0);
    }
}

}  // namespace
