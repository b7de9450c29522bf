#include "framework/IndividualTestCase_T.h"
#include "framework/RowScan.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2012_3_9_tolmey_2668_macro_goto_block_any.om4");

}  // namespace

class Test_2012_3_9_tolmey_2668_macro_goto_block_any
    : public IndividualTestCase_T<Test_2012_3_9_tolmey_2668_macro_goto_block_any, false> {
 public:
  Test_2012_3_9_tolmey_2668_macro_goto_block_any()
      : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName = wxT("Go_to_block_any_functions_as_expected");
    const RowScan rule = RowScan::Anywhere({wxT("event 1"), wxT("event 3")}, 1);
    CheckEventNames(rule, testName, 65,
                    wxT("We expected to see exactly two events, event 1 and event 3, as the "
                        "block containing event 1 was set to present the block containing event "
                        "3."));

    PerformDurationBoundsTest(1600, 1660, true);
    PerformDurationBoundsTest_MacServer(1600, 1700);
    PerformDurationBoundsTest_SmallTestBox(1600, 1800);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2012_3_9_tolmey_2668_macro_goto_block_any, false);
