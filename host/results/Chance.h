// How often chance fails a test of a correct host, and whether chance explains the failures that were seen.
#ifndef OMBRELIA_HOST_RESULTS_CHANCE_H
#define OMBRELIA_HOST_RESULTS_CHANCE_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace OmbreliaHost {

// A test that a correct host fails now and then, because it draws at random.
struct ChanceFailure {
  // What decides the probability: nothing but the design, or also the number of rows of the data file.
  enum class Law { Fixed, CoinOutsideBand, LevelMissing };
  std::string test;  // its stable name
  Law law = Law::Fixed;
  double probability = 0;  // for Fixed; where the design leaves the draw open, the upper end
  std::string derivation;
};

// Absent if the law depends on the rows and they are not known.
std::optional<double> ProbabilityOf(const ChanceFailure& chance, std::optional<long> rows);

// The probability that a fair coin, flipped rows times, does not land between 43 and 57 per cent, both included,
// in the single precision of the check on it. 1 without rows.
double CoinOutsideBand(long rows);

// The probability that rows draws with replacement from three levels lack one. 1 for fewer than three rows.
double LevelMissing(long rows);

// Each trial is a data file of its own, with its probability to fail by chance.
struct ChanceTrial {
  double probability = 0;  // from 0 to 1
  bool failed = false;
};

enum class ChanceVerdict {
  Allows,      // as many failures or more are no rarer than 1 in 20
  CannotTell,  // they are rarer, but there is no proof yet
  LookAtIt,  // the likelihood ratio is 1360 or more, or what failed fails less than once in a million
};

struct ChanceCount {
  std::size_t failures = 0;
  std::size_t trials = 0;
  double tail = 1;                // of as many failures or more among the trials
  double logLikelihoodRatio = 0;  // natural; of ten times the odds against the odds of chance
  ChanceVerdict verdict = ChanceVerdict::Allows;
  std::string words;  // "2 in 400, chance allows it"
};

// spanSeconds: from the first trial to the last. For LookAtIt the words say how often
// chance brings this result in histories of such a span.
ChanceCount CountAgainstChance(const std::vector<ChanceTrial>& trials, double spanSeconds);

// The probability that at least `failures` trials fail by chance.
double TailOf(const std::vector<double>& probabilities, std::size_t failures);

// A test that fails less often is looked at after one failure.
constexpr double ONE_IN_A_MILLION = 1e-6;

}  // namespace OmbreliaHost

#endif
