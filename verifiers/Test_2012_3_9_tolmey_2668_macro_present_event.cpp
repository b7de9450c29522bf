#include "framework/IndividualTestCase_T.h"
#include "framework/RowScan.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2012_3_9_tolmey_2668_macro_present_event.om4");

}  // namespace

class Test_2012_3_9_tolmey_2668_macro_present_event
    : public IndividualTestCase_T<Test_2012_3_9_tolmey_2668_macro_present_event, false> {
 public:
  Test_2012_3_9_tolmey_2668_macro_present_event()
      : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName = wxT("Present_event_functions_as_expected");
    const RowScan rule = RowScan::Positional({wxT("event 2"), wxT("event 1"), wxT("event 2")});
    CheckEventNames(rule, testName, 70,
                    wxT("We expected to see exactly three events, event 2, event 1, event 2 "
                        "again."));

    PerformDurationBoundsTest(5000, 5100, true);
    PerformDurationBoundsTest_MacServer(5000, 5190);
    PerformDurationBoundsTest_SmallTestBox(5000, 5200);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2012_3_9_tolmey_2668_macro_present_event, false);
