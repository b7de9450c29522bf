#include "framework/IndividualTestCase_T.h"
#include "framework/RowScan.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2012_3_9_tolmey_2668_macro_repeat_block.om4");

}  // namespace

class Test_2012_3_9_tolmey_2668_macro_repeat_block
    : public IndividualTestCase_T<Test_2012_3_9_tolmey_2668_macro_repeat_block, false> {
 public:
  Test_2012_3_9_tolmey_2668_macro_repeat_block()
      : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName = wxT("Repeat_block_functions_as_expected");
    const RowScan rule = RowScan::Count(wxT("event 1"), 3, 2);
    CheckEventNames(rule, testName, 59,
                    wxT("We expected to see event 1 three times as that's what the macro is set "
                        "up to do."));

    PerformDurationBoundsTest(2400, 2500, true);
    PerformDurationBoundsTest_MacServer(2400, 2580);
    PerformDurationBoundsTest_SmallTestBox(2400, 2700);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2012_3_9_tolmey_2668_macro_repeat_block, false);
