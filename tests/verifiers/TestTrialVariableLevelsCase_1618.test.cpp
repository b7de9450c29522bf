#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2011-08-11_tolmey_1618_NumberMemorytest.om4";
const char* const LEVEL = "Random Number Locations\n(Trial Variable)";

const Lines SORTED = {"01 - Left Left",   "02 - Left",   "03 - Middle", "04 - Right",
                      "05 - Right Right", "Invisible01", "Invisible02", "Invisible03",
                      "Invisible04",      "Invisible05"};

const std::string TOO_MANY = TooManyCells(EXPERIMENT);
const std::string TOO_FEW = TooFewCells(EXPERIMENT);
const std::string LEVELS_FAILED =
    Fail("Trial_levels_in_column_6",
         "We didn't find exactly one occurrence of each of the five levels.", EXPERIMENT, 107,
         "There should have been a left-left, a left, a middle, a right, and a right-right."
         "                   "
         "Exactly one of each.");
const std::string SHUFFLE_FAILED =
    Fail("Trial_levels_in_column_6_randomized",
         "could fail VERY RARELY... the levels were in perfect SORTED order rather than random",
         EXPERIMENT, 123,
         "probability dictates this will fail once in a BLUE MOON. normally we expect a SHUFFLED "
         "ordering");

TEST(TestTrialVariableLevelsCase_1618, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{"suite 2011-08-11_tolmey_1618_NumberMemorytest.om4",
             "pass VerifyDatafile_was_called_for_2011-08-11_tolmey_1618_NumberMemorytest.om4",
             "pass Data_appears_completely_and_in_order", "pass Trial_levels_in_column_6",
             "pass Trial_levels_in_column_6_randomized",
             "pass Experiment_duration_2011-08-11_tolmey_1618_NumberMemorytest.om4",
             "pass Expansion_duration_2011-08-11_tolmey_1618_NumberMemorytest.om4",
             "pass __TIMING__TRACKING__2011-08-11_tolmey_1618_NumberMemorytest.om4__1042_ms",
             "pass __EXPANSION__TRACKING__2011-08-11_tolmey_1618_NumberMemorytest.om4__35_ms"}));
}

TEST(TestTrialVariableLevelsCase_1618, HoldsEachCellOfTheCode) {
  ExpectEachCellIsCompared(EXPERIMENT, "Presented", Cells({{10, ""}}));
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Presented").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "")});
}

TEST(TestTrialVariableLevelsCase_1618, CountsEachNamedLevelOnce) {
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  for (std::size_t row = 0; row < sample.RowCount(); ++row) {
    if (sample.Cell(row, LEVEL).rfind("Invisible", 0) == 0) continue;
    DataFile file = sample;
    EXPECT_EQ(file.Set(row, LEVEL, "another level").Failures(), Lines{LEVELS_FAILED}) << row;
  }
  for (std::size_t i = 0; i < 5; ++i) {
    DataFile file = sample;
    EXPECT_EQ(file.Set(0, LEVEL, SORTED[i]).Failures(), Lines{LEVELS_FAILED}) << SORTED[i];
  }
}

TEST(TestTrialVariableLevelsCase_1618, CountsNoOtherLevels) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(0, LEVEL, "another level")
                .Set(3, LEVEL, "")
                .Set(4, LEVEL, "Invisible02")
                .Failures(),
            Lines{});
}

TEST(TestTrialVariableLevelsCase_1618, FailsOnLevelsInSortedOrder) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).SetColumn(LEVEL, SORTED).Failures(),
            Lines{SHUFFLE_FAILED});
}

TEST(TestTrialVariableLevelsCase_1618, TakesADifferenceInAnyRowForAShuffle) {
  for (std::size_t row = 5; row < 10; ++row) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                  .SetColumn(LEVEL, SORTED)
                  .Set(row, LEVEL, "another level")
                  .Failures(),
              Lines{})
        << row;
  }
  for (std::size_t row = 0; row < 5; ++row) {
    DataFile file = DataFile::Sample(EXPERIMENT);
    file.SetColumn(LEVEL, SORTED);
    file.Set(row, LEVEL, SORTED[row + 5]).Set(row + 5, LEVEL, SORTED[row]);
    EXPECT_EQ(file.Failures(), Lines{}) << row;
  }
}

// Beyond ten rows nothing is compared, but levels still count.
TEST(TestTrialVariableLevelsCase_1618, ComparesNoMoreThanTenRows) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), Lines{TOO_MANY});
  DataFile file = DataFile::Sample(EXPERIMENT);
  file.SetColumn(LEVEL, SORTED).RepeatLastRow().RepeatLastRow();
  EXPECT_EQ(file.Set(10, LEVEL, "another level").Failures(), (Lines{TOO_MANY, SHUFFLE_FAILED}));
  EXPECT_EQ(file.Set(11, LEVEL, "02 - Left").Failures(),
            (Lines{TOO_MANY, LEVELS_FAILED, SHUFFLE_FAILED}));
}

TEST(TestTrialVariableLevelsCase_1618, ComparesTheRowsThatAShortFileHas) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .SetColumn(LEVEL, SORTED)
                .KeepRows(9)
                .SetDuration("1042")
                .Failures(),
            (Lines{TOO_FEW, SHUFFLE_FAILED}));
}

TEST(TestTrialVariableLevelsCase_1618, FailsWithoutTheLevels) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(LEVEL).Failures(), Lines{LEVELS_FAILED});
}

TEST(TestTrialVariableLevelsCase_1618, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(2, "Presented", "yes")
          .SetDuration("1091")
          .SetExpansion("5001")
          .Failures(),
      (Lines{CellDiffers(EXPERIMENT, 2, ""), DurationOutOfBounds(EXPERIMENT, 1000, 1090, "1091"),
             ExpansionOutOfBounds(EXPERIMENT, 0, 5000, "5001")}));
}

TEST(TestTrialVariableLevelsCase_1618, CountsAfreshForEachFile) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Failures(), Lines{});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
