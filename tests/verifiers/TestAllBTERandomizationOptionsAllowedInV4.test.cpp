#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2011-06-17_test_all_randomization_for_case_983.om4";
const char* const EVENT = "Event\nName";

const std::string TRIALS_ONCE_PER_RUN_FAILED =
    Fail("Rand_Trials_In_Block_Once_Per_Run", "'block 1 - randomize once per run' did not behave",
         EXPERIMENT, 87,
         "'block 1 - randomize once per run' should repeat its trials FOUR times using the SAME "
         "random order");
const std::string TRIALS_ONCE_PER_GROUP_FAILED =
    Fail("Rand_Trials_In_Block_Once_Per_Group",
         "'block 2 - randomize per group - cba for main group' did not behave", EXPERIMENT, 114,
         "'block 2 - randomize per group - cba for main group' should always use the SAME random "
         "order");
const std::string TRIALS_EVERY_TIME_FAILED = Fail(
    "Rand_Trials_In_Block_Every_Time",
    "'block 1 - randomize ALWAYS' did not behave -- this OCCASIONALLY FAILS PERMISSIBLY. ALLOW "
    "THIS TO HAPPEN RARELY",
    EXPERIMENT, 150,
    "'block 1 - randomize ALWAYS' should NOT display the SAME random order four times in a row "
    "-- this OCCASIONALLY FAILS PERMISSIBLY. ALLOW THIS TO HAPPEN RARELY");
const std::string EVENTS_ONCE_PER_RUN_FAILED =
    Fail("Rand_Events_In_Trial_Once_Per_Run",
         "'REUSED trial, looking for SAME random throughout run' did not behave", EXPERIMENT, 187,
         "'REUSED trial, looking for SAME random throughout run' should repeat its events THREE "
         "times using the SAME random order");
const std::string EVENTS_ONCE_PER_GROUP_FAILED =
    Fail("Rand_Events_In_Trial_Once_Per_Group",
         "'REUSED trial w/ PER-GROUP, looking for SAME random throughout run1' did not behave",
         EXPERIMENT, 215,
         "'REUSED trial w/ PER-GROUP, looking for SAME random throughout run1' should always use "
         "the SAME random order");
const std::string EVENTS_EVERY_TIME_FAILED =
    Fail("Rand_Events_In_Trial_Every_Time",
         "'REUSED trial - NEW randomization ALWAYS' did not behave -- this OCCASIONALLY FAILS "
         "PERMISSIBLY. ALLOW THIS TO HAPPEN RARELY",
         EXPERIMENT, 251,
         "'REUSED trial - NEW randomization ALWAYS' should NOT display the SAME random order three "
         "times in a row -- this OCCASIONALLY FAILS PERMISSIBLY. ALLOW THIS TO HAPPEN RARELY");

// Gives the three rows from each of repeats on the events of the three rows from pattern on.
void RepeatThreeRows(DataFile& file, std::size_t pattern, const std::vector<std::size_t>& repeats) {
  for (const std::size_t repeat : repeats) {
    for (std::size_t i = 0; i < 3; ++i) file.Set(repeat + i, EVENT, file.Cell(pattern + i, EVENT));
  }
}

// Each of these rows, when its event alone is another one, gives exactly this failure.
void ExpectThatEachRowCounts(const std::vector<std::size_t>& rows, const std::string& failure) {
  for (const std::size_t row : rows) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(row, EVENT, "another event").Failures(),
              Lines{failure})
        << "row " << row;
  }
}

TEST(TestAllBTERandomizationOptionsAllowedInV4, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{
          "suite 2011-06-17_test_all_randomization_for_case_983.om4",
          "pass VerifyDatafile_was_called_for_2011-06-17_test_all_randomization_for_case_983.om4",
          "pass Rand_Trials_In_Block_Once_Per_Run", "pass Rand_Trials_In_Block_Once_Per_Group",
          "pass Rand_Trials_In_Block_Every_Time", "pass Rand_Events_In_Trial_Once_Per_Run",
          "pass Rand_Events_In_Trial_Once_Per_Group", "pass Rand_Events_In_Trial_Every_Time",
          "pass Experiment_duration_2011-06-17_test_all_randomization_for_case_983.om4",
          "pass Expansion_duration_2011-06-17_test_all_randomization_for_case_983.om4",
          "pass "
          "__TIMING__TRACKING__2011-06-17_test_all_randomization_for_case_983.om4__1210_ms",
          "pass "
          "__EXPANSION__TRACKING__2011-06-17_test_all_randomization_for_case_983.om4__31_ms"}));
}

TEST(TestAllBTERandomizationOptionsAllowedInV4, HoldsEachRowOfTrialsOncePerRun) {
  ExpectThatEachRowCounts({30, 31, 32, 36, 37, 38, 42, 43, 44, 48, 49, 50},
                          TRIALS_ONCE_PER_RUN_FAILED);
}

TEST(TestAllBTERandomizationOptionsAllowedInV4, HoldsEachRowOfTrialsOncePerGroup) {
  ExpectThatEachRowCounts({0, 1, 2}, TRIALS_ONCE_PER_GROUP_FAILED);
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(0, EVENT, "sole event for trial 2C").Failures(),
            Lines{TRIALS_ONCE_PER_GROUP_FAILED});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).SwapRows(0, 2).Failures(),
            Lines{TRIALS_ONCE_PER_GROUP_FAILED});
}

TEST(TestAllBTERandomizationOptionsAllowedInV4, FailsOnTrialsInOneOrderEveryTime) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  RepeatThreeRows(file, 33, {39, 45, 51});
  EXPECT_EQ(file.Failures(), Lines{TRIALS_EVERY_TIME_FAILED});
}

TEST(TestAllBTERandomizationOptionsAllowedInV4, PassesWhenOneRepeatOfTheTrialsDiffersInOneRow) {
  for (const std::size_t row : {33U, 34U, 35U, 39U, 40U, 41U, 45U, 46U, 47U, 51U, 52U, 53U}) {
    DataFile file = DataFile::Sample(EXPERIMENT);
    RepeatThreeRows(file, 33, {39, 45, 51});
    EXPECT_EQ(file.Set(row, EVENT, "another event").Failures(), Lines{}) << "row " << row;
  }
}

TEST(TestAllBTERandomizationOptionsAllowedInV4, PassesWhenOnlyTheLastRepeatOfTheTrialsDiffers) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  RepeatThreeRows(file, 33, {39, 45, 51});
  EXPECT_EQ(file.SwapRows(51, 52).SwapRows(52, 53).Failures(), Lines{});
}

TEST(TestAllBTERandomizationOptionsAllowedInV4, HoldsEachRowOfEventsOncePerRun) {
  ExpectThatEachRowCounts({3, 4, 5, 6, 7, 8, 9, 10, 11}, EVENTS_ONCE_PER_RUN_FAILED);
}

TEST(TestAllBTERandomizationOptionsAllowedInV4, HoldsEachRowOfEventsOncePerGroup) {
  ExpectThatEachRowCounts({15, 16, 17, 18, 19, 20}, EVENTS_ONCE_PER_GROUP_FAILED);
}

TEST(TestAllBTERandomizationOptionsAllowedInV4, FailsOnEventsInOneOrderEveryTime) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  RepeatThreeRows(file, 21, {24, 27});
  EXPECT_EQ(file.Failures(), Lines{EVENTS_EVERY_TIME_FAILED});
}

TEST(TestAllBTERandomizationOptionsAllowedInV4, PassesWhenOneRepeatOfTheEventsDiffersInOneRow) {
  for (std::size_t row = 21; row <= 29; ++row) {
    DataFile file = DataFile::Sample(EXPERIMENT);
    RepeatThreeRows(file, 21, {24, 27});
    EXPECT_EQ(file.Set(row, EVENT, "another event").Failures(), Lines{}) << "row " << row;
  }
}

TEST(TestAllBTERandomizationOptionsAllowedInV4, LooksAtNoOtherRows) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  for (const std::size_t row : {12U, 13U, 14U}) file.Set(row, EVENT, "another event");
  EXPECT_EQ(file.RepeatLastRow().Failures(), Lines{});
}

// Undefined cells are compared like any other: two of them are equal.
TEST(TestAllBTERandomizationOptionsAllowedInV4, ComparesUndefinedCellsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(EVENT).Failures(),
            (Lines{TRIALS_ONCE_PER_GROUP_FAILED, TRIALS_EVERY_TIME_FAILED,
                   EVENTS_ONCE_PER_GROUP_FAILED, EVENTS_EVERY_TIME_FAILED}));
}

TEST(TestAllBTERandomizationOptionsAllowedInV4, ComparesUndefinedCellsInAShortFile) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(30).SetDuration("1210").Failures(),
            Lines{TRIALS_EVERY_TIME_FAILED});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(53).SetDuration("1210").Failures(), Lines{});
}

TEST(TestAllBTERandomizationOptionsAllowedInV4, ChecksTheBoundsAfterAllFailures) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  RepeatThreeRows(file, 21, {24, 27});
  RepeatThreeRows(file, 33, {39, 45, 51});
  for (const std::size_t row : {0U, 3U, 15U, 30U}) file.Set(row, EVENT, "another event");
  EXPECT_EQ(
      file.SetDuration("2501").SetExpansion("5001").Failures(),
      (Lines{TRIALS_ONCE_PER_RUN_FAILED, TRIALS_ONCE_PER_GROUP_FAILED, TRIALS_EVERY_TIME_FAILED,
             EVENTS_ONCE_PER_RUN_FAILED, EVENTS_ONCE_PER_GROUP_FAILED, EVENTS_EVERY_TIME_FAILED,
             DurationOutOfBounds(EXPERIMENT, 780, 2500, "2501"),
             ExpansionOutOfBounds(EXPERIMENT, 0, 5000, "5001")}));
}

TEST(TestAllBTERandomizationOptionsAllowedInV4, KeepsNothingFromOneFileForTheNext) {
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  DataFile moved = sample;
  moved.MoveColumnToFront(EVENT);
  DataFile wrong = sample;
  wrong.Set(0, EVENT, "another event");
  EXPECT_EQ(sample.Failures(), Lines{});
  EXPECT_EQ(moved.Failures(), Lines{});
  EXPECT_EQ(wrong.Failures(), Lines{TRIALS_ONCE_PER_GROUP_FAILED});
  EXPECT_EQ(sample.Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
