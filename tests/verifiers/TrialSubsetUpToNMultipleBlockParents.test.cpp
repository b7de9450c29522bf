#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "trial_subset_multiple_block_macro_import.om4";
const char* const EVENT = "Event\nName";
const char* const CODE = "red_blue";

const std::string TOO_MANY =
    Fail("Correct_quantity_of_data_cells", "Too many data cells. More than expected.", EXPERIMENT,
         89, "No extra info.");
const std::string TOO_FEW =
    Fail("Correct_quantity_of_data_cells", "Too few data cells. Fewer than expected.", EXPERIMENT,
         98, "No extra info.");

std::string WrongCell(size_t row, const std::string& expected) {
  return Fail("Data_appears_completely_and_in_order",
              "Mismatch in the ordering of data cells in datafile.", EXPERIMENT, 144,
              "At datafile row index " + std::to_string(row) + " we expected {" + expected +
                  "}, but that was not the actual content.");
}

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
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  ASSERT_EQ(sample.RowCount(), 48U);
  for (const char* column : {EVENT, CODE}) {
    for (size_t row = 0; row < sample.RowCount(); ++row) {
      DataFile file = sample;
      EXPECT_EQ(file.Set(row, column, "another").Failures(),
                Lines{WrongCell(row, sample.Cell(row, column))})
          << column;
    }
  }
}

TEST(TrialSubsetUpToNMultipleBlockParents, HoldsTheOrderOfTheTwoMacros) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).SwapRows(30, 31).Failures(),
            Lines{WrongCell(30, "a0 macro")});
}

TEST(TrialSubsetUpToNMultipleBlockParents, ComparesTheEventsBeforeTheCode) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(47, EVENT, "another").Set(7, CODE, "red").Failures(),
            (Lines{WrongCell(47, "red"), WrongCell(7, "")}));
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
            Lines{WrongCell(0, "red")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(CODE).Failures(), Lines{WrongCell(0, "red")});
}

TEST(TrialSubsetUpToNMultipleBlockParents, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(1, CODE, "another")
          .SetDuration("2001")
          .SetExpansion("5001")
          .Failures(),
      (Lines{WrongCell(1, "blue"),
             Fail("Experiment_duration_trial_subset_multiple_block_macro_import.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 880 and 2000. Instead, we got a duration of 2001."),
             Fail("Expansion_duration_trial_subset_multiple_block_macro_import.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 0 and 5000. Instead, we got a duration of 5001.")}));
}

}  // namespace
}  // namespace Tests
