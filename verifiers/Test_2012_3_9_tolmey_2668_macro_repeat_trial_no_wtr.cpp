#include "framework/CheckReport.h"
#include "framework/IndividualTestCase_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr.om4");

// "event 1" once, in row 0, and "event 2" three times in other rows. An "event 2" in row 0 counts,
// too, but then the row is not "event 1".
bool TrialWasRepeated(const MUExperimentTextReaderMultiFile& reader) {
  const int column = reader.GetColumnPositionNumberFromText(wxT("Event\nName"));
  const int rows = reader.GetNumberOfDataRows();
  bool startsWithEvent1 = false;
  int repeats = 0;
  int last = 0;
  for (int row = 0; row < rows; ++row) {
    last = row;
    const wxString cell = reader.GetDataCellValue(row, column);
    if (row == 0 && cell == wxT("event 1")) {
      startsWithEvent1 = true;
    } else if (cell == wxT("event 2")) {
      ++repeats;
    }
  }
  return startsWithEvent1 && repeats == 3 && last == 3;
}

}  // namespace

// A macro repeats its trial, without any when-to-run setting.
class Test_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr
    : public IndividualTestCase_T<Test_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr, false> {
 public:
  Test_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr()
      : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities necessities) override {
    static const wxString testName = wxT("Repeat_trial_functions_as_expected");
    ReportCheck(necessities.printer, TrialWasRepeated(*necessities.reader), testName,
                {wxT("Something bad happened instead."), 63, FOCUS_OF_THIS_TEST,
                 wxT("We expected to see event 1 once and then event 2 repeated three times ")
                     wxT("as that's what the macro is set up to do.")});

    PerformDurationBoundsTest(3200, 3250, true);
    PerformDurationBoundsTest_MacServer(3200, 3420);
    PerformDurationBoundsTest_SmallTestBox(3200, 3500);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr, false);
