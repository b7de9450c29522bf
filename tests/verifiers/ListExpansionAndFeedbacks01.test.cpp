#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2012-12-06_stimlist_events_oddly_attached_as_feedbacks.om4";

TEST(ListExpansionAndFeedbacks01, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{"suite 2012-12-06_stimlist_events_oddly_attached_as_feedbacks.om4",
             "pass VerifyDatafile_was_called_for_"
             "2012-12-06_stimlist_events_oddly_attached_as_feedbacks.om4",
             "pass Data_appears_completely_and_in_order",
             "pass Data_appears_completely_and_in_order",
             "pass Experiment_duration_2012-12-06_stimlist_events_oddly_attached_as_feedbacks.om4",
             "pass Expansion_duration_2012-12-06_stimlist_events_oddly_attached_as_feedbacks.om4",
             "pass __TIMING__TRACKING__"
             "2012-12-06_stimlist_events_oddly_attached_as_feedbacks.om4__466_ms",
             "pass __EXPANSION__TRACKING__"
             "2012-12-06_stimlist_events_oddly_attached_as_feedbacks.om4__18_ms"}));
}

TEST(ListExpansionAndFeedbacks01, FailsOnAChangeOfAnyComparedCell) {
  ExpectEachCellIsCompared(
      EXPERIMENT, "Trial\nName",
      Cells({{2, "a"}, {3, "b, 1"}, {3, "b, 2"}, {3, "b, 3"}, {2, "c"}, {1, "b, 1"}}));
  ExpectEachCellIsCompared(
      EXPERIMENT, "Event\nName",
      {"1", "2 (1, 1a)", "3 (1, 2a)", "4", "3 (1, 2a)", "3 (2, 2b)", "4", "3 (1, 2a)", "3 (3, 2c)",
       "4", "3 (1, 2a)", "5", "6 (1, 3a)", "show trial that ends up in a NAME CLASH"});
}

TEST(ListExpansionAndFeedbacks01, FailsTwiceOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
            (Lines{TooManyCells(EXPERIMENT), TooManyCells(EXPERIMENT)}));
}

TEST(ListExpansionAndFeedbacks01, FailsTwiceOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(13).SetDuration("466").Failures(),
            (Lines{TooFewCells(EXPERIMENT), TooFewCells(EXPERIMENT)}));
}

TEST(ListExpansionAndFeedbacks01, FailsWithoutItsColumns) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .RemoveColumn("Trial\nName")
                .RemoveColumn("Event\nName")
                .Failures(),
            (Lines{CellDiffers(EXPERIMENT, 0, "a"), CellDiffers(EXPERIMENT, 0, "1")}));
}

TEST(ListExpansionAndFeedbacks01, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(13, "Trial\nName", "b, 2")
          .SetDuration("521")
          .SetExpansion("4")
          .Failures(),
      (Lines{CellDiffers(EXPERIMENT, 13, "b, 1"), DurationOutOfBounds(EXPERIMENT, 420, 520, "521"),
             ExpansionOutOfBounds(EXPERIMENT, 5, 40, "4")}));
}

}  // namespace
}  // namespace Tests
