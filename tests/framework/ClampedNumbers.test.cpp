#include "framework/ClampedNumbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace Ombrelia {
namespace {

const int LEAST = std::numeric_limits<int>::min();
const int GREATEST = std::numeric_limits<int>::max();
const long LEAST_LONG = std::numeric_limits<long>::min();
const long GREATEST_LONG = std::numeric_limits<long>::max();

TEST(ClampedNumbers, KeepNumbersThatFit) {
  EXPECT_EQ(ClampedToInt(0), 0);
  EXPECT_EQ(ClampedToInt(-7), -7);
  EXPECT_EQ(ClampedToInt(2147483647L), GREATEST);
  EXPECT_EQ(ClampedToInt(-2147483648L), LEAST);
}

TEST(ClampedNumbers, StopAtTheEndsOfTheRange) {
  EXPECT_EQ(ClampedToInt(2147483648L), GREATEST);
  EXPECT_EQ(ClampedToInt(4294967296L), GREATEST);
  EXPECT_EQ(ClampedToInt(-2147483649L), LEAST);
  EXPECT_EQ(ClampedToInt(GREATEST_LONG), GREATEST);
  EXPECT_EQ(ClampedToInt(LEAST_LONG), LEAST);
}

TEST(ClampedNumbers, SubtractNumbersThatFit) {
  EXPECT_EQ(ClampedDifference(8027, 2014), 6013);
  EXPECT_EQ(ClampedDifference(2014, 8027), -6013);
  EXPECT_EQ(ClampedDifference(-5, -5), 0);
  EXPECT_EQ(ClampedDifference(3, -4), 7);
  EXPECT_EQ(ClampedDifference(GREATEST_LONG, GREATEST_LONG - 1), 1);
  EXPECT_EQ(ClampedDifference(LEAST_LONG, LEAST_LONG + 1), -1);
  EXPECT_EQ(ClampedDifference(2147483647L, 0), GREATEST);
  EXPECT_EQ(ClampedDifference(0, 2147483647L), -2147483647);
}

TEST(ClampedNumbers, SubtractWithoutWrappingRound) {
  EXPECT_EQ(ClampedDifference(2147483648L, 0), GREATEST);
  EXPECT_EQ(ClampedDifference(-2147483648L, 0), LEAST);
  EXPECT_EQ(ClampedDifference(-2147483648L, 1), LEAST);
  EXPECT_EQ(ClampedDifference(GREATEST_LONG, LEAST_LONG), GREATEST);
  EXPECT_EQ(ClampedDifference(LEAST_LONG, GREATEST_LONG), LEAST);
}

}  // namespace
}  // namespace Ombrelia
