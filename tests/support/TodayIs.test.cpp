#include "tests/support/TodayIs.h"

#include <gtest/gtest.h>

#include "framework/LocalDay.h"

namespace Tests {
namespace {

using boost::gregorian::date;
using Ombrelia::TodaysLocalDate;

TEST(TodayIs, HoldsWhileTheObjectLives) {
  EXPECT_EQ(TodaysLocalDate(), date(2020, 6, 15));
  {
    const TodayIs today(2016, 2, 29);
    EXPECT_EQ(TodaysLocalDate(), date(2016, 2, 29));
    {
      const TodayIs inner(2031, 12, 31);
      EXPECT_EQ(TodaysLocalDate(), date(2031, 12, 31));
    }
    EXPECT_EQ(TodaysLocalDate(), date(2016, 2, 29));
  }
  EXPECT_EQ(TodaysLocalDate(), date(2020, 6, 15));
}

}  // namespace
}  // namespace Tests
