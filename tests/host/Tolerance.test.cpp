// The tolerated failures of a run against chance.
#include "host/results/Tolerance.h"

#include <gtest/gtest.h>

namespace Tests {
namespace {

using namespace OmbreliaHost;

// Experiments of the table with a test whose failure is tolerated, and its probability.
const std::pair<const char*, const char*> JUMBLED = {  // 1/14
    "2013-01_assorted_new_block_options.om5", "Block_One_Is_V4_Jumbled"};
const std::pair<const char*, const char*> VARIETY = {  // 1/2048
    "2012-12-20_test_reset_the_subset.om5", "Variety_of_Right_and_Left"};
const std::pair<const char*, const char*> SORTED = {  // 1/10!
    "2011-08-11_tolmey_1618_NumberMemorytest.om4", "Trial_levels_in_column_6_randomized"};
const std::pair<const char*, const char*> REPEATER = {  // 1/243
    "2013-09-27_list_access_pair_unpair_cross.om5", "NOT_ALWAYS_SAME_REPEATER"};

DatafileResult Datafile(const std::pair<const char*, const char*>& which, bool fails,
                        const std::string& digest) {
  DatafileResult datafile;
  datafile.experiment = which.first;
  datafile.path = std::string(which.first) + " " + digest + ".txt";
  datafile.digest = digest;
  TestOutcome test;
  test.name = which.second;
  test.outcome = fails ? Outcome::Tolerated : Outcome::Passed;
  datafile.tests = {test};
  datafile.outcome = test.outcome;
  return datafile;
}

RunResults Judged(const std::vector<DatafileResult>& datafiles) {
  RunResults results;
  results.started = "2026-03-01T12:00:00Z";
  results.datafiles = datafiles;
  JudgeTolerance(results, HistoryLinesOf(results));
  return results;
}

TEST(Tolerance, NoneIsKept) {
  const RunResults run = Judged({Datafile(JUMBLED, false, "a")});
  EXPECT_EQ(run.tolerance->state, ToleranceBudget::State::Kept);
  EXPECT_EQ(run.tolerance->words, std::vector<std::string>{"No tolerated failure."});
  EXPECT_EQ(run.datafiles[0].tests[0].chance, "");
  EXPECT_FALSE(HasToleratedFailure(run));
}

TEST(Tolerance, OneIsShown) {
  const RunResults run = Judged({Datafile(JUMBLED, true, "a"), Datafile(VARIETY, false, "b")});
  EXPECT_TRUE(HasToleratedFailure(run));
  EXPECT_EQ(run.tolerance->state, ToleranceBudget::State::Kept);
  EXPECT_EQ(run.tolerance->words, std::vector<std::string>{"1 tolerated failure."});
  EXPECT_EQ(run.datafiles[0].tests[0].chance, "p=0.0714 k/n=1/1: 1 in 1, chance allows it");
}

TEST(Tolerance, TwoWarn) {
  const RunResults run = Judged({Datafile(JUMBLED, true, "a"), Datafile(VARIETY, true, "b")});
  EXPECT_EQ(run.tolerance->state, ToleranceBudget::State::Warns);
  EXPECT_EQ(run.tolerance->words,
            std::vector<std::string>{"2 tolerated failures in one run, which chance brings to "
                                     "0.00349 runs in 100: look at them."})
      << "100 / (14 * 2048)";
}

TEST(Tolerance, ThreeAreNotExplained) {
  const RunResults run = Judged(
      {Datafile(JUMBLED, true, "a"), Datafile(VARIETY, true, "b"), Datafile(REPEATER, true, "c")});
  EXPECT_EQ(run.tolerance->state, ToleranceBudget::State::Blown);
  EXPECT_NE(run.tolerance->words[0].find("3 tolerated failures in one run"), std::string::npos);
}

TEST(Tolerance, TheSameBytesAreOneFailure) {
  const RunResults run = Judged(
      {Datafile(JUMBLED, true, "a"), Datafile(JUMBLED, true, "a"), Datafile(JUMBLED, true, "a")});
  EXPECT_EQ(run.tolerance->state, ToleranceBudget::State::Kept);
  EXPECT_EQ(run.datafiles[2].tests[0].chance, "p=0.0714 k/n=1/1: 1 in 1, chance allows it");
}

TEST(Tolerance, OneAloneIsNotExplainedBelowOneInAMillion) {
  const RunResults run = Judged({Datafile(SORTED, true, "a")});
  EXPECT_EQ(run.tolerance->state, ToleranceBudget::State::Blown);
  EXPECT_EQ(run.tolerance->words[0],
            std::string(SORTED.first) + ", " + SORTED.second +
                ": chance brings this failure less than once in a million runs.");
}

// Fourteen in a run of 200 data files of the experiment are what chance brings.
TEST(Tolerance, ManyDataFilesOfAnExperimentMayHaveMore) {
  std::vector<DatafileResult> datafiles;
  for (int i = 0; i < 200; ++i) datafiles.push_back(Datafile(JUMBLED, i < 14, std::to_string(i)));
  EXPECT_EQ(Judged(datafiles).tolerance->state, ToleranceBudget::State::Kept);
  for (int i = 14; i < 40; ++i)
    datafiles[static_cast<std::size_t>(i)] = Datafile(JUMBLED, true, std::to_string(i));
  EXPECT_EQ(Judged(datafiles).tolerance->state, ToleranceBudget::State::Blown);
}

TEST(Tolerance, AHistoryThatNeedsALookIsNotExplainedByThisRun) {
  std::vector<HistoryLine> history;
  for (int i = 0; i < 100; ++i) {
    HistoryLine line;
    line.experiment = VARIETY.first;
    line.digest = std::to_string(i);
    line.seconds = i;
    line.trials = {{VARIETY.second, i >= 95}};
    history.push_back(line);
  }
  RunResults run;
  run.datafiles = {Datafile(VARIETY, true, "99")};
  JudgeTolerance(run, history);
  EXPECT_EQ(run.tolerance->state, ToleranceBudget::State::Blown);
  EXPECT_EQ(run.datafiles[0].tests[0].chance.find("p=0.000488 k/n=5/100: 5 in 100: "), 0u)
      << run.datafiles[0].tests[0].chance;
  // Now that it passes, the history is no matter of this run.
  run.datafiles = {Datafile(VARIETY, false, "100")};
  JudgeTolerance(run, history);
  EXPECT_EQ(run.tolerance->state, ToleranceBudget::State::Kept);
}

TEST(Tolerance, AFailureThatTheTableDoesNotKnowCountsAllTheSame) {
  const std::pair<const char*, const char*> strange = {"strange.om5", "By_chance"};
  const RunResults run = Judged(
      {Datafile(strange, true, "a"), Datafile(strange, true, "b"), Datafile(strange, true, "c")});
  EXPECT_EQ(run.tolerance->state, ToleranceBudget::State::Blown);
  EXPECT_EQ(run.datafiles[0].tests[0].chance,
            "p=? k/n=?: the table of verifiers does not say how often chance fails it");
}

}  // namespace
}  // namespace Tests
