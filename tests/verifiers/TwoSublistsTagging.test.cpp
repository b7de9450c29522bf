#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "two_sublists_tagging.om5";

TEST(TwoSublistsTagging, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite two_sublists_tagging.om5",
                   "pass VerifyDatafile_was_called_for_two_sublists_tagging.om5",
                   "pass Data_appears_completely_and_in_order",
                   "pass Data_appears_completely_and_in_order",
                   "pass Experiment_duration_two_sublists_tagging.om5",
                   "pass Expansion_duration_two_sublists_tagging.om5",
                   "pass __TIMING__TRACKING__two_sublists_tagging.om5__927_ms",
                   "pass __EXPANSION__TRACKING__two_sublists_tagging.om5__58_ms"}));
}

TEST(TwoSublistsTagging, FailsOnEachWrongTag) {
  ASSERT_EQ(DataFile::Sample(EXPERIMENT).RowCount(), 9u);
  ExpectEachCellIsCompared(EXPERIMENT, "color");
  ExpectEachCellIsCompared(EXPERIMENT, "direction");
}

TEST(TwoSublistsTagging, ComparesBothColumnsInOrder) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Set(4, "color", "blue").Set(5, "direction", "down").Failures(),
      (Lines{CellDiffers(EXPERIMENT, 4, "red"), CellDiffers(EXPERIMENT, 5, "up")}));
}

TEST(TwoSublistsTagging, FailsTwiceByTheLengthOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
            Lines(2, TooManyCells(EXPERIMENT)));
}

TEST(TwoSublistsTagging, FailsTwiceByTheLengthOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(8).SetDuration("927").Failures(),
            Lines(2, TooFewCells(EXPERIMENT)));
}

TEST(TwoSublistsTagging, FailsWithoutAColumnOfTags) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("color").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "blue")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("direction").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "down")});
}

TEST(TwoSublistsTagging, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(8, "direction", "up")
          .SetDuration("899")
          .SetExpansion("401")
          .Failures(),
      (Lines{CellDiffers(EXPERIMENT, 8, "down"), DurationOutOfBounds(EXPERIMENT, 900, 5200, "899"),
             ExpansionOutOfBounds(EXPERIMENT, 0, 400, "401")}));
}

TEST(TwoSublistsTagging, AsksTheTwoMachinesBoundsInOrder) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).SetDuration("899").Failures(BOTH_MACHINES),
            (Lines{DurationOutOfBounds(EXPERIMENT, 900, 1100, "899"),
                   DurationOutOfBounds(EXPERIMENT, 900, 11600, "899"),
                   ExpansionOutOfBounds(EXPERIMENT, 150, 250, "58")}));
}

TEST(TwoSublistsTagging, JudgesEachOfSeveralFilesByItself) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(0, "color", "red").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "blue")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
