#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/TodayIs.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "one_sublist_group_randomization.om5";

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
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Failures(), Lines{CellDiffers(EXPERIMENT, 0, "e (1, 1)")});
}

TEST(OneSublistGroupRandomization, ComparesTheTemporaryListLongBeforeTheDateToo) {
  const TodayIs today(2015, 12, 31);
  EXPECT_EQ(TemporaryFile().Failures(), Lines{});
}

TEST(OneSublistGroupRandomization, ComparesTheRegularListFromTheFirstOfMarchOn) {
  {
    const TodayIs today(2016, 3, 1);
    EXPECT_EQ(TemporaryFile().Failures(), Lines{CellDiffers(EXPERIMENT, 0, "e (2, 2)")});
  }
  {
    const TodayIs today(2031, 1, 15);
    EXPECT_EQ(TemporaryFile().Failures(), Lines{CellDiffers(EXPERIMENT, 0, "e (2, 2)")});
  }
}

TEST(OneSublistGroupRandomization, FailsOnEachWrongCell) {
  const TodayIs today(2016, 3, 1);
  ASSERT_EQ(DataFile::Sample(EXPERIMENT).RowCount(), 4u);
  ExpectEachCellIsCompared(EXPERIMENT, "Event\nName");
}

TEST(OneSublistGroupRandomization, FailsOnEachWrongCellOfTheTemporaryList) {
  const TodayIs today(2016, 2, 29);
  ExpectEachCellIsCompared(EXPERIMENT, "Event\nName", TemporaryFile());
}

TEST(OneSublistGroupRandomization, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
            Lines{TooManyCells(EXPERIMENT)});
}

TEST(OneSublistGroupRandomization, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(3).SetDuration("414").Failures(),
            Lines{TooFewCells(EXPERIMENT)});
}

TEST(OneSublistGroupRandomization, FailsWithoutItsColumn) {
  const TodayIs today(2016, 3, 1);
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "e (2, 2)")});
}

TEST(OneSublistGroupRandomization, ChecksTheBoundsAfterAFailure) {
  const TodayIs today(2016, 3, 1);
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(3, "Event\nName", "e (1, 1)")
                .SetDuration("5201")
                .SetExpansion("401")
                .Failures(),
            (Lines{CellDiffers(EXPERIMENT, 3, "e (5, 5)"),
                   DurationOutOfBounds(EXPERIMENT, 400, 5200, "5201"),
                   ExpansionOutOfBounds(EXPERIMENT, 0, 400, "401")}));
}

TEST(OneSublistGroupRandomization, AsksTheTwoMachinesBoundsInOrder) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).SetDuration("399").Failures(BOTH_MACHINES),
            (Lines{DurationOutOfBounds(EXPERIMENT, 410, 500, "399"),
                   DurationOutOfBounds(EXPERIMENT, 400, 11600, "399"),
                   ExpansionOutOfBounds(EXPERIMENT, 190, 250, "61")}));
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
