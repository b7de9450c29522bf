#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT =
    "2011-07-19_runs_unattended_for_regression_test_FEEDBACK_TRIAL_VAR_TIMES_case_2405.om4";

const char* const EVENT = "Event\nName";
const char* const TIME = "Cumulative\nTime";

const std::string TOO_MANY_AREAS =
    Fail("Correct_quantity_of_stim_areas", "Too many data stim areas. More than expected.",
         EXPERIMENT, 0, "No extra info.");
const std::string TOO_FEW_AREAS =
    Fail("Correct_quantity_of_stim_areas", "Too few stim areas. Fewer than expected.", EXPERIMENT,
         0, "No extra info.");
const std::string NO_CORRECT =
    Fail("Event_named_correct_is_expected",
         "The event 'correct' should have happened. Where is it?", EXPERIMENT, 146,
         "We expected the event with name 'correct' to have been displayed during the experiment.");
const std::string INCORRECT =
    Fail("Event_named_incorrect_is_unwanted", "Unwanted event has been displayed somehow.",
         EXPERIMENT, 156,
         "As long as there was no human interaction we expect to NOT find this event. This runs "
         "unattended, so how could there be interaction...?");
const std::string TOO_SHORT =
    Fail("Variable_time_should_be_greater_than_6000", "Looks like bug 2405 is back.", EXPERIMENT,
         173, "The event named 'correct' should have been on screen for 6000 ms or more.");

std::string AreaDiffers(int index) {
  return Fail("StimArea_vector_is_complete_and_in_order",
              "Unexpected info in the vector of stim areas.", EXPERIMENT, 0,
              "Stim area problem in the " + std::to_string(index) +
                  "_th position in the stim area sequence.");
}

DataFile Sample() { return DataFile::Sample(EXPERIMENT); }

TEST(TestTrialVariableTimeLimitOnFeedback_2405, PassesItsSample) {
  EXPECT_EQ(
      Sample().Verify(),
      (Lines{
          "suite "
          "2011-07-19_runs_unattended_for_regression_test_FEEDBACK_TRIAL_VAR_TIMES_case_2405.om4",
          "pass VerifyDatafile_was_called_for_"
          "2011-07-19_runs_unattended_for_regression_test_FEEDBACK_TRIAL_VAR_TIMES_case_2405.om4",
          "pass StimArea_vector_is_complete_and_in_order",
          "pass StimArea_vector_is_complete_and_in_order", "pass Event_named_correct_is_expected",
          "pass Event_named_incorrect_is_unwanted",
          "pass Variable_time_should_be_greater_than_6000",
          "pass Experiment_duration_"
          "2011-07-19_runs_unattended_for_regression_test_FEEDBACK_TRIAL_VAR_TIMES_case_2405.om4",
          "pass Expansion_duration_"
          "2011-07-19_runs_unattended_for_regression_test_FEEDBACK_TRIAL_VAR_TIMES_case_2405.om4",
          "pass __TIMING__TRACKING__"
          "2011-07-19_runs_unattended_for_regression_test_FEEDBACK_TRIAL_VAR_TIMES_case_2405.om4"
          "__10046_ms",
          "pass __EXPANSION__TRACKING__"
          "2011-07-19_runs_unattended_for_regression_test_FEEDBACK_TRIAL_VAR_TIMES_case_2405.om4"
          "__62_ms"}));
}

TEST(TestTrialVariableTimeLimitOnFeedback_2405, FailsTwiceOnAWrongNumberOfAreas) {
  DataFile more = Sample();
  more.StimAreas().push_back(more.StimAreas().back());
  EXPECT_EQ(more.Failures(), (Lines{TOO_MANY_AREAS, TOO_MANY_AREAS}));

  DataFile fewer = Sample();
  fewer.StimAreas().pop_back();
  EXPECT_EQ(fewer.Failures(), (Lines{TOO_FEW_AREAS, TOO_FEW_AREAS}));

  DataFile none = Sample();
  none.StimAreas().clear();
  EXPECT_EQ(none.Failures(), (Lines{TOO_FEW_AREAS, TOO_FEW_AREAS}));
}

TEST(TestTrialVariableTimeLimitOnFeedback_2405, ComparesPlacesNamesAndResponsesTwice) {
  for (int index = 0; index < 3; ++index) {
    const std::size_t at = static_cast<std::size_t>(index);
    const Lines twice = {AreaDiffers(index), AreaDiffers(index)};
    DataFile x = Sample();
    x.StimAreas()[at].x = 1;
    EXPECT_EQ(x.Failures(), twice);
    DataFile y = Sample();
    y.StimAreas()[at].y = -1;
    EXPECT_EQ(y.Failures(), twice);
    DataFile response = Sample();
    response.StimAreas()[at].response_id = 1;
    EXPECT_EQ(response.Failures(), twice);
    DataFile name = Sample();
    name.StimAreas()[at].area_name = wxT("ALWAYS");
    EXPECT_EQ(name.Failures(), twice);
  }
}

TEST(TestTrialVariableTimeLimitOnFeedback_2405, ComparesSizesOnce) {
  for (int index = 0; index < 3; ++index) {
    const std::size_t at = static_cast<std::size_t>(index);
    DataFile wider = Sample();
    ++wider.StimAreas()[at].width;
    EXPECT_EQ(wider.Failures(), Lines{AreaDiffers(index)});
    DataFile lower = Sample();
    --lower.StimAreas()[at].height;
    EXPECT_EQ(lower.Failures(), Lines{AreaDiffers(index)});
  }
}

TEST(TestTrialVariableTimeLimitOnFeedback_2405, MissesTheCorrectEvent) {
  EXPECT_EQ(Sample().Set(1, EVENT, "Correct").Failures(), (Lines{NO_CORRECT, TOO_SHORT}));
}

TEST(TestTrialVariableTimeLimitOnFeedback_2405, FailsOnAnIncorrectEvent) {
  EXPECT_EQ(Sample().Set(2, EVENT, "incorrect").Failures(), Lines{INCORRECT});
}

TEST(TestTrialVariableTimeLimitOnFeedback_2405, FailsOnAnIncorrectEventInsteadOfTheCorrectOne) {
  EXPECT_EQ(Sample().Set(1, EVENT, "incorrect").Failures(),
            (Lines{NO_CORRECT, INCORRECT, TOO_SHORT}));
}

TEST(TestTrialVariableTimeLimitOnFeedback_2405, TakesADifferenceOf5999MsAndNotOf5998) {
  // Row 0 stands at 2014.
  EXPECT_EQ(Sample().Set(1, TIME, "8013").Failures(), Lines{});
  EXPECT_EQ(Sample().Set(1, TIME, "8012").Failures(), Lines{TOO_SHORT});
}

TEST(TestTrialVariableTimeLimitOnFeedback_2405, MeasuresEachCorrectRowAgainstTheRowBefore) {
  const auto twoCorrectRows = [](const char* first, const char* second) {
    return Sample().RepeatRow(1).Set(1, TIME, first).Set(2, TIME, second).Failures();
  };
  EXPECT_EQ(twoCorrectRows("3000", "9100"), Lines{});
  EXPECT_EQ(twoCorrectRows("8100", "9100"), Lines{});
  EXPECT_EQ(twoCorrectRows("5500", "9100"), Lines{TOO_SHORT});
}

TEST(TestTrialVariableTimeLimitOnFeedback_2405, MeasuresCorrectRowsAlone) {
  EXPECT_EQ(Sample().Set(1, TIME, "2100").Failures(), Lines{TOO_SHORT});
}

TEST(TestTrialVariableTimeLimitOnFeedback_2405, DoesNotMeasureTheFirstRow) {
  EXPECT_EQ(
      Sample().Set(0, EVENT, "correct").Set(0, TIME, "6500").Set(1, EVENT, "always").Failures(),
      Lines{TOO_SHORT});
}

TEST(TestTrialVariableTimeLimitOnFeedback_2405, SaysNothingOfATimeThatDoesNotConvert) {
  EXPECT_EQ(Sample().Set(1, TIME, "8027 ms").Failures(), Lines{TOO_SHORT});
  EXPECT_EQ(Sample().Set(0, TIME, "").Failures(), Lines{TOO_SHORT});
  // A second row that is long enough counts, whatever stood before.
  EXPECT_EQ(Sample().RepeatRow(1).RepeatRow(1).Set(0, TIME, "soon").Set(1, TIME, "2014").Failures(),
            Lines{});
  // And one that is unreadable afterwards takes nothing back.
  EXPECT_EQ(Sample().RepeatRow(1).Set(2, TIME, "late").Failures(), Lines{});
}

TEST(TestTrialVariableTimeLimitOnFeedback_2405, BearsTheEndsOfTheRange) {
  EXPECT_EQ(
      Sample().Set(0, TIME, "-9223372036854775808").Set(1, TIME, "9223372036854775807").Failures(),
      Lines{});
  EXPECT_EQ(
      Sample().Set(0, TIME, "9223372036854775807").Set(1, TIME, "-9223372036854775808").Failures(),
      Lines{TOO_SHORT});
}

TEST(TestTrialVariableTimeLimitOnFeedback_2405, FailsWithoutItsColumns) {
  EXPECT_EQ(Sample().RemoveColumn(EVENT).Failures(), (Lines{NO_CORRECT, TOO_SHORT}));
  EXPECT_EQ(Sample().RemoveColumn(TIME).Failures(),
            (Lines{TOO_SHORT, DurationUnavailable(EXPERIMENT)}));
}

TEST(TestTrialVariableTimeLimitOnFeedback_2405, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(Sample().Set(1, EVENT, "other").SetDuration("11951").SetExpansion("171").Failures(),
            (Lines{NO_CORRECT, TOO_SHORT, DurationOutOfBounds(EXPERIMENT, 9800, 11950, "11951"),
                   ExpansionOutOfBounds(EXPERIMENT, 8, 170, "171")}));
}

TEST(TestTrialVariableTimeLimitOnFeedback_2405, ForgetsTheFileBefore) {
  EXPECT_EQ(Sample().Set(2, EVENT, "incorrect").Failures(), Lines{INCORRECT});
  EXPECT_EQ(Sample().Failures(), Lines{});
  EXPECT_EQ(Sample().Set(1, EVENT, "other").Failures(), (Lines{NO_CORRECT, TOO_SHORT}));
}

}  // namespace
}  // namespace Tests
