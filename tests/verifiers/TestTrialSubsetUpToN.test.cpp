#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "trial_subset_only_the_last_N_versus_up_to_N.om4";
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
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  ASSERT_EQ(sample.RowCount(), 44U);
  for (const char* column : {EVENT, CODE}) {
    for (size_t row = 0; row < sample.RowCount(); ++row) {
      DataFile file = sample;
      EXPECT_EQ(file.Set(row, column, "another").Failures(),
                Lines{WrongCell(row, sample.Cell(row, column))})
          << column;
    }
  }
}

TEST(TestTrialSubsetUpToN, TellsTheHalvesApartByTheirEvents) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(0, EVENT, "red1").Failures(),
            Lines{WrongCell(0, "red")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(22, EVENT, "red").Failures(),
            Lines{WrongCell(22, "red1")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(28, EVENT, "a0 macro").Failures(),
            Lines{WrongCell(28, "a1 macro")});
}

TEST(TestTrialSubsetUpToN, ComparesTheEventsBeforeTheCode) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(43, EVENT, "another").Set(6, CODE, "red").Failures(),
            (Lines{WrongCell(43, "red1"), WrongCell(6, "")}));
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
            Lines{WrongCell(0, "red")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(CODE).Failures(), Lines{WrongCell(0, "red")});
}

TEST(TestTrialSubsetUpToN, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(1, EVENT, "another")
          .SetDuration("1001")
          .SetExpansion("5001")
          .Failures(),
      (Lines{WrongCell(1, "blue"),
             Fail("Experiment_duration_trial_subset_only_the_last_N_versus_up_to_N.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 200 and 1000. Instead, we got a duration of 1001."),
             Fail("Expansion_duration_trial_subset_only_the_last_N_versus_up_to_N.om4",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  EXPERIMENT, 228,
                  "Expected a duration between 0 and 5000. Instead, we got a duration of 5001.")}));
}

}  // namespace
}  // namespace Tests
