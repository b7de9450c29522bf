#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2012_3_9_tolmey_2668_expr_time_since_exp.om4";

const std::string CHECK_FAILED =
    Fail("Time_since_start_of_experiment_expression_functions_as_expected",
         "Something bad happened instead.", EXPERIMENT, 63,
         "We expected to see event 1 once and event 2 also once as that's what the macro is set up "
         "to do.");

DataFile Sample() { return DataFile::Sample(EXPERIMENT); }

TEST(Test_2012_3_9_tolmey_2668_expr_time_since_exp, PassesItsSample) {
  EXPECT_EQ(
      Sample().Verify(),
      (Lines{"suite 2012_3_9_tolmey_2668_expr_time_since_exp.om4",
             "pass VerifyDatafile_was_called_for_2012_3_9_tolmey_2668_expr_time_since_exp.om4",
             "pass Time_since_start_of_experiment_expression_functions_as_expected",
             "pass Experiment_duration_2012_3_9_tolmey_2668_expr_time_since_exp.om4",
             "pass Expansion_duration_2012_3_9_tolmey_2668_expr_time_since_exp.om4",
             "pass __TIMING__TRACKING__2012_3_9_tolmey_2668_expr_time_since_exp.om4__4021_ms",
             "pass __EXPANSION__TRACKING__2012_3_9_tolmey_2668_expr_time_since_exp.om4__23_ms"}));
}

TEST(Test_2012_3_9_tolmey_2668_expr_time_since_exp, FailsOnAWrongCell) {
  for (const size_t row : {size_t{0}, size_t{1}}) {
    for (const char* text : {"event 3", "Event 1", ""}) {
      EXPECT_EQ(Sample().Set(row, "Event\nName", text).Failures(), Lines{CHECK_FAILED});
    }
  }
  EXPECT_EQ(Sample().Set(0, "Event\nName", "event 2").Set(1, "Event\nName", "event 1").Failures(),
            Lines{CHECK_FAILED});
}

TEST(Test_2012_3_9_tolmey_2668_expr_time_since_exp, FailsOnThreeRowsAlthoughTheFirstTwoAreRight) {
  EXPECT_EQ(Sample().RepeatLastRow().Failures(), Lines{CHECK_FAILED});
}

TEST(Test_2012_3_9_tolmey_2668_expr_time_since_exp, FailsOnOneRow) {
  EXPECT_EQ(Sample().KeepRows(1).SetDuration("4021").Failures(), Lines{CHECK_FAILED});
}

TEST(Test_2012_3_9_tolmey_2668_expr_time_since_exp, FailsWithoutItsColumn) {
  EXPECT_EQ(Sample().RemoveColumn("Event\nName").Failures(), Lines{CHECK_FAILED});
}

TEST(Test_2012_3_9_tolmey_2668_expr_time_since_exp, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(
      Sample().Set(0, "Event\nName", "event 2").SetDuration("4051").SetExpansion("5001").Failures(),
      (Lines{CHECK_FAILED, DurationOutOfBounds(EXPERIMENT, 4000, 4050, "4051"),
             ExpansionOutOfBounds(EXPERIMENT, 0, 5000, "5001")}));
}

}  // namespace
}  // namespace Tests
