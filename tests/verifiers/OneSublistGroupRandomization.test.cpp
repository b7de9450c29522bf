#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/TodayIs.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "one_sublist_group_randomization.om5";

std::string ContentFailure(size_t row, const std::string& expected) {
  return Fail("Data_appears_completely_and_in_order",
              "Mismatch in the ordering of data cells in datafile.", EXPERIMENT, 144,
              "At datafile row index " + std::to_string(row) + " we expected {" + expected +
                  "}, but that was not the actual content.");
}

std::string BoundFailure(const std::string& name, const std::string& message) {
  return Fail(name, "Experiment duration is weird. Too short or too long (see details below).",
              EXPERIMENT, 228, message);
}

// What the host draws on the Mac until the first of March 2016.
DataFile TemporaryFile() {
  return DataFile::Sample(EXPERIMENT)
      .SetColumn("Event\nName", {"e (1, 1)", "e (2, 2)", "e (4, 4)", "e (5, 5)"});
}

TEST(OneSublistGroupRandomization, PassesItsSample) {
  const TodayIs today(2016, 3, 1);
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite one_sublist_group_randomization.om5",
                   "pass VerifyDatafile_was_called_for_one_sublist_group_randomization.om5",
                   "pass Data_appears_completely_and_in_order",
                   "pass Experiment_duration_one_sublist_group_randomization.om5",
                   "pass Expansion_duration_one_sublist_group_randomization.om5",
                   "pass __TIMING__TRACKING__one_sublist_group_randomization.om5__414_ms",
                   "pass __EXPANSION__TRACKING__one_sublist_group_randomization.om5__61_ms"}));
}

TEST(OneSublistGroupRandomization, ComparesTheTemporaryListAloneUntilTheLastDayOfFebruary) {
  const TodayIs today(2016, 2, 29);
  EXPECT_EQ(TemporaryFile().Verify(),
            (Lines{"suite one_sublist_group_randomization.om5",
                   "pass VerifyDatafile_was_called_for_one_sublist_group_randomization.om5",
                   "pass Data_appears_completely_and_in_order",
                   "pass Experiment_duration_one_sublist_group_randomization.om5",
                   "pass Expansion_duration_one_sublist_group_randomization.om5",
                   "pass __TIMING__TRACKING__one_sublist_group_randomization.om5__414_ms",
                   "pass __EXPANSION__TRACKING__one_sublist_group_randomization.om5__61_ms"}));
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Failures(), Lines{ContentFailure(0, "e (1, 1)")});
}

TEST(OneSublistGroupRandomization, ComparesTheTemporaryListLongBeforeTheDateToo) {
  const TodayIs today(2015, 12, 31);
  EXPECT_EQ(TemporaryFile().Failures(), Lines{});
}

TEST(OneSublistGroupRandomization, ComparesTheRegularListFromTheFirstOfMarchOn) {
  {
    const TodayIs today(2016, 3, 1);
    EXPECT_EQ(TemporaryFile().Failures(), Lines{ContentFailure(0, "e (2, 2)")});
  }
  {
    const TodayIs today(2031, 1, 15);
    EXPECT_EQ(TemporaryFile().Failures(), Lines{ContentFailure(0, "e (2, 2)")});
  }
}

TEST(OneSublistGroupRandomization, FailsOnEachWrongCell) {
  const TodayIs today(2016, 3, 1);
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  ASSERT_EQ(sample.RowCount(), 4u);
  for (size_t row = 0; row < sample.RowCount(); ++row) {
    EXPECT_EQ(DataFile(sample).Set(row, "Event\nName", "e").Failures(),
              Lines{ContentFailure(row, sample.Cell(row, "Event\nName"))});
  }
}

TEST(OneSublistGroupRandomization, FailsOnEachWrongCellOfTheTemporaryList) {
  const TodayIs today(2016, 2, 29);
  const DataFile file = TemporaryFile();
  for (size_t row = 0; row < file.RowCount(); ++row) {
    EXPECT_EQ(DataFile(file).Set(row, "Event\nName", "e").Failures(),
              Lines{ContentFailure(row, file.Cell(row, "Event\nName"))});
  }
}

TEST(OneSublistGroupRandomization, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
            Lines{Fail("Correct_quantity_of_data_cells", "Too many data cells. More than expected.",
                       EXPERIMENT, 89, "No extra info.")});
}

TEST(OneSublistGroupRandomization, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(3).SetDuration("414").Failures(),
            Lines{Fail("Correct_quantity_of_data_cells", "Too few data cells. Fewer than expected.",
                       EXPERIMENT, 98, "No extra info.")});
}

TEST(OneSublistGroupRandomization, FailsWithoutItsColumn) {
  const TodayIs today(2016, 3, 1);
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            Lines{ContentFailure(0, "e (2, 2)")});
}

TEST(OneSublistGroupRandomization, ChecksTheBoundsAfterAFailure) {
  const TodayIs today(2016, 3, 1);
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(3, "Event\nName", "e (1, 1)")
          .SetDuration("5201")
          .SetExpansion("401")
          .Failures(),
      (Lines{ContentFailure(3, "e (5, 5)"),
             BoundFailure(
                 "Experiment_duration_one_sublist_group_randomization.om5",
                 "Expected a duration between 400 and 5200. Instead, we got a duration of 5201."),
             BoundFailure(
                 "Expansion_duration_one_sublist_group_randomization.om5",
                 "Expected a duration between 0 and 400. Instead, we got a duration of 401.")}));
}

TEST(OneSublistGroupRandomization, AsksTheTwoMachinesBoundsInOrder) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).SetDuration("399").Failures(BOTH_MACHINES),
      (Lines{BoundFailure(
                 "Experiment_duration_one_sublist_group_randomization.om5",
                 "Expected a duration between 410 and 500. Instead, we got a duration of 399."),
             BoundFailure(
                 "Experiment_duration_one_sublist_group_randomization.om5",
                 "Expected a duration between 400 and 11600. Instead, we got a duration of 399."),
             BoundFailure(
                 "Expansion_duration_one_sublist_group_randomization.om5",
                 "Expected a duration between 190 and 250. Instead, we got a duration of 61.")}));
}

// The list is chosen for each file, not once for all.
TEST(OneSublistGroupRandomization, ChoosesTheListAnewForEachFile) {
  for (int run = 0; run < 2; ++run) {
    {
      const TodayIs today(2016, 2, 29);
      EXPECT_EQ(TemporaryFile().Failures(), Lines{});
    }
    {
      const TodayIs today(2016, 3, 1);
      EXPECT_EQ(DataFile::Sample(EXPERIMENT).Failures(), Lines{});
    }
  }
}

}  // namespace
}  // namespace Tests
