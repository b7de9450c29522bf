#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2-15-13-limit_trial_repeats_fb_test.om5";

TEST(Test_2_15_13_limit_trial_repeats_fb_test, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite 2-15-13-limit_trial_repeats_fb_test.om5",
                   "pass VerifyDatafile_was_called_for_2-15-13-limit_trial_repeats_fb_test.om5",
                   "pass Data_appears_completely_and_in_order",
                   "pass Experiment_duration_2-15-13-limit_trial_repeats_fb_test.om5",
                   "pass Expansion_duration_2-15-13-limit_trial_repeats_fb_test.om5",
                   "pass __TIMING__TRACKING__2-15-13-limit_trial_repeats_fb_test.om5__2588_ms",
                   "pass __EXPANSION__TRACKING__2-15-13-limit_trial_repeats_fb_test.om5__14_ms"}));
}

TEST(Test_2_15_13_limit_trial_repeats_fb_test, FailsOnAChangeOfAnyComparedCell) {
  ExpectEachCellIsCompared(
      EXPERIMENT, "Event\nName",
      {"event w/ repeat trial fb", "event w/ repeat trial fb",
       "event w/ repeat trial fb, seen once", "event w/ repeat trial fb", "final event"});
}

TEST(Test_2_15_13_limit_trial_repeats_fb_test, LooksAtNoContentOfAWrongLengthButAtTheBounds) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Verify(),
            (Lines{"suite 2-15-13-limit_trial_repeats_fb_test.om5",
                   "pass VerifyDatafile_was_called_for_2-15-13-limit_trial_repeats_fb_test.om5",
                   TooManyCells(EXPERIMENT),
                   "pass Experiment_duration_2-15-13-limit_trial_repeats_fb_test.om5",
                   "pass Expansion_duration_2-15-13-limit_trial_repeats_fb_test.om5",
                   "pass __TIMING__TRACKING__2-15-13-limit_trial_repeats_fb_test.om5__2588_ms",
                   "pass __EXPANSION__TRACKING__2-15-13-limit_trial_repeats_fb_test.om5__14_ms"}));
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).KeepRows(4).SetDuration("2701").SetExpansion("26").Failures(),
      (Lines{TooFewCells(EXPERIMENT), DurationOutOfBounds(EXPERIMENT, 2500, 2700, "2701"),
             ExpansionOutOfBounds(EXPERIMENT, 5, 25, "26")}));
}

TEST(Test_2_15_13_limit_trial_repeats_fb_test, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "event w/ repeat trial fb")});
}

}  // namespace
}  // namespace Tests
