#include "framework/IndividualTestCase_T.h"
#include "framework/RowScan.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr.om4");

}  // namespace

class Test_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr
    : public IndividualTestCase_T<Test_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr, false> {
 public:
  Test_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr()
      : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName = wxT("Repeat_trial_functions_as_expected");
    const RowScan rule =
        RowScan::Positional({wxT("event 1"), wxT("event 2"), wxT("event 2"), wxT("event 2")});
    CheckEventNames(rule, testName, 63,
                    wxT("We expected to see event 1 once and then event 2 repeated three times "
                        "as that's what the macro is set up to do."));

    PerformDurationBoundsTest(3200, 3250, true);
    PerformDurationBoundsTest_MacServer(3200, 3420);
    PerformDurationBoundsTest_SmallTestBox(3200, 3500);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2012_3_9_tolmey_2668_macro_repeat_trial_no_wtr, false);
