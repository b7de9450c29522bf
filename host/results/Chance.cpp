#include "host/results/Chance.h"

#include <algorithm>
#include <array>
#include <boost/math/distributions/binomial.hpp>
#include <cmath>
#include <cstdio>
#include <utility>

namespace OmbreliaHost {

namespace {

// Chance makes one of 68 experiments look broken in at most one of 20 whole histories.
constexpr double FLAGGED_RATIO = 68 / 0.05;
constexpr double TIMES_THE_ODDS = 10;
constexpr double NOT_RARE = 0.05;

constexpr double SECONDS_PER_DAY = 86400;
constexpr double SECONDS_PER_YEAR = 365.25 * SECONDS_PER_DAY;

bool IsInBand(long blue, long rows) {
  const double share = static_cast<float>(blue) / static_cast<float>(rows);
  return 0.43 < share && share < 0.57;
}

// The first from begin to end that the condition holds for, which holds for all behind it.
template <typename CONDITION>
long FirstThat(long begin, long end, CONDITION holds) {
  while (begin < end) {
    const long middle = begin + (end - begin) / 2;
    if (holds(middle)) {
      end = middle;
    } else {
      begin = middle + 1;
    }
  }
  return begin;
}

double LogRatio(const ChanceTrial& trial) {
  const double p = trial.probability;
  const double other = TIMES_THE_ODDS * p / (1 - p + TIMES_THE_ODDS * p);
  return trial.failed ? std::log(other / p) : std::log1p(-other) - std::log1p(-p);
}

// Two digits that count: 8512 is 8500.
std::string Rounded(double number) {
  const double unit = std::pow(10, std::max(0.0, std::floor(std::log10(number)) - 1));
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.0f", std::round(number / unit) * unit);
  std::string digits = text.data();
  for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, ",");
  return digits;
}

// How often chance brings a result with this tail in histories of the given span.
std::string HowOften(double tail, double spanSeconds) {
  constexpr double MOST = 1e6;
  if (spanSeconds <= 0) {
    return 1 / tail > MOST ? "less than once in a million such histories"
                           : "about once in " + Rounded(1 / tail) + " such histories";
  }
  const double years = spanSeconds / SECONDS_PER_YEAR / tail;
  if (!(years < MOST)) return "less than once in a million years";
  if (years >= 1500) return "about once in " + Rounded(years) + " years";
  if (years >= 750) return "about once in a millennium";
  if (years >= 150) return "about once in " + Rounded(std::round(years / 100)) + " centuries";
  if (years >= 75) return "about once in a century";
  if (years >= 2) return "about once in " + Rounded(years) + " years";
  const double days = years * SECONDS_PER_YEAR / SECONDS_PER_DAY;
  if (days >= 60) return "about once in " + Rounded(days * 12 / 365.25) + " months";
  return days >= 2 ? "about once in " + Rounded(days) + " days" : "about once a day";
}

}  // namespace

double CoinOutsideBand(long rows) {
  if (rows < 1) return 1;
  // No data file has that many rows, but a line of a history may say so.
  rows = std::min(rows, 1000000000L);
  const long lowest =
      FirstThat(0, rows + 1, [&](long blue) { return IsInBand(blue, rows) || 2 * blue > rows; });
  const long above = FirstThat(lowest, rows + 1, [&](long blue) { return !IsInBand(blue, rows); });
  if (lowest == above) return 1;
  const boost::math::binomial_distribution<double> flips(static_cast<double>(rows), 0.5);
  const double below = lowest == 0 ? 0 : cdf(flips, static_cast<double>(lowest - 1));
  const double beyond = above > rows ? 0 : cdf(complement(flips, static_cast<double>(above - 1)));
  return below + beyond;
}

double LevelMissing(long rows) {
  if (rows < 3) return 1;
  const double n = static_cast<double>(rows);
  return 3 * std::pow(2.0 / 3, n) - 3 * std::pow(1.0 / 3, n);
}

std::optional<double> ProbabilityOf(const ChanceFailure& chance, std::optional<long> rows) {
  if (chance.law == ChanceFailure::Law::Fixed) return chance.probability;
  if (!rows) return std::nullopt;
  return chance.law == ChanceFailure::Law::CoinOutsideBand ? CoinOutsideBand(*rows)
                                                           : LevelMissing(*rows);
}

double TailOf(const std::vector<double>& probabilities, std::size_t failures) {
  if (failures == 0) return 1;
  if (failures > probabilities.size()) return 0;
  const double first = probabilities.front();
  if (std::all_of(probabilities.begin(), probabilities.end(),
                  [&](double probability) { return probability == first; })) {
    const boost::math::binomial_distribution<double> all(static_cast<double>(probabilities.size()),
                                                         first);
    return cdf(complement(all, static_cast<double>(failures) - 1));
  }
  // The probability of each number of failures so far, those of enough failures together.
  std::vector<double> counts(failures + 1, 0);
  counts[0] = 1;
  for (const double probability : probabilities) {
    counts[failures] += counts[failures - 1] * probability;
    for (std::size_t i = failures - 1; i > 0; --i) {
      counts[i] = counts[i] * (1 - probability) + counts[i - 1] * probability;
    }
    counts[0] *= 1 - probability;
  }
  return std::min(1.0, counts[failures]);
}

ChanceCount CountAgainstChance(const std::vector<ChanceTrial>& trials, double spanSeconds) {
  ChanceCount count;
  std::vector<double> probabilities;
  bool isRarest = false;
  for (const ChanceTrial& trial : trials) {
    ++count.trials;
    count.failures += trial.failed ? 1 : 0;
    isRarest = isRarest || (trial.failed && trial.probability < ONE_IN_A_MILLION);
    // Whatever came of it, a trial that always fails or never does tells nothing.
    const bool tells = trial.probability > 0 && trial.probability < 1;
    if (tells) count.logLikelihoodRatio += LogRatio(trial);
    probabilities.push_back(trial.probability);
  }
  count.tail = TailOf(probabilities, count.failures);
  const std::string counted =
      std::to_string(count.failures) + " in " + std::to_string(count.trials);
  if (isRarest || count.logLikelihoodRatio >= std::log(FLAGGED_RATIO)) {
    count.verdict = ChanceVerdict::LookAtIt;
    count.words = counted + ": " + HowOften(count.tail, spanSeconds) + ", look at it";
  } else if (count.tail >= NOT_RARE) {
    count.words = counted + ", chance allows it";
  } else {
    count.verdict = ChanceVerdict::CannotTell;
    count.words = counted + ", cannot tell yet";
  }
  return count;
}

}  // namespace OmbreliaHost
