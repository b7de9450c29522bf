#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

wxString FOCUS_OF_THIS_TEST() {
  static const wxString name = wxT("two_sublists_tagging.om5");
  return name;
}

const std::vector<wxString>& GetExpectedCellValuesForColorTagSet() {
  static const std::vector<wxString> cells =
      ExpectedCells().Repeat(3, wxT("blue")).Repeat(2, wxT("red")).Repeat(4, wxT("blue")).Cells();
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForDirectionTagSet() {
  static const std::vector<wxString> cells =
      ExpectedCells().Repeat(5, wxT("down")).Add(wxT("up")).Repeat(3, wxT("down")).Cells();
  return cells;
}

}  // namespace

class TwoSublistsTagging : public TestCaseWithFullColumnStringComp_T<TwoSublistsTagging> {
 public:
  TwoSublistsTagging() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST(), false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("color"), GetExpectedCellValuesForColorTagSet());
    VerifyVerbatimColumnContent(wxT("direction"), GetExpectedCellValuesForDirectionTagSet());

    PerformDurationBoundsTest(900, 5200, true);
    PerformDurationBoundsTest_MacServer(900, 1100);
    PerformDurationBoundsTest_SmallTestBox(900, 11600);
    PerformBoundsTest(0, 400, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(150, 250);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TwoSublistsTagging, false);
