#include "framework/TemporaryExpectation.h"

#include <gtest/gtest.h>

#include "tests/support/TodayIs.h"

namespace Tests {
namespace {

using boost::gregorian::date;
using Ombrelia::Tolmey3661ListApplies;
using Ombrelia::Tolmey3661ListAppliesToday;

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
