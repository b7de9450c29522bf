// Verifiers that convert cells as longs, on numbers that an int would wrap round into a right one.
#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {
namespace {

const char* const TIME = "Cumulative\nTime";

bool SomeLineHas(const Lines& lines, const std::string& words) {
  for (const std::string& line : lines) {
    if (line.find(words) != std::string::npos) return true;
  }
  return false;
}

// 4294967608 is 312 in the low 32 bits, the time that the row should have.
TEST(NumbersBeyondInt, AreNoGoodTimestampOfASyncTrial) {
  const DataFile sample = DataFile::Sample("2014-06-16_sync_trials.om5");
  EXPECT_EQ(FailuresOf(sample.Verify()), Lines{});
  const Lines failures = FailuresOf(DataFile(sample).Set(2, TIME, "4294967608").Verify());
  EXPECT_EQ(failures.size(), 2U) << "to it and from it";
  EXPECT_TRUE(SomeLineHas(failures,
                          "given prior and current of 12 and 4294967608 and an interval "
                          "of 300 for best diff 99999"));
  EXPECT_TRUE(SomeLineHas(failures,
                          "given prior and current of 4294967608 and 613 and an interval "
                          "of 300 for best diff 99999"));
}

// 4294967796 is 500 in the low 32 bits, too short a time after the row before.
TEST(NumbersBeyondInt, AreLongEnoughForAFeedback) {
  const char* const experiment =
      "2011-07-19_runs_unattended_for_regression_test_FEEDBACK_TRIAL_VAR_TIMES_case_2405.om4";
  const DataFile sample = DataFile::Sample(experiment);
  const auto isTooShort = [&](const std::string& time) {
    return SomeLineHas(FailuresOf(DataFile(sample).Set(1, TIME, time).Verify()),
                       "Variable_time_should_be_greater_than_6000");
  };
  EXPECT_TRUE(isTooShort("500"));
  EXPECT_FALSE(isTooShort("4294967796"));
  EXPECT_TRUE(isTooShort("-4294958296")) << "9000 in the low 32 bits";
}

}  // namespace
}  // namespace Tests
