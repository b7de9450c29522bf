#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2772_2_macro_1_reg.om4";

const std::string CHECK_FAILED = Fail(
    "Having_1_event_presented_normally_and_2_presented_via_block_Level_macro_functions_that_share_"
    "a_OMActionList",
    "Something bad happened instead.", EXPERIMENT, 95,
    "We expected to see each variable name to show up exactly once.");

TEST(Test_2772_2_macro_1_reg, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite 2772_2_macro_1_reg.om4",
                   "pass VerifyDatafile_was_called_for_2772_2_macro_1_reg.om4",
                   "pass "
                   "Having_1_event_presented_normally_and_2_presented_via_block_Level_macro_"
                   "functions_that_share_a_OMActionList",
                   "pass Experiment_duration_2772_2_macro_1_reg.om4",
                   "pass Expansion_duration_2772_2_macro_1_reg.om4",
                   "pass __TIMING__TRACKING__2772_2_macro_1_reg.om4__3040_ms",
                   "pass __EXPANSION__TRACKING__2772_2_macro_1_reg.om4__23_ms"}));
}

TEST(Test_2772_2_macro_1_reg, FailsOnAWrongCell) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(0, "Font Color\n(Trial Variable)", "Red").Failures(),
            Lines{CHECK_FAILED});
}

TEST(Test_2772_2_macro_1_reg, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), (Lines{CHECK_FAILED}));
}

TEST(Test_2772_2_macro_1_reg, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(2).SetDuration("3040").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2772_2_macro_1_reg, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Font Color\n(Trial Variable)").Failures(),
            (Lines{CHECK_FAILED}));
}

TEST(Test_2772_2_macro_1_reg, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(0, "Font Color\n(Trial Variable)", "Red")
                .SetDuration("3171")
                .SetExpansion("5001")
                .Failures(),
            (Lines{CHECK_FAILED, DurationOutOfBounds(EXPERIMENT, 2990, 3170, "3171"),
                   ExpansionOutOfBounds(EXPERIMENT, 0, 5000, "5001")}));
}

TEST(Test_2772_2_macro_1_reg, FailsOnAPlaceThatComesTwice) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  file.Set(0, "Screen Location\n(Trial Variable)",
           file.Cell(1, "Screen Location\n(Trial Variable)"));
  EXPECT_EQ(file.Failures(), Lines{CHECK_FAILED});
}

TEST(Test_2772_2_macro_1_reg, FailsWithoutThePlaceColumn) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).RemoveColumn("Screen Location\n(Trial Variable)").Failures(),
      Lines{CHECK_FAILED});
}

TEST(Test_2772_2_macro_1_reg, PassesInAnyOrderOfItsLevels) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  file.SetColumn("Font Color\n(Trial Variable)", {"Red", "Blue", "Green"});
  file.SetColumn("Screen Location\n(Trial Variable)", {"three", "two", "one"});
  EXPECT_EQ(file.Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
