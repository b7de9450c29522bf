#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "exit_block_using_subset_with_mutable_codes.om4";

const Lines PASSING = {
    "suite exit_block_using_subset_with_mutable_codes.om4",
    "pass VerifyDatafile_was_called_for_exit_block_using_subset_with_mutable_codes.om4",
    "pass Data_appears_completely_and_in_order",
    "pass Data_appears_completely_and_in_order",
    "pass Data_appears_completely_and_in_order",
    "pass Experiment_duration_exit_block_using_subset_with_mutable_codes.om4",
    "pass Expansion_duration_exit_block_using_subset_with_mutable_codes.om4",
    "pass __TIMING__TRACKING__exit_block_using_subset_with_mutable_codes.om4__3391_ms",
    "pass __EXPANSION__TRACKING__exit_block_using_subset_with_mutable_codes.om4__31_ms"};

TEST(TestRStepMutableCodes, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(), PASSING);
}

TEST(TestRStepMutableCodes, ComparesEachEvent) {
  ExpectEachCellIsCompared(
      EXPERIMENT, "Event\nName",
      {"a (1, one)", "filler", "a (2, two)", "filler", "a (3, three)", "filler", "done",
       "a (1, one)", "filler", "a (2, two)", "filler", "a (3, three)", "filler", "done"});
}

TEST(TestRStepMutableCodes, ComparesEachCellOfTheFirstCode) {
  ExpectEachCellIsCompared(EXPERIMENT, "trial_hey", Cells({{6, "a"}, {1, ""}, {6, "a"}, {1, ""}}));
}

TEST(TestRStepMutableCodes, ComparesEachCellOfTheSecondCode) {
  ExpectEachCellIsCompared(EXPERIMENT, "trial_b",
                           Cells({{6, "c"}, {1, ""}, {4, "c"}, {2, "d"}, {1, ""}}));
}

TEST(TestRStepMutableCodes, FailsOnACodeThatLeaksIntoADoneRow) {
  for (const std::size_t done : {std::size_t{6}, std::size_t{13}}) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(done, "trial_hey", "a").Failures(),
              Lines{CellDiffers(EXPERIMENT, done, "")});
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(done, "trial_b", "d").Failures(),
              Lines{CellDiffers(EXPERIMENT, done, "")});
  }
}

TEST(TestRStepMutableCodes, FailsOnAChangeThatComesTooSoonOrTooLate) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(10, "trial_b", "d").Failures(),
            Lines{CellDiffers(EXPERIMENT, 10, "c")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(11, "trial_b", "c").Failures(),
            Lines{CellDiffers(EXPERIMENT, 11, "d")});
}

TEST(TestRStepMutableCodes, ComparesTheCodesAfterAFailureOfTheEvents) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(2, "Event\nName", "filler")
          .Set(5, "trial_b", "")
          .SetExpansion("9")
          .Verify(),
      (Lines{"suite exit_block_using_subset_with_mutable_codes.om4",
             "pass VerifyDatafile_was_called_for_exit_block_using_subset_with_mutable_codes.om4",
             CellDiffers(EXPERIMENT, 2, "a (2, two)"), "pass Data_appears_completely_and_in_order",
             CellDiffers(EXPERIMENT, 5, "c"),
             "pass Experiment_duration_exit_block_using_subset_with_mutable_codes.om4",
             ExpansionOutOfBounds(EXPERIMENT, 10, 50, "9"),
             "pass __TIMING__TRACKING__exit_block_using_subset_with_mutable_codes.om4__3391_ms",
             "pass __EXPANSION__TRACKING__exit_block_using_subset_with_mutable_codes.om4__9_ms"}));
}

TEST(TestRStepMutableCodes, FailsOnAnyOtherLength) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
            (Lines{TooManyCells(EXPERIMENT), TooManyCells(EXPERIMENT), TooManyCells(EXPERIMENT)}));
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveRow(0).Failures(),
            (Lines{TooFewCells(EXPERIMENT), TooFewCells(EXPERIMENT), TooFewCells(EXPERIMENT)}));
}

TEST(TestRStepMutableCodes, FailsWithoutItsColumns) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "a (1, one)")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("trial_hey").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "a")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("trial_b").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "c")});
}

}  // namespace
}  // namespace Tests
