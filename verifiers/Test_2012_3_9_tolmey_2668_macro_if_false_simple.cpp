#include "framework/IndividualTestCase_T.h"
#include "framework/RowScan.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2012_3_9_tolmey_2668_macro_if_false_simple.om4");

}  // namespace

class Test_2012_3_9_tolmey_2668_macro_if_false_simple
    : public IndividualTestCase_T<Test_2012_3_9_tolmey_2668_macro_if_false_simple, false> {
 public:
  Test_2012_3_9_tolmey_2668_macro_if_false_simple()
      : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName = wxT("The_greater_or_equal_to_operator_works");
    const RowScan rule = RowScan::Anywhere({wxT("event 1")}, 2);
    CheckEventNames(rule, testName, 60,
                    wxT("We expected to see event 1 once. I really hope this test never fails. "
                        "Wow I'm really curious what happens in ombrelia right now."));

    PerformDurationBoundsTest(2400, 2500, true);
    PerformDurationBoundsTest_MacServer(2400, 2560);
    PerformDurationBoundsTest_SmallTestBox(2400, 2700);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2012_3_9_tolmey_2668_macro_if_false_simple, false);
