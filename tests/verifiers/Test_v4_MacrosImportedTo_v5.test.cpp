#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "import_v4_macros.om4";

TEST(Test_v4_MacrosImportedTo_v5, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{
          "suite import_v4_macros.om4", "pass VerifyDatafile_was_called_for_import_v4_macros.om4",
          "pass Data_appears_completely_and_in_order", "pass Data_appears_completely_and_in_order",
          "pass Data_appears_completely_and_in_order",
          "pass Experiment_duration_import_v4_macros.om4",
          "pass Expansion_duration_import_v4_macros.om4",
          "pass __TIMING__TRACKING__import_v4_macros.om4__1304_ms",
          "pass __EXPANSION__TRACKING__import_v4_macros.om4__342_ms"}));
}

TEST(Test_v4_MacrosImportedTo_v5, ComparesEachBlock) {
  ExpectEachCellIsCompared(EXPERIMENT, "Block\nName");
}

TEST(Test_v4_MacrosImportedTo_v5, ComparesEachTrial) {
  ExpectEachCellIsCompared(EXPERIMENT, "Trial\nName");
}

TEST(Test_v4_MacrosImportedTo_v5, ComparesEachEvent) {
  ExpectEachCellIsCompared(EXPERIMENT, "Event\nName");
}

TEST(Test_v4_MacrosImportedTo_v5, FailsAllLengthsOnASixthTrialInTheThirdBlockAndStillTestsBounds) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .RepeatRow(20)
          .Set(21, "Trial\nName", "size_four_list ~|||~ 1, 2")
          .Set(21, "Event\nName", "size_four_list (2, b)")
          .SetDuration("2001")
          .Verify(),
      (Lines{"suite import_v4_macros.om4",
             "pass VerifyDatafile_was_called_for_import_v4_macros.om4", TooManyCells(EXPERIMENT),
             TooManyCells(EXPERIMENT), TooManyCells(EXPERIMENT),
             Fail("Experiment_duration_import_v4_macros.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 600 and 2000. Instead, we got a duration of 2001."),
             "pass Expansion_duration_import_v4_macros.om4",
             "pass __TIMING__TRACKING__import_v4_macros.om4__2001_ms",
             "pass __EXPANSION__TRACKING__import_v4_macros.om4__342_ms"}));
}

TEST(Test_v4_MacrosImportedTo_v5, FailsTheEventsAloneOnAnEventOutOfCycle) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Set(17, "Event\nName", "size_four_list (3, c)").Verify(),
      (Lines{
          "suite import_v4_macros.om4", "pass VerifyDatafile_was_called_for_import_v4_macros.om4",
          "pass Data_appears_completely_and_in_order", "pass Data_appears_completely_and_in_order",
          CellDiffers(EXPERIMENT, 17, "size_four_list (2, b)"),
          "pass Experiment_duration_import_v4_macros.om4",
          "pass Expansion_duration_import_v4_macros.om4",
          "pass __TIMING__TRACKING__import_v4_macros.om4__1304_ms",
          "pass __EXPANSION__TRACKING__import_v4_macros.om4__342_ms"}));
}

TEST(Test_v4_MacrosImportedTo_v5, ComparesAllColumnsWhateverFailsBefore) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(67, "Block\nName", "")
          .Set(57, "Trial\nName", "size_four_list 7, 2")
          .Set(58, "Event\nName", "size_four_list (2, b)")
          .SetExpansion("199")
          .Failures(),
      (Lines{CellDiffers(EXPERIMENT, 67, "repeated block"),
             CellDiffers(EXPERIMENT, 57, "size_four_list 7, 1"),
             CellDiffers(EXPERIMENT, 58, "actions event"),
             Fail("Expansion_duration_import_v4_macros.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 200 and 550. Instead, we got a duration of 199.")}));
}

TEST(Test_v4_MacrosImportedTo_v5, FailsAllLengthsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveRow(0).Failures(),
            (Lines{TooFewCells(EXPERIMENT), TooFewCells(EXPERIMENT), TooFewCells(EXPERIMENT)}));
}

TEST(Test_v4_MacrosImportedTo_v5, FailsWithoutItsColumns) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Block\nName").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "v4 while-true. pre-block. blk runs TWICE")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Trial\nName").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "size_four_list, 1")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "size_four_list (1, a)")});
}

}  // namespace
}  // namespace Tests
