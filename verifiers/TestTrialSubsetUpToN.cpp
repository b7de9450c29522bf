#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("trial_subset_only_the_last_N_versus_up_to_N.om4");

// One half of the experiment, under the names that its events have there.
std::vector<wxString> HalfOfTheRows(const wxString& red, const wxString& blue,
                                    const wxString& macro) {
  return {red,  blue, red, red, blue, red,  macro, blue, blue,  red,  blue,
          blue, blue, red, red, red,  blue, blue,  red,  macro, blue, red};
}

const std::vector<wxString>& GetExpectedCellValuesForEventNames() {
  static const std::vector<wxString> cells =
      ExpectedCells()
          .AddAll(HalfOfTheRows(wxT("red"), wxT("blue"), wxT("a0 macro")))
          .AddAll(HalfOfTheRows(wxT("red1"), wxT("blue1"), wxT("a1 macro")))
          .Cells();
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForRedBlueCode() {
  static const std::vector<wxString> cells =
      ExpectedCells().RepeatAll(2, HalfOfTheRows(wxT("red"), wxT("blue"), wxString())).Cells();
  return cells;
}

}  // namespace

class TestTrialSubsetUpToN : public TestCaseWithFullColumnStringComp_T<TestTrialSubsetUpToN> {
 public:
  TestTrialSubsetUpToN() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("Event\nName"), GetExpectedCellValuesForEventNames());
    VerifyVerbatimColumnContent(wxT("red_blue"), GetExpectedCellValuesForRedBlueCode());

    PerformDurationBoundsTest(200, 1000, true);
    PerformDurationBoundsTest_MacServer(450, 2200);
    PerformDurationBoundsTest_SmallTestBox(2000, 4000);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestTrialSubsetUpToN, false);
