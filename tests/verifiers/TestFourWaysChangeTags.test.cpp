#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2014-11-17_four_ways_to_change_a_tag.om5";

const Lines PASSING = {
    "suite 2014-11-17_four_ways_to_change_a_tag.om5",
    "pass VerifyDatafile_was_called_for_2014-11-17_four_ways_to_change_a_tag.om5",
    "pass Data_appears_completely_and_in_order",
    "pass Data_appears_completely_and_in_order",
    "pass __TIMING__TRACKING__2014-11-17_four_ways_to_change_a_tag.om5__1533_ms",
    "pass __EXPANSION__TRACKING__2014-11-17_four_ways_to_change_a_tag.om5__27_ms"};

TEST(TestFourWaysChangeTags, PassesItsSampleWithoutAnyBound) {
  for (const char* machine : {ORDINARY_MACHINE, SERVER_MACHINE, TESTBOX_MACHINE, BOTH_MACHINES}) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(machine), PASSING) << machine;
  }
}

TEST(TestFourWaysChangeTags, AcceptsAnyRunTime) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).SetDuration("9999999").SetExpansion("9999999").Failures(),
            Lines{});
}

TEST(TestFourWaysChangeTags, ComparesEachCellOfTheEventsTag) {
  ExpectEachCellIsCompared(EXPERIMENT, "event_set",
                           {"", "set_by_event_first_time",
                            "set_by_event_first_time (event)|set_by_trial_2nd_time (trial)"});
}

TEST(TestFourWaysChangeTags, ComparesEachCellOfTheTrialsTag) {
  ExpectEachCellIsCompared(EXPERIMENT, "trial_set",
                           {"", "set_by_event_first_time", "set_by_trial_2nd_time"});
}

TEST(TestFourWaysChangeTags, FailsOnAValueBeforeTheFirstChange) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(0, "event_set", "set_by_event_first_time")
                .Set(0, "trial_set", "set_by_event_first_time")
                .Failures(),
            (Lines{CellDiffers(EXPERIMENT, 0, ""), CellDiffers(EXPERIMENT, 0, "")}));
}

TEST(TestFourWaysChangeTags, FailsOnTheLaterValueAloneAsAnEventsTag) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(2, "event_set", "set_by_trial_2nd_time").Failures(),
            Lines{CellDiffers(EXPERIMENT, 2,
                              "set_by_event_first_time (event)|set_by_trial_2nd_time (trial)")});
}

TEST(TestFourWaysChangeTags, FailsOnBothValuesAsATrialsTag) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(2, "trial_set", "set_by_event_first_time (event)|set_by_trial_2nd_time (trial)")
          .Failures(),
      Lines{CellDiffers(EXPERIMENT, 2, "set_by_trial_2nd_time")});
}

TEST(TestFourWaysChangeTags, FailsOnAnyOtherLength) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
            (Lines{TooManyCells(EXPERIMENT), TooManyCells(EXPERIMENT)}));
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(2).Failures(),
            (Lines{TooFewCells(EXPERIMENT), TooFewCells(EXPERIMENT)}));
}

TEST(TestFourWaysChangeTags, FailsWithoutItsColumns) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("event_set").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "")});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("trial_set").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "")});
}

TEST(TestFourWaysChangeTags, ForgetsTheFileBefore) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(1).Failures().size(), 2u);
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(), PASSING);
}

}  // namespace
}  // namespace Tests
