#include "framework/IndividualTestCase_T.h"
#include "framework/RowScan.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2012_3_9_tolmey_2668_macro_goto_block_prev.om4");

}  // namespace

class Test_2012_3_9_tolmey_2668_macro_goto_block_prev
    : public IndividualTestCase_T<Test_2012_3_9_tolmey_2668_macro_goto_block_prev, false> {
 public:
  Test_2012_3_9_tolmey_2668_macro_goto_block_prev()
      : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName = wxT("Go_to_block_previous_functions_as_expected");
    const RowScan rule = RowScan::Positional(
        {wxT("event 1"), wxT("event 2"), wxT("event 1"), wxT("event 2"), wxT("event 2")});
    CheckEventNames(rule, testName, 78,
                    wxT("We expected to see exactly five events, event 1, 2, 1, 2, 2 due to "
                        "interactions between the when to run settings and macros."));

    PerformDurationBoundsTest(7600, 7700, true);
    PerformDurationBoundsTest_MacServer(7600, 7900);
    PerformDurationBoundsTest_SmallTestBox(7600, 8000);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2012_3_9_tolmey_2668_macro_goto_block_prev, false);
