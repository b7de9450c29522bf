#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2012_3_16_tolmey_2670_loop_guard_block_level.om4";

const std::string CHECK_FAILED = Fail(
    "The_loop_guard_works", "Something bad happened instead.", EXPERIMENT, 88,
    "Can we even get this fail message? I mean if the loop guard has stopped working then we "
    "should've never finished the experiment. I guess we might still be capable of seeing this.");

TEST(Test_2012_3_16_tolmey_2670_loop_guard_block_level, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{
          "suite 2012_3_16_tolmey_2670_loop_guard_block_level.om4",
          "pass VerifyDatafile_was_called_for_2012_3_16_tolmey_2670_loop_guard_block_level.om4",
          "pass The_loop_guard_works",
          "pass __TIMING__TRACKING__2012_3_16_tolmey_2670_loop_guard_block_level.om4__4829_ms",
          "pass __EXPANSION__TRACKING__2012_3_16_tolmey_2670_loop_guard_block_level.om4__23_ms"}));
}

TEST(Test_2012_3_16_tolmey_2670_loop_guard_block_level, FailsOnAWrongCell) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(5, "Event\nName", "event 1").Failures(),
            Lines{CHECK_FAILED});
}

TEST(Test_2012_3_16_tolmey_2670_loop_guard_block_level, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_16_tolmey_2670_loop_guard_block_level, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(5).SetDuration("4829").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_16_tolmey_2670_loop_guard_block_level, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_16_tolmey_2670_loop_guard_block_level, BoundsNothing) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .SetDuration("99999999")
                .SetExpansion("99999999")
                .Failures(SERVER_MACHINE),
            Lines{});
}

}  // namespace
}  // namespace Tests
