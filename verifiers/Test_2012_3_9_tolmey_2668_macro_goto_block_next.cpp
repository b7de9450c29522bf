#include "framework/IndividualTestCase_T.h"
#include "framework/RowScan.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2012_3_9_tolmey_2668_macro_goto_block_next.om4");

}  // namespace

class Test_2012_3_9_tolmey_2668_macro_goto_block_next
    : public IndividualTestCase_T<Test_2012_3_9_tolmey_2668_macro_goto_block_next, false> {
 public:
  Test_2012_3_9_tolmey_2668_macro_goto_block_next()
      : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName = wxT("Go_to_block_any_functions_as_expected");
    const RowScan rule = RowScan::Anywhere({wxT("event 1"), wxT("event 3")}, 1);
    CheckEventNames(rule, testName, 65,
                    wxT("We expected to see exactly two events, event 1 and event 3, as the "
                        "block containing event 1 was set to present the block containing event "
                        "3."));
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2012_3_9_tolmey_2668_macro_goto_block_next, false);
