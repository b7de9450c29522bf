#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2014-05-12_save_col_mouse_press_rel_NOT_pixel.om5");

}  // namespace

class TestColumnsExcludedTolmey3229
    : public TestCaseWithFullColumnStringComp_T<TestColumnsExcludedTolmey3229> {
 public:
  TestColumnsExcludedTolmey3229() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName = wxT("Tolmey_3229_exclude_pixel");
    // A column in the first place does not count as present.
    const bool columnsAreRight = ColumnOf(wxT("Pressed Or\nReleased")) >= 1 &&
                                 ColumnOf(wxT("Key")) >= 1 && ColumnOf(wxT("X\nPosition")) < 0 &&
                                 ColumnOf(wxT("Y\nPosition")) < 0;
    ReportCheck(columnsAreRight, testName,
                {wxT("Datafile columns are NOT as expected."), 57,
                 wxT("we wanted to FIND the pressed column and NOT find the pixels columns.")});

    PerformDurationBoundsTest(40, 80, true);
    PerformDurationBoundsTest_MacServer(40, 200);
    PerformDurationBoundsTest_SmallTestBox(40, 350);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestColumnsExcludedTolmey3229, false);
