#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2015-06-01_ways_to_attach_responses_in_RStep.om5";

DataFile Sample() { return DataFile::Sample(EXPERIMENT); }

TEST(TestWaysToAttachResponses, PassesItsSampleWithoutABoundOnExpansion) {
  EXPECT_EQ(
      Sample().Verify(),
      (Lines{"suite 2015-06-01_ways_to_attach_responses_in_RStep.om5",
             "pass VerifyDatafile_was_called_for_2015-06-01_ways_to_attach_responses_in_RStep.om5",
             "pass Data_appears_completely_and_in_order",
             "pass Experiment_duration_2015-06-01_ways_to_attach_responses_in_RStep.om5",
             "pass __TIMING__TRACKING__2015-06-01_ways_to_attach_responses_in_RStep.om5__455_ms",
             "pass __EXPANSION__TRACKING__"
             "2015-06-01_ways_to_attach_responses_in_RStep.om5__52_ms"}));
}

TEST(TestWaysToAttachResponses, FailsOnAChangeOfAnyComparedCell) {
  ExpectEachCellIsCompared(EXPERIMENT, "Block\nName",
                           Cells({{4, "b1"}, {5, "b2 no subblocks (due to v4 rand settings)"}}));
}

TEST(TestWaysToAttachResponses, FailsOnAWrongNumberOfRows) {
  EXPECT_EQ(Sample().RepeatLastRow().Failures(), Lines{TooManyCells(EXPERIMENT)});
  EXPECT_EQ(Sample().KeepRows(8).Failures(), Lines{TooFewCells(EXPERIMENT)});
}

TEST(TestWaysToAttachResponses, FailsWithoutItsColumn) {
  EXPECT_EQ(Sample().RemoveColumn("Block\nName").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "b1")});
}

TEST(TestWaysToAttachResponses, ChecksTheBoundAfterAFailure) {
  EXPECT_EQ(Sample().Set(4, "Block\nName", "b1").SetDuration("1101").Failures(),
            (Lines{CellDiffers(EXPERIMENT, 4, "b2 no subblocks (due to v4 rand settings)"),
                   DurationOutOfBounds(EXPERIMENT, 180, 1100, "1101")}));
}

TEST(TestWaysToAttachResponses, HasNoBoundOnTheSmallTestMachine) {
  EXPECT_EQ(
      Sample().SetDuration("1").SetExpansion("99999").Verify(TESTBOX_MACHINE),
      (Lines{"suite 2015-06-01_ways_to_attach_responses_in_RStep.om5",
             "pass VerifyDatafile_was_called_for_2015-06-01_ways_to_attach_responses_in_RStep.om5",
             "pass Data_appears_completely_and_in_order",
             "pass __TIMING__TRACKING__2015-06-01_ways_to_attach_responses_in_RStep.om5__1_ms",
             "pass __EXPANSION__TRACKING__"
             "2015-06-01_ways_to_attach_responses_in_RStep.om5__99999_ms"}));
}

TEST(TestWaysToAttachResponses, LooksAtEachFileAfresh) {
  EXPECT_EQ(Sample().KeepRows(8).Failures(), Lines{TooFewCells(EXPERIMENT)});
  EXPECT_EQ(Sample().Failures(), Lines{});
  EXPECT_EQ(FailuresOf(VerifyBytes(EXPERIMENT, "six\nlines\nare\nnot\nenough\nhere\n")),
            Lines{CannotBeRead(EXPERIMENT)});
  EXPECT_EQ(Sample().Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
