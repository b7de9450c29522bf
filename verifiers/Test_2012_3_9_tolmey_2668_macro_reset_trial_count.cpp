#include "framework/IndividualTestCase_T.h"
#include "framework/RowScan.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2012_3_9_tolmey_2668_macro_reset_trial_count.om4");

}  // namespace

class Test_2012_3_9_tolmey_2668_macro_reset_trial_count
    : public IndividualTestCase_T<Test_2012_3_9_tolmey_2668_macro_reset_trial_count, false> {
 public:
  Test_2012_3_9_tolmey_2668_macro_reset_trial_count()
      : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName = wxT("Reset_trial_count_functions_as_expected");
    const RowScan rule = RowScan::Positional({wxT("event 1"), wxT("event 2")});
    CheckEventNames(rule, testName, 63,
                    wxT("We expected to see event 1 once and event 2 also once as that's what "
                        "the macro is set up to do. This one is tricky-ish as it uses both a "
                        "when to run experession and a macro to work."));
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2012_3_9_tolmey_2668_macro_reset_trial_count, false);
