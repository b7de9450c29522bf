#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2014-12-4_fail_to_present_block.om5";

DataFile Sample() { return DataFile::Sample(EXPERIMENT); }

TEST(TestPresentUnexpandedBlock, PassesItsSampleWithoutBounds) {
  EXPECT_EQ(Sample().Verify(),
            (Lines{"suite 2014-12-4_fail_to_present_block.om5",
                   "pass VerifyDatafile_was_called_for_2014-12-4_fail_to_present_block.om5",
                   "pass Data_appears_completely_and_in_order",
                   "pass __TIMING__TRACKING__2014-12-4_fail_to_present_block.om5__203_ms",
                   "pass __EXPANSION__TRACKING__2014-12-4_fail_to_present_block.om5__31_ms"}));
  for (const char* machine : {ORDINARY_MACHINE, SERVER_MACHINE, TESTBOX_MACHINE, BOTH_MACHINES}) {
    EXPECT_EQ(Sample().SetDuration("0").SetExpansion("999999").Failures(machine), Lines{});
  }
}

TEST(TestPresentUnexpandedBlock, FailsOnAChangeOfItsCell) {
  ExpectEachCellIsCompared(EXPERIMENT, "Event\nName", {"an event that runs"});
}

TEST(TestPresentUnexpandedBlock, FailsOnASecondRow) {
  EXPECT_EQ(Sample().RepeatLastRow().Failures(), Lines{TooManyCells(EXPERIMENT)});
}

TEST(TestPresentUnexpandedBlock, FailsWithoutItsColumn) {
  EXPECT_EQ(Sample().RemoveColumn("Event\nName").Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "an event that runs")});
}

TEST(TestPresentUnexpandedBlock, LooksAtEachFileAfresh) {
  EXPECT_EQ(Sample().RepeatLastRow().Failures(), Lines{TooManyCells(EXPERIMENT)});
  EXPECT_EQ(Sample().Failures(), Lines{});
  EXPECT_EQ(FailuresOf(VerifyBytes(EXPERIMENT, "no data")), Lines{CannotBeRead(EXPERIMENT)});
  EXPECT_EQ(Sample().Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
