#include "framework/CellNumbers.h"
#include "framework/ClampedNumbers.h"
#include "framework/IndividualTestCase_T.h"
#include "framework/StimAreaTesting.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST =
    wxT("2011-07-19_runs_unattended_for_regression_test_FEEDBACK_TRIAL_VAR_TIMES_case_2405.om4");

// Sizes differ from platform to platform, all else does not.
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

// What one walk over all rows finds out.
struct Sightings {
  bool sawCorrect = false;
  bool sawIncorrect = false;
  bool longEnough = false;
};

// Do 5999 ms or more lie between this row's time and the time of the row before? The limit stays one
// millisecond below what the texts of the check say. Row -1 has no time, so row 0 never is enough.
bool LastedLongEnough(const MUExperimentTextReaderMultiFile& reader, int row, int timeColumn) {
  long time = 0;
  long previousTime = 0;
  return ReadLong(reader.GetDataCellValue(row, timeColumn), time) &&
         ReadLong(reader.GetDataCellValue(row - 1, timeColumn), previousTime) &&
         ClampedDifference(time, previousTime) >= 5999;
}

Sightings LookThroughAllRows(const MUExperimentTextReaderMultiFile& reader) {
  const int eventColumn = reader.GetColumnPositionNumberFromText(wxT("Event\nName"));
  const int timeColumn = reader.GetColumnPositionNumberFromText(wxT("Cumulative\nTime"));
  const int rows = reader.GetNumberOfDataRows();
  Sightings seen;
  for (int row = 0; row < rows; ++row) {
    const wxString event = reader.GetDataCellValue(row, eventColumn);
    if (event == wxT("incorrect")) seen.sawIncorrect = true;
    if (event != wxT("correct")) continue;
    seen.sawCorrect = true;
    if (LastedLongEnough(reader, row, timeColumn)) seen.longEnough = true;
  }
  return seen;
}

}  // namespace

// A time limit that is held in a trial variable rules how long a feedback stays on screen.
class TestTrialVariableTimeLimitOnFeedback_2405
    : public IndividualTestCase_T<TestTrialVariableTimeLimitOnFeedback_2405, false> {
 public:
  TestTrialVariableTimeLimitOnFeedback_2405() : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities necessities) override {
    const wxString location = CommonTestHelperLogic::GetFileStringForLine(0, FOCUS_OF_THIS_TEST);
    CommonTestHelperLogic::BothPlatforms_VerifySequentialStimData(
        *necessities.stimAreas, GetExpectedStimAreaSequence_EitherPlatform(), m_printer, location);
    CommonTestHelperLogic::MacOSX_VerifySequentialStimData(
        *necessities.stimAreas, GetExpectedStimAreaSequence(), m_printer, location);

    const Sightings seen = LookThroughAllRows(*m_reader);
    ReportCheck(seen.sawCorrect, wxT("Event_named_correct_is_expected"),
                {wxT("The event 'correct' should have happened. Where is it?"), 146,
                 wxT("We expected the event with name 'correct' to have been displayed during the "
                     "experiment.")});
    ReportCheck(!seen.sawIncorrect, wxT("Event_named_incorrect_is_unwanted"),
                {wxT("Unwanted event has been displayed somehow."), 156,
                 wxT("As long as there was no human interaction we expect to NOT find this event. "
                     "This runs unattended, so how could there be interaction...?")});
    ReportCheck(seen.longEnough, wxT("Variable_time_should_be_greater_than_6000"),
                {wxT("Looks like bug 2405 is back."), 173,
                 wxT("The event named 'correct' should have been on screen for 6000 ms or more.")});

    PerformDurationBoundsTest(9800, 11950, true);
    PerformDurationBoundsTest_MacServer(9700, 12000);
    PerformDurationBoundsTest_SmallTestBox(9800, 12100);
    PerformBoundsTest(8, 170, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(400, 600);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestTrialVariableTimeLimitOnFeedback_2405, false);
