// Failures against chance.
#include "host/results/Chance.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Tests {
namespace {

using namespace OmbreliaHost;

constexpr double YEAR = 365.25 * 86400;

std::vector<ChanceTrial> Trials(std::size_t failures, std::size_t trials, double probability) {
  std::vector<ChanceTrial> all;
  for (std::size_t i = 0; i < trials; ++i) all.push_back({probability, i < failures});
  return all;
}

std::string Words(std::size_t failures, std::size_t trials, double probability,
                  double span = YEAR) {
  return CountAgainstChance(Trials(failures, trials, probability), span).words;
}

// Every way in which the trials can come out, one by one.
double TailByAllWays(const std::vector<double>& probabilities, std::size_t failures) {
  double tail = 0;
  for (std::size_t way = 0; way < (std::size_t{1} << probabilities.size()); ++way) {
    double probability = 1;
    std::size_t failed = 0;
    for (std::size_t i = 0; i < probabilities.size(); ++i) {
      const bool fails = (way >> i & 1) != 0;
      probability *= fails ? probabilities[i] : 1 - probabilities[i];
      failed += fails ? 1 : 0;
    }
    if (failed >= failures) tail += probability;
  }
  return tail;
}

TEST(Chance, TheTailIsThatOfAllWaysTogether) {
  const std::vector<double> same(12, 1.0 / 14);
  const std::vector<double> mixed = {1.0 / 14, 1.0 / 36, 1.0 / 216, 0.133, 1.0 / 243,
                                     0.133,    1.0 / 14, 0.5,       1e-9};
  for (std::size_t failures = 0; failures <= 9; ++failures) {
    for (const std::vector<double>& probabilities : {same, mixed}) {
      const double tail = TailByAllWays(probabilities, failures);
      EXPECT_NEAR(TailOf(probabilities, failures), tail, tail * 1e-9) << failures;
    }
  }
  EXPECT_EQ(TailOf(mixed, 10), 0);
  EXPECT_EQ(TailOf({}, 0), 1);
  EXPECT_NEAR(TailOf(std::vector<double>(5, 1e-19), 1), 5e-19, 1e-28) << "not lost in rounding";
}

TEST(Chance, TheCoinsBandIsSummedUpBySingleWays) {
  for (long rows = 1; rows <= 20; ++rows) {
    double outside = 0;
    for (long way = 0; way < (1L << rows); ++way) {
      long blue = 0;
      for (long bits = way; bits != 0; bits >>= 1) blue += bits & 1;
      const bool inside = 100 * blue >= 43 * rows && 100 * blue <= 57 * rows;
      if (!inside) outside += std::pow(0.5, static_cast<double>(rows));
    }
    EXPECT_NEAR(CoinOutsideBand(rows), outside, 1e-12) << rows;
  }
  EXPECT_EQ(CoinOutsideBand(0), 1) << "no number lies in the band";
  EXPECT_EQ(CoinOutsideBand(-1), 1);
  EXPECT_LT(CoinOutsideBand(10000), 1e-40);
  EXPECT_EQ(CoinOutsideBand(std::numeric_limits<long>::max()), 0);
}

TEST(Chance, AMissingLevelIsCertainBelowThreeRows) {
  EXPECT_EQ(LevelMissing(2), 1);
  EXPECT_NEAR(LevelMissing(3), 7.0 / 9, 1e-12);
  EXPECT_NEAR(LevelMissing(4), 5.0 / 9, 1e-12);
}

TEST(Chance, AllowsWhatIsNotRare) {
  EXPECT_EQ(Words(2, 400, 1.0 / 243), "2 in 400, chance allows it");
  EXPECT_EQ(Words(0, 3, 1.0 / 14), "0 in 3, chance allows it");
  EXPECT_EQ(Words(1, 1, 1.0 / 14), "1 in 1, chance allows it");
}

TEST(Chance, CannotTellWhatIsRareAndNotProven) {
  EXPECT_EQ(Words(1, 1, 1.0 / 36), "1 in 1, cannot tell yet");
  EXPECT_EQ(Words(2, 400, 1.0 / 2048), "2 in 400, cannot tell yet");
}

// 5 or more in 479 come to 4.71e-6 of all such histories, so that one of 14,870 seconds has it once in a century.
TEST(Chance, ToldByHowOftenSoLongATimeBringsIt) {
  EXPECT_EQ(Words(5, 479, 1.0 / 2048, 14870), "5 in 479: about once in a century, look at it");
  EXPECT_EQ(Words(5, 479, 1.0 / 2048, 148700), "5 in 479: about once in a millennium, look at it");
  EXPECT_EQ(Words(5, 479, 1.0 / 2048, 40000), "5 in 479: about once in 3 centuries, look at it");
  EXPECT_EQ(Words(5, 479, 1.0 / 2048, 1487), "5 in 479: about once in 10 years, look at it");
  EXPECT_EQ(Words(5, 479, 1.0 / 2048, 100), "5 in 479: about once in 8 months, look at it");
  EXPECT_EQ(Words(5, 479, 1.0 / 2048, 10), "5 in 479: about once in 25 days, look at it");
  EXPECT_EQ(Words(5, 479, 1.0 / 2048, 0.1), "5 in 479: about once a day, look at it");
  EXPECT_EQ(Words(5, 479, 1.0 / 2048, YEAR), "5 in 479: about once in 210,000 years, look at it");
  EXPECT_EQ(Words(5, 479, 1.0 / 2048, 0),
            "5 in 479: about once in 210,000 such histories, look at it");
  EXPECT_EQ(Words(9, 479, 1.0 / 5040), "9 in 479: less than once in a million years, look at it");
}

TEST(Chance, FlagsAtALikelihoodRatioOf1360) {
  // Ten times the odds of 1/11 are even odds.
  const auto ratio = [](std::size_t failures, std::size_t trials) {
    return std::exp(
        CountAgainstChance(Trials(failures, trials, 1.0 / 11), YEAR).logLikelihoodRatio);
  };
  EXPECT_NEAR(ratio(1, 1), 5.5, 1e-9);
  EXPECT_NEAR(ratio(0, 1), 0.55, 1e-9);
  EXPECT_NEAR(ratio(5, 7), std::pow(5.5, 5) * 0.55 * 0.55, 1e-6);
  EXPECT_EQ(Words(5, 7, 1.0 / 11).find("look at it") != std::string::npos, ratio(5, 7) >= 1360);
  for (std::size_t trials = 5; trials < 30; ++trials) {
    EXPECT_EQ(Words(5, trials, 1.0 / 11).find("look at it") != std::string::npos,
              ratio(5, trials) >= 1360)
        << trials;
  }
  EXPECT_GE(ratio(5, 8), 800);
}

TEST(Chance, OneFailureThatChanceBringsLessThanOnceInAMillionIsLookedAt) {
  EXPECT_EQ(Words(1, 1, 1 / 3628800.0, 0),
            "1 in 1: less than once in a million such histories, look at it");
  EXPECT_EQ(Words(0, 5, 1 / 3628800.0), "0 in 5, chance allows it");
}

// A check that a data file without rows can only fail tells nothing of the host.
TEST(Chance, ATrialThatCanOnlyFailTellsNothing) {
  EXPECT_EQ(Words(3, 3, 1), "3 in 3, chance allows it");
  EXPECT_EQ(CountAgainstChance(Trials(3, 3, 1), YEAR).logLikelihoodRatio, 0);
}

}  // namespace
}  // namespace Tests
