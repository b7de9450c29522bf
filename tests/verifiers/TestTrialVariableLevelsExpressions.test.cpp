#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2013-11-15_trial_level_expressions.om5";
const char* const EVENT = "Event\nName";
const char* const NO_REPL = "positions - R noRepl\n(Trial Variable)";
const char* const SEQUENTIAL = "positions - Seq\n(Trial Variable)";
const char* const WITH_REPL = "positions - R wRepl\n(Trial Variable)";

const std::string PRIOR_FAILED =
    Fail("TestExpressionResultsPriorToAnyLevelUsage",
         "bad behavior of trial variable expressions prior to any selections", EXPERIMENT, 96,
         "before anything in the experiment has APPLIED any variable value the expression should "
         "determine we are at the first level");
const std::string NO_REPL_FAILED =
    Fail("TestExpressionResultsUsingNoRepl",
         "bad behavior of trial variable expressions with selection rand no repl", EXPERIMENT, 160,
         "trial variable expressions in rules do not seem to evaluate according to where the "
         "position level actually went");
const std::string SEQUENTIAL_FAILED =
    Fail("TestExpressionResultsUsingSequential",
         "bad behavior of trial variable expressions with selection sequential", EXPERIMENT, 185,
         "trial variable expressions in rules do not seem to evaluate according to where the "
         "position level actually went");
const std::string WITH_REPL_FAILED = Fail(
    "TestExpressionResultsUsingWithRepl",
    "bad behavior of trial variable expressions with selection rand with repl", EXPERIMENT, 210,
    "trial variable expressions in rules do not seem to evaluate according to where the "
    "position level actually went");

// One selection method: its column, the rows in which a level is applied, its failure.
struct Selection {
  const char* column;
  std::vector<std::size_t> rows;
  std::string failure;
};

const std::vector<Selection> SELECTIONS = {
    {NO_REPL, {32, 35, 38, 41, 44, 47, 50}, NO_REPL_FAILED},
    {SEQUENTIAL, {54, 57, 60, 63, 66, 69, 72}, SEQUENTIAL_FAILED},
    {WITH_REPL, {76, 79, 82, 85, 88, 91, 94}, WITH_REPL_FAILED}};

std::string TheOther(const std::string& level) { return level == "one" ? "two" : "one"; }

TEST(TestTrialVariableLevelsExpressions, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{"suite 2013-11-15_trial_level_expressions.om5",
             "pass VerifyDatafile_was_called_for_2013-11-15_trial_level_expressions.om5",
             "pass TestExpressionResultsPriorToAnyLevelUsage",
             "pass TestExpressionResultsUsingNoRepl", "pass TestExpressionResultsUsingSequential",
             "pass TestExpressionResultsUsingWithRepl",
             "pass Experiment_duration_2013-11-15_trial_level_expressions.om5",
             "pass Expansion_duration_2013-11-15_trial_level_expressions.om5",
             "pass __TIMING__TRACKING__2013-11-15_trial_level_expressions.om5__489_ms",
             "pass __EXPANSION__TRACKING__2013-11-15_trial_level_expressions.om5__52_ms"}));
}

TEST(TestTrialVariableLevelsExpressions, HoldsEachRowBeforeAnyLevelIsApplied) {
  for (const std::size_t row : {3U, 5U, 7U, 9U, 13U, 15U, 17U, 19U, 23U, 25U, 27U, 29U}) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(row, EVENT, "detected position two").Failures(),
              Lines{PRIOR_FAILED})
        << "row " << row;
  }
}

TEST(TestTrialVariableLevelsExpressions, LooksAtNoOtherRows) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  for (const std::size_t row :
       {0U,  1U,  2U,  4U,  6U,  8U,  10U, 11U, 12U, 14U, 16U, 18U, 20U, 21U,
        22U, 24U, 26U, 28U, 30U, 31U, 32U, 34U, 53U, 54U, 75U, 76U, 96U}) {
    file.Set(row, EVENT, "another event");
  }
  for (const char* column : {NO_REPL, SEQUENTIAL, WITH_REPL}) file.Set(31, column, "another level");
  EXPECT_EQ(file.Failures(), Lines{});
}

TEST(TestTrialVariableLevelsExpressions, HoldsEachLevelAgainstTheEventOneRowBelow) {
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  for (const Selection& selection : SELECTIONS) {
    for (const std::size_t row : selection.rows) {
      SCOPED_TRACE(row);
      const std::string other = TheOther(sample.Cell(row, selection.column));
      DataFile wrongLevel = sample;
      EXPECT_EQ(wrongLevel.Set(row, selection.column, other).Failures(), Lines{selection.failure});
      DataFile wrongEvent = sample;
      EXPECT_EQ(wrongEvent.Set(row + 1, EVENT, "detected position " + other).Failures(),
                Lines{selection.failure});
      EXPECT_EQ(wrongEvent.Set(row, selection.column, other).Failures(), Lines{});
    }
  }
}

TEST(TestTrialVariableLevelsExpressions, FailsOnAnyOtherLevel) {
  for (const Selection& selection : SELECTIONS) {
    for (const char* level : {"three", "One", ""}) {
      EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                    .Set(selection.rows.back(), selection.column, level)
                    .Failures(),
                Lines{selection.failure})
          << level;
    }
  }
}

// The level stands in the last row, so the event below it is undefined.
TEST(TestTrialVariableLevelsExpressions, FailsOnALevelInTheLastRow) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(96).SetDuration("489").Failures(), Lines{});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(95).SetDuration("489").Failures(),
            Lines{WITH_REPL_FAILED});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(1).SetDuration("489").Failures(),
            (Lines{PRIOR_FAILED, NO_REPL_FAILED, SEQUENTIAL_FAILED, WITH_REPL_FAILED}));
}

TEST(TestTrialVariableLevelsExpressions, FailsWithoutItsColumns) {
  for (const Selection& selection : SELECTIONS) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(selection.column).Failures(),
              Lines{selection.failure});
  }
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(EVENT).Failures(),
            (Lines{PRIOR_FAILED, NO_REPL_FAILED, SEQUENTIAL_FAILED, WITH_REPL_FAILED}));
}

TEST(TestTrialVariableLevelsExpressions, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(3, EVENT, "detected position two")
                .SetDuration("781")
                .SetExpansion("121")
                .Failures(),
            (Lines{PRIOR_FAILED, DurationOutOfBounds(EXPERIMENT, 360, 780, "781"),
                   ExpansionOutOfBounds(EXPERIMENT, 10, 120, "121")}));
}

TEST(TestTrialVariableLevelsExpressions, KeepsNothingFromOneFileForTheNext) {
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  DataFile wrong = sample;
  wrong.Set(32, NO_REPL, "three");
  DataFile moved = sample;
  moved.MoveColumnToFront(NO_REPL);
  EXPECT_EQ(sample.Failures(), Lines{});
  EXPECT_EQ(wrong.Failures(), Lines{NO_REPL_FAILED});
  EXPECT_EQ(moved.Failures(), Lines{});
  EXPECT_EQ(sample.Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
