#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2011-10-20_responses_personality_disorder_2545.om4";

const char* const ERROR_CODE = "Error\nCode";

const std::string CODE_1_IS_WRONG =
    Fail("Events_with_val_1_should_be_NR", "Some row with code value 1 is scored wrong.",
         EXPERIMENT, 101, "All rows with code value 1 should be scored as NR for this experiment.");
const std::string CODE_2_IS_WRONG =
    Fail("Events_with_val_2_should_be_Correct", "Some row with code value 2 is scored wrong.",
         EXPERIMENT, 114,
         "All rows with code value 2 should be scored as C -- CORRECT -- for this experiment.");
const std::string INVALID_CODE = Fail(
    "All_rows_must_have_valid_code_value",
    "Some row was present that did not have EITHER of the two valid code values.", EXPERIMENT, 123,
    "All events in this experiment were given a code value, so every row in the output should "
    "reflect that.");

DataFile Sample() { return DataFile::Sample(EXPERIMENT); }

TEST(TestCodeBasedResponses_2545, PassesItsSampleWithTwoTestsOfTheScores) {
  EXPECT_EQ(
      Sample().Verify(),
      (Lines{"suite 2011-10-20_responses_personality_disorder_2545.om4",
             "pass VerifyDatafile_was_called_for_"
             "2011-10-20_responses_personality_disorder_2545.om4",
             "pass Data_appears_completely_and_in_order", "pass Events_with_val_1_should_be_NR",
             "pass Events_with_val_2_should_be_Correct",
             "pass Experiment_duration_2011-10-20_responses_personality_disorder_2545.om4",
             "pass Expansion_duration_2011-10-20_responses_personality_disorder_2545.om4",
             "pass __TIMING__TRACKING__2011-10-20_responses_personality_disorder_2545.om4__1683_ms",
             "pass __EXPANSION__TRACKING__"
             "2011-10-20_responses_personality_disorder_2545.om4__21_ms"}));
}

TEST(TestCodeBasedResponses_2545, ACode1ScoredAsAnythingElseFailsItsCheckAlone) {
  for (const std::size_t row : {std::size_t{0}, std::size_t{2}}) {
    for (const char* score : {"C", "I", "", "nr", "NR "}) {
      EXPECT_EQ(Sample().Set(row, ERROR_CODE, score).Failures(), Lines{CODE_1_IS_WRONG});
    }
  }
}

TEST(TestCodeBasedResponses_2545, ACode2ScoredAsAnythingElseFailsItsCheckAlone) {
  for (const std::size_t row : {std::size_t{1}, std::size_t{3}}) {
    for (const char* score : {"NR", "I", "", "c"}) {
      EXPECT_EQ(Sample().Set(row, ERROR_CODE, score).Failures(), Lines{CODE_2_IS_WRONG});
    }
  }
}

TEST(TestCodeBasedResponses_2545, AnyOtherCodeFailsTheLastCheckAndTheComparison) {
  const DataFile sample = Sample();
  for (std::size_t row = 0; row < 4; ++row) {
    for (const char* code : {"value_03", "", "VALUE_01"}) {
      EXPECT_EQ(DataFile(sample).Set(row, "pic_code", code).Failures(),
                (Lines{CellDiffers(EXPERIMENT, row, sample.Cell(row, "pic_code")), INVALID_CODE}));
    }
  }
}

TEST(TestCodeBasedResponses_2545, GoesOnBehindAWrongRow) {
  EXPECT_EQ(Sample()
                .Set(0, ERROR_CODE, "C")
                .Set(1, ERROR_CODE, "NR")
                .Set(3, "pic_code", "value_03")
                .Failures(),
            (Lines{CellDiffers(EXPERIMENT, 3, "value_02"), CODE_1_IS_WRONG, CODE_2_IS_WRONG,
                   INVALID_CODE}));
}

TEST(TestCodeBasedResponses_2545, FailsOnAWrongNumberOfRowsAndLooksAtTheirScores) {
  EXPECT_EQ(Sample().RepeatLastRow().Failures(), Lines{TooManyCells(EXPERIMENT)});
  EXPECT_EQ(Sample().RepeatLastRow().Set(4, ERROR_CODE, "NR").Failures(),
            (Lines{TooManyCells(EXPERIMENT), CODE_2_IS_WRONG}));
  EXPECT_EQ(Sample().KeepRows(3).SetDuration("1683").Failures(), Lines{TooFewCells(EXPERIMENT)});
}

TEST(TestCodeBasedResponses_2545, FailsWithoutItsColumns) {
  EXPECT_EQ(Sample().RemoveColumn("pic_code").Failures(),
            (Lines{CellDiffers(EXPERIMENT, 0, "value_01"), INVALID_CODE}));
  EXPECT_EQ(Sample().RemoveColumn(ERROR_CODE).Failures(),
            (Lines{CODE_1_IS_WRONG, CODE_2_IS_WRONG}));
}

TEST(TestCodeBasedResponses_2545, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(Sample().Set(0, ERROR_CODE, "C").SetDuration("1599").SetExpansion("41").Failures(),
            (Lines{CODE_1_IS_WRONG, DurationOutOfBounds(EXPERIMENT, 1600, 1780, "1599"),
                   ExpansionOutOfBounds(EXPERIMENT, 5, 40, "41")}));
}

}  // namespace
}  // namespace Tests
