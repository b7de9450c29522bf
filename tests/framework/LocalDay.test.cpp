#include "framework/LocalDay.h"

#include <gtest/gtest.h>

#include <ctime>

#include "framework/TemporaryExpectation.h"
#include "tests/support/TodayIs.h"

namespace Tests {
namespace {

using boost::gregorian::date;
using Ombrelia::TodaysLocalDate;
using Ombrelia::Tolmey3661ListApplies;
using Ombrelia::Tolmey3661ListAppliesToday;

date DateOfTheClock() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return date(static_cast<unsigned short>(local.tm_year + 1900),
              static_cast<unsigned short>(local.tm_mon + 1),
              static_cast<unsigned short>(local.tm_mday));
}

TEST(LocalDay, IsTheClocksUnlessATestSetsIt) {
  Ombrelia::SetTodaysLocalDateForTests(date(boost::date_time::not_a_date_time));
  // Midnight may pass between the two readings.
  const date before = DateOfTheClock();
  const date today = TodaysLocalDate();
  const date after = DateOfTheClock();
  EXPECT_LE(before, today);
  EXPECT_LE(today, after);
}

TEST(LocalDay, IsTheOrdinaryDayOfATestUnlessItSetsAnother) {
  EXPECT_EQ(TodaysLocalDate(), date(2020, 6, 15));
  {
    const TodayIs today(2016, 2, 29);
    EXPECT_EQ(TodaysLocalDate(), date(2016, 2, 29));
  }
  EXPECT_EQ(TodaysLocalDate(), date(2020, 6, 15));
}

TEST(TemporaryExpectation, AppliesOnTheMacBeforeTheFirstOfMarch2016) {
  EXPECT_TRUE(Tolmey3661ListApplies(date(2015, 1, 1), true));
  EXPECT_TRUE(Tolmey3661ListApplies(date(2016, 2, 29), true));
  EXPECT_FALSE(Tolmey3661ListApplies(date(2016, 3, 1), true));
  EXPECT_FALSE(Tolmey3661ListApplies(date(2016, 3, 2), true));
  EXPECT_FALSE(Tolmey3661ListApplies(date(2031, 1, 15), true));
}

TEST(TemporaryExpectation, NeverAppliesElsewhere) {
  EXPECT_FALSE(Tolmey3661ListApplies(date(2015, 1, 1), false));
  EXPECT_FALSE(Tolmey3661ListApplies(date(2016, 2, 29), false));
  EXPECT_FALSE(Tolmey3661ListApplies(date(2016, 3, 1), false));
}

TEST(TemporaryExpectation, AsksForTheDateOfThisRun) {
  {
    const TodayIs today(2016, 2, 29);
    EXPECT_TRUE(Tolmey3661ListAppliesToday());
  }
  {
    const TodayIs today(2016, 3, 1);
    EXPECT_FALSE(Tolmey3661ListAppliesToday());
  }
}

}  // namespace
}  // namespace Tests
