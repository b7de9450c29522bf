#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("trial_subset_multiple_block_macro_import.om4");

// One half of the experiment: both imported macros run where a single one would.
std::vector<wxString> HalfOfTheRows(const wxString& macro0, const wxString& macro1) {
  const wxString red = wxT("red");
  const wxString blue = wxT("blue");
  return {red,  blue, red, red, blue, red,  macro0, macro1, blue,   blue,   red,  blue,
          blue, blue, red, red, red,  blue, blue,   red,    macro0, macro1, blue, red};
}

const std::vector<wxString>& GetExpectedCellValuesForEventNames() {
  static const std::vector<wxString> cells =
      ExpectedCells().RepeatAll(2, HalfOfTheRows(wxT("a0 macro"), wxT("a1 macro"))).Cells();
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForRedBlueCode() {
  static const std::vector<wxString> cells =
      ExpectedCells().RepeatAll(2, HalfOfTheRows(wxString(), wxString())).Cells();
  return cells;
}

}  // namespace

class TrialSubsetUpToNMultipleBlockParents
    : public TestCaseWithFullColumnStringComp_T<TrialSubsetUpToNMultipleBlockParents> {
 public:
  TrialSubsetUpToNMultipleBlockParents()
      : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("Event\nName"), GetExpectedCellValuesForEventNames());
    VerifyVerbatimColumnContent(wxT("red_blue"), GetExpectedCellValuesForRedBlueCode());

    PerformDurationBoundsTest(880, 2000, true);
    PerformDurationBoundsTest_MacServer(900, 3000);
    PerformDurationBoundsTest_SmallTestBox(2000, 4000);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TrialSubsetUpToNMultipleBlockParents, false);
