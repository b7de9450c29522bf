#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2012_3_9_tolmey_2668_macro_goto_block_next.om4";

const std::string CHECK_FAILED =
    Fail("Go_to_block_any_functions_as_expected", "Something bad happened instead.", EXPERIMENT, 65,
         "We expected to see exactly two events, event 1 and event 3, as the block containing "
         "event 1 was set to present the block containing event 3.");

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_next, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{"suite 2012_3_9_tolmey_2668_macro_goto_block_next.om4",
             "pass VerifyDatafile_was_called_for_2012_3_9_tolmey_2668_macro_goto_block_next.om4",
             "pass Go_to_block_any_functions_as_expected",
             "pass __TIMING__TRACKING__2012_3_9_tolmey_2668_macro_goto_block_next.om4__1617_ms",
             "pass __EXPANSION__TRACKING__2012_3_9_tolmey_2668_macro_goto_block_next.om4__23_ms"}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_next, FailsOnAWrongCell) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(0, "Event\nName", "event 2").Failures(),
            Lines{CHECK_FAILED});
}

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_next, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_next, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(1).SetDuration("1617").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_next, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_next, BoundsNothing) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .SetDuration("99999999")
                .SetExpansion("99999999")
                .Failures(SERVER_MACHINE),
            Lines{});
}

TEST(Test_2012_3_9_tolmey_2668_macro_goto_block_next, PassesInEitherOrder) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).SetColumn("Event\nName", {"event 3", "event 1"}).Failures(),
      Lines{});
}

}  // namespace
}  // namespace Tests
