// Where numbers go.
#include "host/results/Trend.h"

#include <gtest/gtest.h>

#include <limits>

namespace Tests {
namespace {

using namespace OmbreliaHost;

TEST(Trend, OfALineIsItsSlopeWithoutSpread) {
  const Trend trend = TrendOf({100, 102, 104, 106, 108});
  EXPECT_DOUBLE_EQ(trend.perRun, 2);
  EXPECT_DOUBLE_EQ(trend.level, 108);
  EXPECT_TRUE(trend.isSure);
  EXPECT_EQ(*trend.spread, 0) << "also in rounding";
  EXPECT_EQ(TrendOf(std::vector<long>(77, 30)).spread, 0);
  EXPECT_EQ(OutlookOf({0, 100, 30}, TrendOf(std::vector<long>(77, 30))).spreads, std::nullopt);
}

TEST(Trend, OfNumbersThatGoUpAndDownIsNotSure) {
  const Trend trend = TrendOf({10, 14, 10, 14, 10, 14, 10, 14, 10});
  EXPECT_FALSE(trend.isSure);
  EXPECT_NEAR(trend.level, 106.0 / 9, 1e-9);
  EXPECT_NEAR(*trend.spread, 2.254, 0.001) << "the root of the squares, 320/9, by n - 2";
}

TEST(Trend, OfFewNumbersIsNone) {
  EXPECT_EQ(TrendOf({}).spread, std::nullopt);
  EXPECT_EQ(TrendOf({5}).level, 5);
  EXPECT_EQ(TrendOf({5, 9}).spread, std::nullopt);
  EXPECT_EQ(TrendOf({5, 9}).level, 7);
  EXPECT_FALSE(TrendOf({1, 2, 3, 4}).isSure);
  EXPECT_FALSE(TrendOf({7, 7, 7, 7, 7, 7}).isSure);
}

TEST(Trend, LooksAtTheLastHundredNumbers) {
  std::vector<long> numbers(1000, 1);
  for (int i = 0; i < 100; ++i) numbers.push_back(9);
  EXPECT_NEAR(TrendOf(numbers).level, 9, 1e-9);
}

TEST(Trend, OfHugeNumbersStaysANumber) {
  const long most = std::numeric_limits<long>::max();
  const long least = std::numeric_limits<long>::min();
  const Trend trend = TrendOf({most, least, most, least, most});
  EXPECT_GT(*trend.spread, 0);
  EXPECT_FALSE(OutlookOf({least, most, most}, trend).isBroken);
}

TEST(BoundOutlook, CountsTheRunsToTheEndAhead) {
  const Trend rising = TrendOf({100, 103, 104, 107, 108, 111});
  const BoundOutlook outlook = OutlookOf({0, 120, 111}, rising);
  EXPECT_FALSE(outlook.isBroken);
  EXPECT_EQ(outlook.runsLeft, 5) << "from 110.8 with 2.1 a run to 120";
  EXPECT_NEAR(*outlook.spreads, (120 - rising.level) / *rising.spread, 1e-9);
  const Trend falling = TrendOf({111, 108, 107, 104, 103, 100});
  EXPECT_EQ(OutlookOf({90, 1000, 100}, falling).runsLeft, 5);
}

TEST(BoundOutlook, WithoutATrendNoRunsAreCounted) {
  const Trend flat = TrendOf({10, 14, 10, 14, 10, 14, 10, 14, 10});
  const BoundOutlook outlook = OutlookOf({0, 20, 10}, flat);
  EXPECT_EQ(outlook.runsLeft, std::nullopt);
  EXPECT_NEAR(*outlook.spreads, (20 - flat.level) / *flat.spread, 1e-9) << "the nearer end";
}

TEST(BoundOutlook, ABrokenBoundIsBroken) {
  const BoundOutlook outlook = OutlookOf({0, 9, 10}, TrendOf({6, 7, 8, 9, 10}));
  EXPECT_TRUE(outlook.isBroken);
  EXPECT_EQ(outlook.runsLeft, std::nullopt);
}

}  // namespace
}  // namespace Tests
