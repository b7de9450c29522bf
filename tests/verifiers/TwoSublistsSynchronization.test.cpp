#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/TodayIs.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "two_sublists_synchronization.om5";

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
      .SetColumn("Event\nName", {"numbers (1, 1)", "numbers (2, 2)", "numbers (5, 5)",
                                 "letters (3, c)", "letters (4, d)"});
}

TEST(TwoSublistsSynchronization, PassesItsSample) {
  const TodayIs today(2016, 3, 1);
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite two_sublists_synchronization.om5",
                   "pass VerifyDatafile_was_called_for_two_sublists_synchronization.om5",
                   "pass Data_appears_completely_and_in_order",
                   "pass Data_appears_completely_and_in_order",
                   "pass Experiment_duration_two_sublists_synchronization.om5",
                   "pass Expansion_duration_two_sublists_synchronization.om5",
                   "pass __TIMING__TRACKING__two_sublists_synchronization.om5__517_ms",
                   "pass __EXPANSION__TRACKING__two_sublists_synchronization.om5__66_ms"}));
}

TEST(TwoSublistsSynchronization, ComparesTheTemporaryListAloneUntilTheLastDayOfFebruary) {
  const TodayIs today(2016, 2, 29);
  EXPECT_EQ(TemporaryFile().Verify(),
            (Lines{"suite two_sublists_synchronization.om5",
                   "pass VerifyDatafile_was_called_for_two_sublists_synchronization.om5",
                   "pass Data_appears_completely_and_in_order",
                   "pass Data_appears_completely_and_in_order",
                   "pass Experiment_duration_two_sublists_synchronization.om5",
                   "pass Expansion_duration_two_sublists_synchronization.om5",
                   "pass __TIMING__TRACKING__two_sublists_synchronization.om5__517_ms",
                   "pass __EXPANSION__TRACKING__two_sublists_synchronization.om5__66_ms"}));
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Failures(), Lines{ContentFailure(0, "numbers (1, 1)")});
}

TEST(TwoSublistsSynchronization, ComparesTheRegularListFromTheFirstOfMarchOn) {
  {
    const TodayIs today(2016, 3, 1);
    EXPECT_EQ(TemporaryFile().Failures(), Lines{ContentFailure(0, "numbers (2, 2)")});
  }
  {
    const TodayIs today(2031, 1, 15);
    EXPECT_EQ(TemporaryFile().Failures(), Lines{ContentFailure(0, "numbers (2, 2)")});
  }
}

TEST(TwoSublistsSynchronization, FailsOnEachWrongCell) {
  const TodayIs today(2016, 3, 1);
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  ASSERT_EQ(sample.RowCount(), 5u);
  for (const char* const column : {"Event\nName", "color"}) {
    for (size_t row = 0; row < sample.RowCount(); ++row) {
      EXPECT_EQ(DataFile(sample).Set(row, column, "x").Failures(),
                Lines{ContentFailure(row, sample.Cell(row, column))})
          << column;
    }
  }
}

TEST(TwoSublistsSynchronization, FailsOnEachWrongCellOfTheTemporaryList) {
  const TodayIs today(2016, 2, 29);
  const DataFile file = TemporaryFile();
  for (size_t row = 0; row < file.RowCount(); ++row) {
    EXPECT_EQ(DataFile(file).Set(row, "Event\nName", "x").Failures(),
              Lines{ContentFailure(row, file.Cell(row, "Event\nName"))});
  }
}

TEST(TwoSublistsSynchronization, ComparesTheTagsInBothCasesAndAfterTheEvents) {
  {
    const TodayIs today(2016, 2, 29);
    EXPECT_EQ(TemporaryFile().Set(3, "Event\nName", "x").Set(2, "color", "blue").Failures(),
              (Lines{ContentFailure(3, "letters (3, c)"), ContentFailure(2, "red")}));
  }
  {
    const TodayIs today(2016, 3, 1);
    EXPECT_EQ(
        DataFile::Sample(EXPERIMENT).Set(3, "Event\nName", "x").Set(2, "color", "blue").Failures(),
        (Lines{ContentFailure(3, "letters (1, a)"), ContentFailure(2, "red")}));
  }
}

TEST(TwoSublistsSynchronization, FailsTwiceByTheLengthOnOneRowTooMany) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
      Lines(2, Fail("Correct_quantity_of_data_cells", "Too many data cells. More than expected.",
                    EXPERIMENT, 89, "No extra info.")));
}

TEST(TwoSublistsSynchronization, FailsTwiceByTheLengthOnOneRowTooFew) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).KeepRows(4).SetDuration("517").Failures(),
      Lines(2, Fail("Correct_quantity_of_data_cells", "Too few data cells. Fewer than expected.",
                    EXPERIMENT, 98, "No extra info.")));
}

TEST(TwoSublistsSynchronization, FailsWithoutItsColumns) {
  const TodayIs today(2016, 3, 1);
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").RemoveColumn("color").Failures(),
      (Lines{ContentFailure(0, "numbers (2, 2)"), ContentFailure(0, "red")}));
}

TEST(TwoSublistsSynchronization, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(4, "color", "blue")
          .SetDuration("499")
          .SetExpansion("401")
          .Failures(),
      (Lines{ContentFailure(4, "red"),
             BoundFailure(
                 "Experiment_duration_two_sublists_synchronization.om5",
                 "Expected a duration between 500 and 5200. Instead, we got a duration of 499."),
             BoundFailure(
                 "Expansion_duration_two_sublists_synchronization.om5",
                 "Expected a duration between 0 and 400. Instead, we got a duration of 401.")}));
}

TEST(TwoSublistsSynchronization, AsksTheTwoMachinesBoundsInOrder) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).SetDuration("499").Failures(BOTH_MACHINES),
      (Lines{BoundFailure(
                 "Experiment_duration_two_sublists_synchronization.om5",
                 "Expected a duration between 500 and 650. Instead, we got a duration of 499."),
             BoundFailure(
                 "Experiment_duration_two_sublists_synchronization.om5",
                 "Expected a duration between 500 and 11600. Instead, we got a duration of 499."),
             BoundFailure(
                 "Expansion_duration_two_sublists_synchronization.om5",
                 "Expected a duration between 150 and 250. Instead, we got a duration of 66.")}));
}

}  // namespace
}  // namespace Tests
