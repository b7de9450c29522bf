#include "framework/RowScan.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2012_3_9_tolmey_2668_trial_wtp_codes.om4");

const std::vector<wxString>& GetExpectedCellValuesForCode() {
  static const std::vector<wxString> cells = {wxT("no"), wxT("yes")};
  return cells;
}

}  // namespace

class Test_2012_3_9_tolmey_2668_trial_wtp_codes
    : public TestCaseWithFullColumnStringComp_T<Test_2012_3_9_tolmey_2668_trial_wtp_codes> {
 public:
  Test_2012_3_9_tolmey_2668_trial_wtp_codes()
      : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName = wxT("Presenting_trials_based_on_code_functions_as_expected");
    const RowScan rule = RowScan::Positional({wxT("event 1"), wxT("event 2")});
    CheckEventNames(rule, testName, 80,
                    wxT("We expected to see event 1 once and event 2 also once as that's what "
                        "the macro is set up to do."));
    VerifyVerbatimColumnContent(wxT("code"), GetExpectedCellValuesForCode());

    PerformDurationBoundsTest(1600, 1630, true);
    PerformDurationBoundsTest_MacServer(1600, 1720);
    PerformDurationBoundsTest_SmallTestBox(1600, 1800);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2012_3_9_tolmey_2668_trial_wtp_codes, false);
