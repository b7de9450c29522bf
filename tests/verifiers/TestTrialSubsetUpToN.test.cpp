#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "trial_subset_only_the_last_N_versus_up_to_N.om4";
const char* const EVENT = "Event\nName";
const char* const CODE = "red_blue";

const std::string TOO_MANY = TooManyCells(EXPERIMENT);
const std::string TOO_FEW = TooFewCells(EXPERIMENT);

TEST(TestTrialSubsetUpToN, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{"suite trial_subset_only_the_last_N_versus_up_to_N.om4",
             "pass VerifyDatafile_was_called_for_trial_subset_only_the_last_N_versus_up_to_N.om4",
             "pass Data_appears_completely_and_in_order",
             "pass Data_appears_completely_and_in_order",
             "pass Experiment_duration_trial_subset_only_the_last_N_versus_up_to_N.om4",
             "pass Expansion_duration_trial_subset_only_the_last_N_versus_up_to_N.om4",
             "pass __TIMING__TRACKING__trial_subset_only_the_last_N_versus_up_to_N.om4__527_ms",
             "pass "
             "__EXPANSION__TRACKING__trial_subset_only_the_last_N_versus_up_to_N.om4__38_ms"}));
}

TEST(TestTrialSubsetUpToN, HoldsEachCellOfBothColumns) {
  ASSERT_EQ(DataFile::Sample(EXPERIMENT).RowCount(), 44U);
  ExpectEachCellIsCompared(EXPERIMENT, EVENT);
  ExpectEachCellIsCompared(EXPERIMENT, CODE);
}

TEST(TestTrialSubsetUpToN, TellsTheHalvesApartByTheirEvents) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(0, EVENT, "red1").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "red")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(22, EVENT, "red").Failures(),
            Lines{CellDiffers(EXPERIMENT, 22, "red1")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(28, EVENT, "a0 macro").Failures(),
            Lines{CellDiffers(EXPERIMENT, 28, "a1 macro")});
}

TEST(TestTrialSubsetUpToN, ComparesTheEventsBeforeTheCode) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(43, EVENT, "another").Set(6, CODE, "red").Failures(),
            (Lines{CellDiffers(EXPERIMENT, 43, "red1"), CellDiffers(EXPERIMENT, 6, "")}));
}

TEST(TestTrialSubsetUpToN, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), (Lines{TOO_MANY, TOO_MANY}));
}

TEST(TestTrialSubsetUpToN, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(43).SetDuration("527").Failures(),
            (Lines{TOO_FEW, TOO_FEW}));
}

TEST(TestTrialSubsetUpToN, FailsWithoutEitherColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(EVENT).Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "red")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(CODE).Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "red")});
}

TEST(TestTrialSubsetUpToN, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(1, EVENT, "another")
          .SetDuration("1001")
          .SetExpansion("5001")
          .Failures(),
      (Lines{CellDiffers(EXPERIMENT, 1, "blue"), DurationOutOfBounds(EXPERIMENT, 200, 1000, "1001"),
             ExpansionOutOfBounds(EXPERIMENT, 0, 5000, "5001")}));
}

}  // namespace
}  // namespace Tests
