#include "framework/IndividualTestCase_T.h"
#include "framework/RowScan.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2012_3_9_tolmey_2668_expr_time_since_exp.om4");

}  // namespace

class Test_2012_3_9_tolmey_2668_expr_time_since_exp
    : public IndividualTestCase_T<Test_2012_3_9_tolmey_2668_expr_time_since_exp, false> {
 public:
  Test_2012_3_9_tolmey_2668_expr_time_since_exp()
      : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName =
        wxT("Time_since_start_of_experiment_expression_functions_as_expected");
    const RowScan rule = RowScan::Positional({wxT("event 1"), wxT("event 2")});
    CheckEventNames(rule, testName, 63,
                    wxT("We expected to see event 1 once and event 2 also once as that's what the "
                        "macro is set up to do."));

    PerformDurationBoundsTest(4000, 4050, true);
    PerformDurationBoundsTest_MacServer(4000, 4100);
    PerformDurationBoundsTest_SmallTestBox(4000, 4150);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2012_3_9_tolmey_2668_expr_time_since_exp, false);
