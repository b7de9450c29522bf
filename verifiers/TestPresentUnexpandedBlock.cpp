#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2014-12-4_fail_to_present_block.om5");

const std::vector<wxString>& GetExpectedCellValuesForEventName() {
  static const std::vector<wxString> cells = {wxT("an event that runs")};
  return cells;
}

}  // namespace

class TestPresentUnexpandedBlock
    : public TestCaseWithFullColumnStringComp_T<TestPresentUnexpandedBlock> {
 public:
  TestPresentUnexpandedBlock() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("Event\nName"), GetExpectedCellValuesForEventName());
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestPresentUnexpandedBlock, false);
