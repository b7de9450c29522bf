// The lines of a history, and back.
#include "host/results/HistoryLine.h"

#include <gtest/gtest.h>

#include "tests/host/WholeResults.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

TEST(HistoryLine, EveryDataFileOfARunHasOne) {
  const std::vector<HistoryLine> lines = HistoryLinesOf(WholeResults());
  ASSERT_EQ(lines.size(), 9u);
  EXPECT_EQ(lines[1].experiment, "all_kinds.om5");
  EXPECT_EQ(lines[1].time, "2026-03-01T12:00:00Z");
  EXPECT_EQ(lines[1].machine, MachineKind::Small);
  EXPECT_EQ(lines[1].host, "builder-7");
  EXPECT_EQ(lines[1].verifiers, "1.2.3+0123abcd");
  EXPECT_EQ(lines[1].durationMs, 1000);
  EXPECT_EQ(lines[1].expansionMs, 23);
  EXPECT_EQ(lines[1].failed.size(), 6u);
  ASSERT_EQ(lines[1].bounds.size(), 1u);
  EXPECT_EQ(lines[1].bounds[0].check.max, 900);
  EXPECT_EQ(lines[3].tolerated, std::vector<std::string>{"By_chance"});
  EXPECT_EQ(lines[3].rows, 93);
  EXPECT_EQ(lines[6].outcome, Outcome::Crashed);
}

TEST(HistoryLine, ADataFileThatAnInterruptedRunDidNotComeToHasNone) {
  RunResults results;
  results.datafiles.resize(2);
  results.datafiles[0].outcome = Outcome::Lost;
  results.datafiles[1].outcome = Outcome::Lost;
  results.datafiles[1].loss = Loss{0, 3, {}};
  EXPECT_EQ(HistoryLinesOf(results).size(), 1u);
}

TEST(HistoryLine, NamesAreTheSameInEveryRunAndStandOnce) {
  RunResults results;
  results.datafiles = {DatafileWithOneWrongCell()};
  DatafileResult& coins = results.datafiles[0];
  coins.experiment = "2011-11-1_tolmey_2552_Randomization.om4";
  coins.tests[0].name = "Experiment_is_a_bunch_of_coinflips_as_expected_and_percent_was_51";
  coins.tests[1].name = "CHECK_TIMESTAMP_5";
  coins.tests.push_back(coins.tests[1]);
  coins.tests[2].name = "CHECK_TIMESTAMP_6";
  const HistoryLine line = HistoryLinesOf(results).at(0);
  EXPECT_EQ(line.failed, std::vector<std::string>{"CHECK_TIMESTAMP"});
  ASSERT_EQ(line.trials.size(), 1u);
  EXPECT_EQ(line.trials[0].test, "Experiment_is_a_bunch_of_coinflips_as_expected");
  EXPECT_FALSE(line.trials[0].failed);
}

TEST(HistoryLine, ThereAndBackNothingIsLost) {
  for (const HistoryLine& line : HistoryLinesOf(WholeResults())) {
    const std::string text = TextOf(line);
    EXPECT_EQ(text.find('\n'), std::string::npos);
    EXPECT_EQ(TextOf(HistoryLineOf(text)), text);
  }
}

TEST(HistoryLine, IsOneGoodLineWhateverTheTextsHold) {
  for (const std::string& hostile : HostileTexts()) {
    HistoryLine line;
    line.time = "2026-03-01T12:00:00Z";
    line.experiment = line.host = line.digest = line.verifiers = hostile;
    line.failed = line.tolerated = {hostile};
    line.trials = {{hostile, true}};
    line.bounds = {{hostile, {1, 2, 3}}};
    const std::string text = TextOf(line);
    EXPECT_EQ(text.find('\n'), std::string::npos);
    EXPECT_EQ(TextOf(HistoryLineOf(text)), text);
  }
}

TEST(HistoryLine, TellsItsTimeInSeconds) {
  HistoryLine line;
  line.time = "2026-03-01T12:00:05Z";
  EXPECT_EQ(HistoryLineOf(TextOf(line)).seconds, 1772366405);
}

}  // namespace
}  // namespace Tests
