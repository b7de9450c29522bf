#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("trl_shared_in_blks_plus_change_code_for_TIB.om4");

const std::vector<wxString>& GetExpectedCellValuesForCodeB1() {
  static const std::vector<wxString> cells = ExpectedCells::Blank(32)
                                                 .Range(5, 6, wxT("red"))
                                                 .Range(8, 11, wxT("red"))
                                                 .Range(13, 14, wxT("red"))
                                                 .Range(16, 19, wxT("red"))
                                                 .Range(21, 22, wxT("red"))
                                                 .Range(24, 27, wxT("red"))
                                                 .Range(29, 30, wxT("red"))
                                                 .Cells();
  return cells;
}

// Groups of eight rows, each of which ends in an empty cell.
const std::vector<wxString>& GetExpectedCellValuesForCodeB2() {
  static const std::vector<wxString> cells = ExpectedCells::Blank(32)
                                                 .Range(0, 6, wxT("8765"))
                                                 .Range(8, 14, wxT("8765"))
                                                 .Range(16, 17, wxT("8765"))
                                                 .Range(18, 22, wxT("0000"))
                                                 .Range(24, 25, wxT("8765"))
                                                 .Range(26, 30, wxT("0000"))
                                                 .Cells();
  return cells;
}

}  // namespace

class TestMutableCodesAllTrialsPlusSharing
    : public TestCaseWithFullColumnStringComp_T<TestMutableCodesAllTrialsPlusSharing> {
 public:
  TestMutableCodesAllTrialsPlusSharing()
      : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("for_b1"), GetExpectedCellValuesForCodeB1());
    VerifyVerbatimColumnContent(wxT("for_b2"), GetExpectedCellValuesForCodeB2());

    PerformDurationBoundsTest(30, 300, true);
    PerformDurationBoundsTest_MacServer(30, 800);
    PerformDurationBoundsTest_SmallTestBox(1000, 2000);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestMutableCodesAllTrialsPlusSharing, false);
