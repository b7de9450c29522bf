#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "trial_subset_multiple_block_macro_import.om4";
const char* const EVENT = "Event\nName";
const char* const CODE = "red_blue";

const std::string TOO_MANY = TooManyCells(EXPERIMENT);
const std::string TOO_FEW = TooFewCells(EXPERIMENT);

TEST(TrialSubsetUpToNMultipleBlockParents, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{"suite trial_subset_multiple_block_macro_import.om4",
             "pass VerifyDatafile_was_called_for_trial_subset_multiple_block_macro_import.om4",
             "pass Data_appears_completely_and_in_order",
             "pass Data_appears_completely_and_in_order",
             "pass Experiment_duration_trial_subset_multiple_block_macro_import.om4",
             "pass Expansion_duration_trial_subset_multiple_block_macro_import.om4",
             "pass __TIMING__TRACKING__trial_subset_multiple_block_macro_import.om4__1187_ms",
             "pass __EXPANSION__TRACKING__trial_subset_multiple_block_macro_import.om4__40_ms"}));
}

TEST(TrialSubsetUpToNMultipleBlockParents, HoldsEachCellOfBothColumns) {
  ASSERT_EQ(DataFile::Sample(EXPERIMENT).RowCount(), 48U);
  ExpectEachCellIsCompared(EXPERIMENT, EVENT);
  ExpectEachCellIsCompared(EXPERIMENT, CODE);
}

TEST(TrialSubsetUpToNMultipleBlockParents, HoldsTheOrderOfTheTwoMacros) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).SwapRows(30, 31).Failures(),
            Lines{CellDiffers(EXPERIMENT, 30, "a0 macro")});
}

TEST(TrialSubsetUpToNMultipleBlockParents, ComparesTheEventsBeforeTheCode) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(47, EVENT, "another").Set(7, CODE, "red").Failures(),
            (Lines{CellDiffers(EXPERIMENT, 47, "red"), CellDiffers(EXPERIMENT, 7, "")}));
}

TEST(TrialSubsetUpToNMultipleBlockParents, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), (Lines{TOO_MANY, TOO_MANY}));
}

TEST(TrialSubsetUpToNMultipleBlockParents, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(47).SetDuration("1187").Failures(),
            (Lines{TOO_FEW, TOO_FEW}));
}

TEST(TrialSubsetUpToNMultipleBlockParents, FailsWithoutEitherColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(EVENT).Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "red")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(CODE).Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "red")});
}

TEST(TrialSubsetUpToNMultipleBlockParents, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(1, CODE, "another")
          .SetDuration("2001")
          .SetExpansion("5001")
          .Failures(),
      (Lines{CellDiffers(EXPERIMENT, 1, "blue"), DurationOutOfBounds(EXPERIMENT, 880, 2000, "2001"),
             ExpansionOutOfBounds(EXPERIMENT, 0, 5000, "5001")}));
}

}  // namespace
}  // namespace Tests
