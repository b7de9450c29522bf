#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
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
  ExpectEachCellIsCompared(
      EXPERIMENT, "Block\nName",
      Cells(
          {{8, "v4 while-true. pre-block. blk runs TWICE"},
           {8, "v4 while-False. pre-block. blk runs TWICE"},
           {5, "v4 while-true. pre-Trial. does 6 trials in v4, but *five* in v5. v5 is CORRECT"},
           {2, "v4 IF-true. pre-Trial. does 2 trials in v4"},
           {2, "v4 IF-False. pre-Trial. does 2 trials in v4"},
           {8, "v4 while-true. post-block. blk runs TWICE"},
           {6, "v4 while-true. post-Trial. does 6 trials in v4"},
           {6, "v4 while-False. post-Trial. does 6 trials in v4"},
           {4, "block with three never-true macros. 4 trials in v4"},
           {1, "block with one post-trial macro"},
           {1, "block with one post-trial macro. (copy)"},
           {1, "b2. one post-trial macro: BREAKS in v5 due to *intentional* design/import choices"},
           {1, "b2. one post-trial macro (copy)"},
           {2, "block with single if-false macro. shows 2 trials in v4"},
           {2, "block with single if-true macro. shows 2 trials in v4"},
           {11, "repeated block"}}));
}

TEST(Test_v4_MacrosImportedTo_v5, ComparesEachTrial) {
  ExpectEachCellIsCompared(
      EXPERIMENT, "Trial\nName",
      {"size_four_list, 1",         "size_four_list, 2",         "size_four_list, 3",
       "size_four_list, 4",         "size_four_list, 1",         "size_four_list, 2",
       "size_four_list, 3",         "size_four_list, 4",         "size_four_list, 1",
       "size_four_list, 2",         "size_four_list, 3",         "size_four_list, 4",
       "size_four_list, 1",         "size_four_list, 2",         "size_four_list, 3",
       "size_four_list, 4",         "size_four_list ~|||~ 1, 1", "size_four_list ~|||~ 1, 2",
       "size_four_list ~|||~ 1, 3", "size_four_list ~|||~ 1, 4", "size_four_list ~|||~ 1, 1",
       "size_four_list ~|||~ 2, 1", "size_four_list ~|||~ 2, 2", "size_four_list ~|||~ 3, 1",
       "size_four_list ~|||~ 3, 2", "size_four_list, 1",         "size_four_list, 2",
       "size_four_list, 3",         "size_four_list, 4",         "size_four_list, 1",
       "size_four_list, 2",         "size_four_list, 3",         "size_four_list, 4",
       "size_four_list ~|||~ 4, 1", "size_four_list ~|||~ 4, 2", "size_four_list ~|||~ 4, 3",
       "size_four_list ~|||~ 4, 4", "size_four_list ~|||~ 4, 1", "size_four_list ~|||~ 4, 2",
       "size_four_list ~|||~ 5, 1", "size_four_list ~|||~ 5, 2", "size_four_list ~|||~ 5, 3",
       "size_four_list ~|||~ 5, 4", "size_four_list ~|||~ 5, 1", "size_four_list ~|||~ 5, 2",
       "size_four_list 2, 1",       "size_four_list 2, 2",       "size_four_list 2, 3",
       "size_four_list 2, 4",       "size_four_list 3, 1",       "size_four_list 3, 1",
       "size_four_list 4, 1",       "size_four_list 4, 1",       "size_four_list 5, 1",
       "size_four_list 5, 2",       "size_four_list 6, 1",       "size_four_list 6, 2",
       "size_four_list 7, 1",       "size_four_list 7, 1",       "size_four_list 7, 2",
       "size_four_list 7, 2",       "size_four_list 7, 3",       "size_four_list 7, 3",
       "size_four_list 7, 4",       "size_four_list 7, 4",       "size_four_list 7, 1",
       "size_four_list 7, 1",       "size_four_list 7, 2"});
}

TEST(Test_v4_MacrosImportedTo_v5, ComparesEachEvent) {
  ExpectEachCellIsCompared(
      EXPERIMENT, "Event\nName",
      {"size_four_list (1, a)", "size_four_list (2, b)", "size_four_list (3, c)",
       "size_four_list (4, d)", "size_four_list (1, a)", "size_four_list (2, b)",
       "size_four_list (3, c)", "size_four_list (4, d)", "size_four_list (1, a)",
       "size_four_list (2, b)", "size_four_list (3, c)", "size_four_list (4, d)",
       "size_four_list (1, a)", "size_four_list (2, b)", "size_four_list (3, c)",
       "size_four_list (4, d)", "size_four_list (1, a)", "size_four_list (2, b)",
       "size_four_list (3, c)", "size_four_list (4, d)", "size_four_list (1, a)",
       "size_four_list (1, a)", "size_four_list (2, b)", "size_four_list (1, a)",
       "size_four_list (2, b)", "size_four_list (1, a)", "size_four_list (2, b)",
       "size_four_list (3, c)", "size_four_list (4, d)", "size_four_list (1, a)",
       "size_four_list (2, b)", "size_four_list (3, c)", "size_four_list (4, d)",
       "size_four_list (1, a)", "size_four_list (2, b)", "size_four_list (3, c)",
       "size_four_list (4, d)", "size_four_list (1, a)", "size_four_list (2, b)",
       "size_four_list (1, a)", "size_four_list (2, b)", "size_four_list (3, c)",
       "size_four_list (4, d)", "size_four_list (1, a)", "size_four_list (2, b)",
       "size_four_list (1, a)", "size_four_list (2, b)", "size_four_list (3, c)",
       "size_four_list (4, d)", "size_four_list (1, a)", "size_four_list (1, a)",
       "size_four_list (1, a)", "size_four_list (1, a)", "size_four_list (1, a)",
       "size_four_list (2, b)", "size_four_list (1, a)", "size_four_list (2, b)",
       "size_four_list (1, a)", "actions event",         "size_four_list (2, b)",
       "actions event",         "size_four_list (3, c)", "actions event",
       "size_four_list (4, d)", "actions event",         "size_four_list (1, a)",
       "actions event",         "size_four_list (2, b)"});
}

TEST(Test_v4_MacrosImportedTo_v5, FailsAllLengthsOnASixthTrialInTheThirdBlockAndStillTestsBounds) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .RepeatRow(20)
                .Set(21, "Trial\nName", "size_four_list ~|||~ 1, 2")
                .Set(21, "Event\nName", "size_four_list (2, b)")
                .SetDuration("2001")
                .Verify(),
            (Lines{"suite import_v4_macros.om4",
                   "pass VerifyDatafile_was_called_for_import_v4_macros.om4",
                   TooManyCells(EXPERIMENT), TooManyCells(EXPERIMENT), TooManyCells(EXPERIMENT),
                   DurationOutOfBounds(EXPERIMENT, 600, 2000, "2001"),
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
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(67, "Block\nName", "")
                .Set(57, "Trial\nName", "size_four_list 7, 2")
                .Set(58, "Event\nName", "size_four_list (2, b)")
                .SetExpansion("199")
                .Failures(),
            (Lines{CellDiffers(EXPERIMENT, 67, "repeated block"),
                   CellDiffers(EXPERIMENT, 57, "size_four_list 7, 1"),
                   CellDiffers(EXPERIMENT, 58, "actions event"),
                   ExpansionOutOfBounds(EXPERIMENT, 200, 550, "199")}));
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
