#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2015-06-01_ways_to_attach_responses_in_RStep.om5");

const std::vector<wxString>& GetExpectedCellValuesForBlockName() {
  static const std::vector<wxString> cells =
      ExpectedCells()
          .Repeat(4, wxT("b1"))
          .Repeat(5, wxT("b2 no subblocks (due to v4 rand settings)"))
          .Cells();
  return cells;
}

}  // namespace

class TestWaysToAttachResponses
    : public TestCaseWithFullColumnStringComp_T<TestWaysToAttachResponses> {
 public:
  TestWaysToAttachResponses() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("Block\nName"), GetExpectedCellValuesForBlockName());

    PerformDurationBoundsTest(180, 1100, true);
    PerformDurationBoundsTest_MacServer(200, 250);
    PerformExpansionBoundsTest_MacServer(250, 350);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestWaysToAttachResponses, false);
