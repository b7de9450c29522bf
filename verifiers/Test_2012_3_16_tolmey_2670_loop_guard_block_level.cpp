#include "framework/IndividualTestCase_T.h"
#include "framework/RowScan.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2012_3_16_tolmey_2670_loop_guard_block_level.om4");

}  // namespace

class Test_2012_3_16_tolmey_2670_loop_guard_block_level
    : public IndividualTestCase_T<Test_2012_3_16_tolmey_2670_loop_guard_block_level, false> {
 public:
  Test_2012_3_16_tolmey_2670_loop_guard_block_level()
      : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName = wxT("The_loop_guard_works");
    const RowScan rule = RowScan::Positional({wxT("event 1"), wxT("event 2"), wxT("event 1"),
                                              wxT("event 2"), wxT("event 1"), wxT("event 3")});
    CheckEventNames(rule, testName, 88,
                    wxT("Can we even get this fail message? I mean if the loop guard has stopped "
                        "working then we should've never finished the experiment. I guess we might "
                        "still be capable of seeing this."));
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2012_3_16_tolmey_2670_loop_guard_block_level, false);
