#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "aiming_for_all_possible_rstep_attachment_patterns.om4";

TEST(ExerciseForCase2781, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{
          "suite aiming_for_all_possible_rstep_attachment_patterns.om4",
          "pass "
          "VerifyDatafile_was_called_for_aiming_for_all_possible_rstep_attachment_patterns.om4",
          "pass Data_appears_completely_and_in_order", "pass Data_appears_completely_and_in_order",
          "pass Data_appears_completely_and_in_order",
          "pass Experiment_duration_aiming_for_all_possible_rstep_attachment_patterns.om4",
          "pass Expansion_duration_aiming_for_all_possible_rstep_attachment_patterns.om4",
          "pass "
          "__TIMING__TRACKING__aiming_for_all_possible_rstep_attachment_patterns.om4__28744_ms",
          "pass "
          "__EXPANSION__TRACKING__aiming_for_all_possible_rstep_attachment_patterns.om4__38_ms"}));
}

TEST(ExerciseForCase2781, ComparesEachEvent) {
  ExpectEachCellIsCompared(
      EXPERIMENT, "Event\nName",
      {"E1",     "E2",  "E3",     "E4",  "E5",     "E6",  "E7",     "E8",  "E9",
       "E10",    "E1",  "E2",     "E3",  "E4",     "E5",  "E6",     "E7",  "E8",
       "E9",     "E10", "E6",     "E7",  "E8",     "E9",  "E10",    "E6",  "E7",
       "E8",     "E9",  "E10",    "E6",  "E7",     "E8",  "E9",     "E10", "E16",
       "E11-fb", "E17", "E12-fb", "E18", "E13-fb", "E19", "E14-fb", "E20", "E15-fb"});
}

TEST(ExerciseForCase2781, ComparesEachCellOfTheTrialsCode) {
  ExpectEachCellIsCompared(EXPERIMENT, "tcode1", Cells({{5, ""}, {15, "a"}, {25, ""}}));
}

TEST(ExerciseForCase2781, ComparesEachCellOfTheEventsCode) {
  ExpectEachCellIsCompared(EXPERIMENT, "ecode4",
                           Cells({{19, ""},
                                  {1, "b"},
                                  {4, ""},
                                  {1, "b"},
                                  {4, ""},
                                  {1, "b"},
                                  {4, "b (trial)"},
                                  {1, "b (event)|b (trial)"},
                                  {10, ""}}));
}

TEST(ExerciseForCase2781, FailsOnAValueThatDoesNotSayWhoSetIt) {
  for (std::size_t row = 30; row <= 33; ++row) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(row, "ecode4", "b").Failures(),
              Lines{CellDiffers(EXPERIMENT, row, "b (trial)")});
  }
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(34, "ecode4", "b|b").Failures(),
            Lines{CellDiffers(EXPERIMENT, 34, "b (event)|b (trial)")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(29, "ecode4", "b (event)").Failures(),
            Lines{CellDiffers(EXPERIMENT, 29, "b")});
}

TEST(ExerciseForCase2781, FailsAllThreeLengthsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
            (Lines{TooManyCells(EXPERIMENT), TooManyCells(EXPERIMENT), TooManyCells(EXPERIMENT)}));
}

TEST(ExerciseForCase2781, FailsAllThreeLengthsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveRow(20).Failures(),
            (Lines{TooFewCells(EXPERIMENT), TooFewCells(EXPERIMENT), TooFewCells(EXPERIMENT)}));
}

TEST(ExerciseForCase2781, ComparesTheCodesAfterAFailureOfTheEvents) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(20, "Event\nName", "E1")
                .Set(4, "tcode1", "a")
                .Set(34, "ecode4", "")
                .SetDuration("27999")
                .Failures(),
            (Lines{CellDiffers(EXPERIMENT, 20, "E6"), CellDiffers(EXPERIMENT, 4, ""),
                   CellDiffers(EXPERIMENT, 34, "b (event)|b (trial)"),
                   DurationOutOfBounds(EXPERIMENT, 28000, 29700, "27999")}));
}

TEST(ExerciseForCase2781, FailsWithoutItsColumns) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "E1")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("tcode1").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("ecode4").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "")});
}

}  // namespace
}  // namespace Tests
