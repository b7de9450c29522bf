// The probabilities of the verifiers' table, held by fair hosts that draw here at random: the same seed always gives
// the same draws. Where it can, the verifier itself judges what the host drew.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <random>

#include "host/results/Manifest.h"
#include "tests/support/DataFile.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

using Cells = std::vector<std::string>;

// Draws evenly, by the numbers that every library has.
class FairHost {
 public:
  explicit FairHost(unsigned seed) : m_source(seed) {}

  std::size_t Draw(std::size_t count) { return m_source() % count; }

  template <typename VALUE>
  std::vector<VALUE> Shuffled(std::vector<VALUE> values) {
    for (std::size_t i = values.size(); i > 1; --i) std::swap(values[i - 1], values[Draw(i)]);
    return values;
  }

 private:
  std::mt19937_64 m_source;
};

// What the table says, for this number of rows.
double Probability(const std::string& experiment, const std::string& test,
                   std::optional<long> rows = std::nullopt) {
  const ChanceFailure* const chance = FindChance(experiment, test);
  EXPECT_NE(chance, nullptr) << experiment << " " << test;
  return chance == nullptr ? 0 : ProbabilityOf(*chance, rows).value_or(0);
}

// The number of failures is within four and a half spreads of what the probability says.
void ExpectChance(double probability, std::size_t failures, std::size_t runs,
                  const std::string& what) {
  const double expected = probability * static_cast<double>(runs);
  const double spread = std::sqrt(expected * (1 - probability));
  EXPECT_GT(expected, 4) << "too few runs would see nothing: " << what;
  EXPECT_LE(std::abs(static_cast<double>(failures) - expected), 4.5 * spread)
      << what << ": " << failures << " of " << runs << ", expected " << expected;
}

std::size_t Count(std::size_t runs, const std::function<bool()>& fails) {
  std::size_t failures = 0;
  for (std::size_t i = 0; i < runs; ++i) failures += fails() ? 1 : 0;
  return failures;
}

// Does the verifier of the data file fail this test?
bool Fails(const DataFile& file, const std::string& test) {
  const Lines failures = file.Failures();
  return std::any_of(failures.begin(), failures.end(), [&](const std::string& line) {
    return line.rfind("FAIL " + test + " | ", 0) == 0;
  });
}

// A data file of one column that counts, and of what every verifier reads.
DataFile Column(const std::string& experiment, const std::string& column, const Cells& cells) {
  std::vector<Cells> rows;
  for (const std::string& cell : cells) rows.push_back({cell, "1", "-"});
  return DataFile::Of(experiment, {column, "Cumulative\nTime", "Expansion Time(ms): 5"}, rows);
}

const char* const RANDOMIZATION = "2011-06-17_test_all_randomization_for_case_983.om4";

TEST(ChanceOfVerifiers, OrdersThatAreToChangeEveryTime) {
  FairHost host(1);
  const std::string events = "Rand_Events_In_Trial_Every_Time";
  const std::string trials = "Rand_Trials_In_Block_Every_Time";
  constexpr std::size_t RUNS = 1200;
  std::size_t sameEvents = 0;
  std::size_t sameTrials = 0;
  for (std::size_t run = 0; run < RUNS; ++run) {
    Cells cells(54, "x");
    for (const std::size_t first : {21u, 24u, 27u, 33u, 39u, 45u, 51u}) {
      const Cells order = host.Shuffled<std::string>({"a", "b", "c"});
      std::copy(order.begin(), order.end(), cells.begin() + static_cast<std::ptrdiff_t>(first));
    }
    const DataFile file = Column(RANDOMIZATION, "Event\nName", cells);
    sameEvents += Fails(file, events) ? 1 : 0;
    sameTrials += Fails(file, trials) ? 1 : 0;
  }
  ExpectChance(Probability(RANDOMIZATION, events), sameEvents, RUNS, events);
  ExpectChance(Probability(RANDOMIZATION, trials), sameTrials, RUNS, trials);

  // What the rules come to, seen more often than the verifier can be asked.
  const auto same = [&](int further) {
    const std::vector<int> things = {1, 2, 3};
    const std::vector<int> first = host.Shuffled(things);
    for (int i = 0; i < further; ++i) {
      if (host.Shuffled(things) != first) return false;
    }
    return true;
  };
  constexpr std::size_t MORE = 200000;
  ExpectChance(Probability(RANDOMIZATION, events), Count(MORE, [&] { return same(2); }), MORE,
               events);
  ExpectChance(Probability(RANDOMIZATION, trials), Count(MORE, [&] { return same(3); }), MORE,
               trials);
}

TEST(ChanceOfVerifiers, FlipsOfACoinByTheRowsOfTheDataFile) {
  const std::string experiment = "2011-11-1_tolmey_2552_Randomization.om4";
  const std::string test = "Experiment_is_a_bunch_of_coinflips_as_expected";
  FairHost host(2);
  for (const std::size_t rows : {10u, 100u, 250u}) {
    constexpr std::size_t RUNS = 500;
    const std::size_t failures = Count(RUNS, [&] {
      Cells cells;
      for (std::size_t i = 0; i < rows; ++i) cells.push_back(host.Draw(2) == 0 ? "Blue" : "Red");
      return Fails(Column(experiment, "Font Color\n(Trial Variable)", cells), test);
    });
    ExpectChance(Probability(experiment, test, static_cast<long>(rows)), failures, RUNS,
                 std::to_string(rows) + " flips");
  }
  EXPECT_NEAR(Probability(experiment, test, 100), 0.133, 0.0005) << "13 in 100 runs";
}

TEST(ChanceOfVerifiers, LevelsThatAreDrawnWithReplacement) {
  const std::string experiment = "2012-4-25_random_color_trial_level_test.om4";
  const std::string test = "Test_didnt_randomly_break_and_all_trials_were_presented";
  const Cells levels = {"Red", "Yellow", "Green"};
  FairHost host(3);
  for (const std::size_t rows : {3u, 8u}) {
    constexpr std::size_t RUNS = 300;
    const std::size_t failures = Count(RUNS, [&] {
      Cells cells;
      for (std::size_t i = 0; i < rows; ++i) cells.push_back(levels[host.Draw(3)]);
      return Fails(Column(experiment, "Text color\n(Trial Variable)", cells), test);
    });
    ExpectChance(Probability(experiment, test, static_cast<long>(rows)), failures, RUNS,
                 std::to_string(rows) + " levels");
  }
  EXPECT_NEAR(Probability(experiment, test, 3), 7.0 / 9, 1e-12);
}

TEST(ChanceOfVerifiers, VehiclesThatStandTogetherInAJumble) {
  const std::string experiment = "2013-01_assorted_new_block_options.om5";
  const std::string test = "Block_One_Is_V4_Jumbled";
  FairHost host(4);
  constexpr std::size_t RUNS = 500;
  const std::size_t failures = Count(RUNS, [&] {
    const Cells stimuli = host.Shuffled<std::string>(
        {"Car", "Truck", "Bus", "Motorcycle", "Bird", "Dog", "Cat", "Snake"});
    Cells cells(93, "x");
    for (std::size_t i = 0; i < stimuli.size(); ++i) cells[2 * i + 1] = stimuli[i];
    return Fails(Column(experiment, "Event\nName", cells), test);
  });
  ExpectChance(Probability(experiment, test), failures, RUNS, test);
}

// Twelve choices, of which the first is drawn, too, or is given.
TEST(ChanceOfVerifiers, ChoicesThatAllGoToOneSide) {
  const std::string experiment = "2012-12-20_test_reset_the_subset.om5";
  const double probability = Probability(experiment, "Variety_of_Right_and_Left");
  FairHost host(5);
  constexpr std::size_t RUNS = 200000;
  const auto fails = [&](bool firstIsGiven) {
    std::size_t left = 0;
    for (std::size_t i = 0; i < 12; ++i) left += i == 0 && firstIsGiven ? 1 : host.Draw(2);
    return left == 0 || left == 12;
  };
  ExpectChance(probability, Count(RUNS, [&] { return fails(false); }), RUNS, "twelve draws");
  ExpectChance(probability, Count(RUNS, [&] { return fails(true); }), RUNS, "eleven flips");

  DataFile sample = DataFile::Sample(experiment);
  Cells trials = sample.Column("Trial\nName");
  std::replace(trials.begin(), trials.end(), std::string("cues right"), std::string("cues left"));
  EXPECT_TRUE(Fails(sample.SetColumn("Trial\nName", trials), "Variety_of_Right_and_Left"));
}

// One order of all is the sorted one, whatever the number of things: seven and ten of them stand in the table.
TEST(ChanceOfVerifiers, OrdersThatComeOutSorted) {
  FairHost host(6);
  double orders = 1;
  for (int things = 2; things <= 10; ++things) {
    orders *= things;
    if (things > 7) continue;
    std::vector<int> sorted(static_cast<std::size_t>(things));
    std::iota(sorted.begin(), sorted.end(), 1);
    const auto runs = static_cast<std::size_t>(40 * orders) + 1000;
    ExpectChance(1 / orders, Count(runs, [&] { return host.Shuffled(sorted) == sorted; }), runs,
                 std::to_string(things) + " things");
    if (things == 7) {
      EXPECT_NEAR(Probability("2013-09-27_list_access_pair_unpair_cross.om5",
                              "TRIAL_4_NUMERIC_PORTION_MAY_FAIL_ONCE_PER_BLUE_MOON") *
                      orders,
                  1, 1e-12);
    }
  }
  EXPECT_NEAR(Probability("2011-08-11_tolmey_1618_NumberMemorytest.om4",
                          "Trial_levels_in_column_6_randomized") *
                  orders,
              1, 1e-12);
}

TEST(ChanceOfVerifiers, ThreeVariablesThatComeOutSorted) {
  const double probability =
      Probability("10_11_13_all_tvars_spr_rsvp.om5",
                  "SPR_and_RSVP_detect_that_randomization_happened_OK_to_FAIL_RARELY");
  FairHost host(7);
  const std::vector<int> levels = {1, 2, 3};
  // Three draws are used up before the next three.
  const auto isSorted = [&] { return host.Shuffled(levels) == levels; };
  constexpr std::size_t RUNS = 1000000;
  const std::size_t failures = Count(RUNS, [&] {
    for (int i = 0; i < 6; ++i) {
      if (!isSorted()) return false;
    }
    return true;
  });
  ExpectChance(probability, failures, RUNS, "variables in threes");

  // The lower end: all six are shuffled together, which one variable shows.
  const std::vector<int> twice = {1, 2, 3, 1, 2, 3};
  constexpr std::size_t MORE = 20000;
  ExpectChance(1.0 / 90, Count(MORE, [&] { return host.Shuffled(twice) == twice; }), MORE,
               "a variable's six draws");
  EXPECT_NEAR(1 / probability, 46656, 1e-6);
}

// The six copies of the trial that combines three letters with as many numbers as there are, unpaired.
DataFile Copies(FairHost& host, std::size_t numbers) {
  std::vector<Cells> rows;
  for (const char* const trial :
       {"2 letters3 UNPAIRED with numbers7", "2b letters3 UNPAIRED with numbers7 1 *copied*",
        "2b letters3 UNPAIRED with numbers7 2 *copied*",
        "2b letters3 UNPAIRED with numbers7 3 *copied*",
        "2b letters3 UNPAIRED with numbers7 4 *copied*",
        "2b letters3 UNPAIRED with numbers7 5 *copied*"}) {
    const std::size_t filler = host.Draw(3);
    std::vector<std::size_t> letters = {0, 0, 1, 1, 2, 2, filler};
    std::sort(letters.begin(), letters.end());
    std::vector<std::size_t> order(numbers);
    std::iota(order.begin(), order.end(), std::size_t{1});
    order = host.Shuffled(order);
    for (std::size_t i = 0; i < letters.size(); ++i) {
      const std::string letter(1, static_cast<char>('a' + letters[i]));
      rows.push_back({std::string(trial) + ", 1",
                      "x (" + std::to_string(letters[i] + 1) + ", " + letter + ")", "1", "-"});
      if (i >= numbers) continue;
      const std::string number = std::to_string(order[i]);
      rows.push_back({std::string(trial) + ", 1", "y (" + number + ", " + number + ")", "1", "-"});
    }
  }
  return DataFile::Of("2013-09-27_list_access_pair_unpair_cross.om5",
                      {"Trial\nName", "Event\nName", "Cumulative\nTime", "Expansion Time(ms): 29"},
                      rows);
}

TEST(ChanceOfVerifiers, LettersThatAreRepeatedInEveryCopy) {
  const std::string test = "NOT_ALWAYS_SAME_REPEATER";
  FairHost host(8);
  constexpr std::size_t RUNS = 1200;
  const std::size_t failures = Count(RUNS, [&] { return Fails(Copies(host, 7), test); });
  const double probability = Probability("2013-09-27_list_access_pair_unpair_cross.om5", test);
  ExpectChance(probability, failures, RUNS, test);

  constexpr std::size_t MORE = 200000;
  const auto same = [&] {
    const std::size_t first = host.Draw(3);
    for (int i = 0; i < 5; ++i) {
      if (host.Draw(3) != first) return false;
    }
    return true;
  };
  ExpectChance(probability, Count(MORE, same), MORE, test);
}

// With two numbers there are 2 orders instead of 5040: the same design is seen to fail.
TEST(ChanceOfVerifiers, NumbersInTheSameOrderInEveryCopy) {
  const std::string test = "UNPAIRED_HAPPENS_ANEW_FOR_EACH_TRIAL";
  FairHost host(9);
  constexpr std::size_t RUNS = 500;
  const std::size_t failures = Count(RUNS, [&] { return Fails(Copies(host, 2), test); });
  ExpectChance(std::pow(1.0 / 2, 5), failures, RUNS, test);
  EXPECT_NEAR(
      Probability("2013-09-27_list_access_pair_unpair_cross.om5", test) * std::pow(5040.0, 5), 1,
      1e-9);
}

TEST(ChanceOfVerifiers, EveryToleratedFailureHasOneAndIsHeldAbove) {
  std::size_t count = 0;
  for (const VerifierEntry& verifier : Verifiers()) {
    count += verifier.chanceFailures.size();
    for (const std::string& test : verifier.toleratedFailures)
      EXPECT_NE(FindChance(verifier.experiment, test), nullptr) << test;
    for (const ChanceFailure& chance : verifier.chanceFailures) {
      EXPECT_FALSE(chance.derivation.empty()) << chance.test;
      const double probability = ProbabilityOf(chance, 100).value_or(-1);
      EXPECT_GT(probability, 0) << chance.test;
      EXPECT_LT(probability, 1) << chance.test;
    }
  }
  EXPECT_EQ(count, 11u) << "a new one needs a fair host of its own here";
}

}  // namespace
}  // namespace Tests
