#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "1-30-13-TextEventParamTestNoParams.om5";

const char* const TRIAL = "Trial\nName";

const std::string CHECK_FAILED =
    Fail("we_presented_all_events", "Something bad happened instead.", EXPERIMENT, 67,
         "We expected to see 56 rows of data split up into three kinds of trials in a 20-6-30 "
         "proportion.");

DataFile Sample() { return DataFile::Sample(EXPERIMENT); }

// In the sample, rows 0 to 9 and 46 to 55 are trials without parameters, rows 10 to 12 and 43 to 45
// pauses, and rows 13 to 42 trials with parameters.

TEST(Test_2013_01_params_in_text_events_no_params, PassesItsSample) {
  EXPECT_EQ(Sample().Verify(),
            (Lines{"suite 1-30-13-TextEventParamTestNoParams.om5",
                   "pass VerifyDatafile_was_called_for_1-30-13-TextEventParamTestNoParams.om5",
                   "pass we_presented_all_events",
                   "pass Experiment_duration_1-30-13-TextEventParamTestNoParams.om5",
                   "pass Expansion_duration_1-30-13-TextEventParamTestNoParams.om5",
                   "pass __TIMING__TRACKING__1-30-13-TextEventParamTestNoParams.om5__16575_ms",
                   "pass __EXPANSION__TRACKING__1-30-13-TextEventParamTestNoParams.om5__26_ms"}));
}

TEST(Test_2013_01_params_in_text_events_no_params,
     TakesATrialOfEachPrefixWithAnyTextBehindItOrNone) {
  EXPECT_EQ(Sample()
                .Set(0, TRIAL, "block without params trial")
                .Set(9, TRIAL, "block without params trial and more, 12 of it")
                .Set(10, TRIAL, "pause block trial")
                .Set(12, TRIAL, "pause block trials")
                .Set(13, TRIAL, "param block trial")
                .Set(42, TRIAL, "param block trial, pause block trial")
                .Failures(),
            Lines{});
}

TEST(Test_2013_01_params_in_text_events_no_params, TakesAnyOrder) {
  EXPECT_EQ(Sample().SwapRows(0, 10).SwapRows(1, 13).SwapRows(44, 30).Failures(), Lines{});
}

TEST(Test_2013_01_params_in_text_events_no_params, FailsOnAChangeOfAnyCell) {
  for (std::size_t row = 0; row < 56; ++row) {
    const std::string text = Sample().Cell(row, TRIAL);
    EXPECT_EQ(Sample().Set(row, TRIAL, "a " + text).Failures(), Lines{CHECK_FAILED});
  }
  EXPECT_EQ(Sample().Set(0, TRIAL, "").Failures(), Lines{CHECK_FAILED});
  EXPECT_EQ(Sample().Set(10, TRIAL, "Pause block trial 1").Failures(), Lines{CHECK_FAILED});
}

TEST(Test_2013_01_params_in_text_events_no_params, FailsOnAnotherProportion) {
  EXPECT_EQ(Sample().Set(0, TRIAL, "param block trial").Failures(), Lines{CHECK_FAILED});
  EXPECT_EQ(Sample().Set(0, TRIAL, "pause block trial").Failures(), Lines{CHECK_FAILED});
  EXPECT_EQ(Sample().Set(13, TRIAL, "pause block trial").Failures(), Lines{CHECK_FAILED});
}

TEST(Test_2013_01_params_in_text_events_no_params, FailsOnAWrongNumberOfRows) {
  EXPECT_EQ(Sample().RepeatLastRow().Failures(), Lines{CHECK_FAILED});
  EXPECT_EQ(Sample().KeepRows(55).SetDuration("16575").Failures(), Lines{CHECK_FAILED});
  // Also with the right count of each kind, and with the right number of rows.
  EXPECT_EQ(Sample().RepeatRow(0).Set(0, TRIAL, "other").Failures(), Lines{CHECK_FAILED});
  EXPECT_EQ(Sample().RemoveRow(0).RepeatRow(20).Failures(), Lines{CHECK_FAILED});
}

TEST(Test_2013_01_params_in_text_events_no_params, FailsWithoutItsColumn) {
  EXPECT_EQ(Sample().RemoveColumn(TRIAL).Failures(), Lines{CHECK_FAILED});
}

TEST(Test_2013_01_params_in_text_events_no_params, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(Sample().Set(0, TRIAL, "").SetDuration("17001").SetExpansion("9").Failures(),
            (Lines{CHECK_FAILED, DurationOutOfBounds(EXPERIMENT, 16300, 17000, "17001"),
                   ExpansionOutOfBounds(EXPERIMENT, 10, 50, "9")}));
}

TEST(Test_2013_01_params_in_text_events_no_params, HasABoundOfItsOwnOnTheSmallTestMachine) {
  EXPECT_EQ(Sample().SetDuration("19101").Failures(TESTBOX_MACHINE),
            Lines{DurationOutOfBounds(EXPERIMENT, 18500, 19100, "19101")});
}

TEST(Test_2013_01_params_in_text_events_no_params, CountsEachFileAfresh) {
  EXPECT_EQ(Sample().RepeatLastRow().Failures(), Lines{CHECK_FAILED});
  EXPECT_EQ(Sample().Failures(), Lines{});
  EXPECT_EQ(Sample().Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
