#include "framework/CellCounts.h"
#include "framework/CellNumbers.h"
#include "framework/ClampedNumbers.h"
#include "framework/IndividualTestCase_T.h"
#include "framework/StimAreaTesting.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST =
    wxT("2011-07-19_runs_unattended_for_regression_test_FEEDBACK_TRIAL_VAR_TIMES_case_2405.om4");

// Only the sizes differ between platforms.
const std::vector<StimAreaData>& GetExpectedStimAreaSequence_EitherPlatform() {
  static const std::vector<StimAreaData> areas = {
      StimAreaTesting::ExpectedData(0, 0, 98765, 98765, 0, wxT("always")),
      StimAreaTesting::ExpectedData(0, 0, 98765, 98765, 0, wxT("correct")),
      StimAreaTesting::ExpectedData(0, 0, 98765, 98765, 0, wxT("bye now")),
  };
  return areas;
}

const std::vector<StimAreaData>& GetExpectedStimAreaSequence() {
  static const std::vector<StimAreaData> areas = {
      StimAreaTesting::ExpectedData(0, 0, 215, 100, 0, wxT("always")),
      StimAreaTesting::ExpectedData(0, 0, 254, 100, 0, wxT("correct")),
      StimAreaTesting::ExpectedData(0, 0, 265, 100, 0, wxT("bye now")),
  };
  return areas;
}

}  // namespace

class TestTrialVariableTimeLimitOnFeedback_2405
    : public IndividualTestCase_T<TestTrialVariableTimeLimitOnFeedback_2405, false> {
 public:
  TestTrialVariableTimeLimitOnFeedback_2405() : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities necessities) override {
    // No line number identifies the two checks of areas; their locations show 0.
    const wxString location = CommonTestHelperLogic::GetFileStringForLine(0, FOCUS_OF_THIS_TEST);
    CommonTestHelperLogic::BothPlatforms_VerifySequentialStimData(
        *necessities.stimAreas, GetExpectedStimAreaSequence_EitherPlatform(), m_printer, location);
    CommonTestHelperLogic::MacOSX_VerifySequentialStimData(
        *necessities.stimAreas, GetExpectedStimAreaSequence(), m_printer, location);

    ReportCheck(CountCells(*m_reader, wxT("Event\nName"), wxT("correct")) > 0,
                wxT("Event_named_correct_is_expected"),
                {wxT("The event 'correct' should have happened. Where is it?"), 146,
                 wxT("We expected the event with name 'correct' to have been displayed during the "
                     "experiment.")});
    ReportCheck(CountCells(*m_reader, wxT("Event\nName"), wxT("incorrect")) == 0,
                wxT("Event_named_incorrect_is_unwanted"),
                {wxT("Unwanted event has been displayed somehow."), 156,
                 wxT("As long as there was no human interaction we expect to NOT find this event. "
                     "This runs unattended, so how could there be interaction...?")});
    ReportCheck(SomeCorrectEventLastedLongEnough(),
                wxT("Variable_time_should_be_greater_than_6000"),
                {wxT("Looks like bug 2405 is back."), 173,
                 wxT("The event named 'correct' should have been on screen for 6000 ms or more.")});

    PerformDurationBoundsTest(9800, 11950, true);
    PerformDurationBoundsTest_MacServer(9700, 12000);
    PerformDurationBoundsTest_SmallTestBox(9800, 12100);
    PerformBoundsTest(8, 170, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(400, 600);
  }

 private:
  // Do 5999 ms or more lie between the time of such a row and that of the row before it? The limit is
  // one millisecond below what the texts of the check say. Row 0 never qualifies: no row precedes it.
  bool SomeCorrectEventLastedLongEnough() const {
    const int eventColumn = ColumnOf(wxT("Event\nName"));
    const int timeColumn = ColumnOf(wxT("Cumulative\nTime"));
    for (int row = 0; row < RowCount(); ++row) {
      long time = 0;
      long previousTime = 0;
      if (CellAt(row, eventColumn) == wxT("correct") && ReadLong(CellAt(row, timeColumn), time) &&
          ReadLong(CellAt(row - 1, timeColumn), previousTime) &&
          ClampedDifference(time, previousTime) >= 5999) {
        return true;
      }
    }
    return false;
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestTrialVariableTimeLimitOnFeedback_2405, false);
