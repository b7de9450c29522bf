#include "framework/IndividualTestCase_T.h"
#include "framework/RowScan.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2012_3_9_tolmey_2668_macro_skip_trial.om4");

}  // namespace

class Test_2012_3_9_tolmey_2668_macro_skip_trial
    : public IndividualTestCase_T<Test_2012_3_9_tolmey_2668_macro_skip_trial, false> {
 public:
  Test_2012_3_9_tolmey_2668_macro_skip_trial() : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName = wxT("Repeat_block_functions_as_expected");
    const RowScan rule = RowScan::Positional({wxT("event 1"), wxT("event 3")});
    CheckEventNames(rule, testName, 63,
                    wxT("We expected to see event 1 once and event 3 also once as that's what "
                        "the macro is set up to do."));

    PerformDurationBoundsTest(1600, 1620, true);
    PerformDurationBoundsTest_MacServer(1600, 1730);
    PerformDurationBoundsTest_SmallTestBox(1600, 1790);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2012_3_9_tolmey_2668_macro_skip_trial, false);
