#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2011-10-20_responses_personality_disorder_2545.om4");

const std::vector<wxString>& GetExpectedCellValuesForPicCode() {
  static const std::vector<wxString> cells = {wxT("value_01"), wxT("value_02"), wxT("value_01"),
                                              wxT("value_02")};
  return cells;
}

}  // namespace

class TestCodeBasedResponses_2545
    : public TestCaseWithFullColumnStringComp_T<TestCodeBasedResponses_2545> {
 public:
  TestCodeBasedResponses_2545() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString CODE_VAL_1 = wxT("value_01");
    static const wxString CODE_VAL_2 = wxT("value_02");
    VerifyVerbatimColumnContent(wxT("pic_code"), GetExpectedCellValuesForPicCode());

    const int codeColumn = ColumnOf(wxT("pic_code"));
    const int errorColumn = ColumnOf(wxT("Error\nCode"));
    const int rows = RowCount();
    bool code1IsRight = true;
    bool code2IsRight = true;
    bool allRowsAreValid = true;
    for (int row = 0; row < rows; ++row) {
      const wxString code = CellAt(row, codeColumn);
      const wxString errorCode = CellAt(row, errorColumn);
      if (code == CODE_VAL_1) {
        if (errorCode != wxT("NR")) code1IsRight = false;
      } else if (code == CODE_VAL_2) {
        if (errorCode != wxT("C")) code2IsRight = false;
      } else {
        allRowsAreValid = false;
      }
    }
    ReportCheck(code1IsRight, wxT("Events_with_val_1_should_be_NR"),
                {wxT("Some row with code value 1 is scored wrong."), 101,
                 wxT("All rows with code value 1 should be scored as NR for this experiment.")});
    ReportCheck(code2IsRight, wxT("Events_with_val_2_should_be_Correct"),
                {wxT("Some row with code value 2 is scored wrong."), 114,
                 wxT("All rows with code value 2 should be scored as C -- CORRECT -- for this "
                     "experiment.")});
    // Success records nothing here.
    if (!allRowsAreValid) {
      ReportFailure(
          wxT("All_rows_must_have_valid_code_value"),
          {wxT("Some row was present that did not have EITHER of the two valid code values."), 123,
           wxT("All events in this experiment were given a code value, so every row in the output "
               "should reflect that.")});
    }

    PerformDurationBoundsTest(1600, 1780, true);
    PerformDurationBoundsTest_SmallTestBox(1680, 1880);
    PerformDurationBoundsTest_MacServer(1600, 1750);
    PerformBoundsTest(5, 40, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(300, 500);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestCodeBasedResponses_2545, false);
