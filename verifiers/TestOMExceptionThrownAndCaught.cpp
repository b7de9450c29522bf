#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2015-01-30_OMException_thrown_and_caught.om5");

const std::vector<wxString>& GetExpectedCellValuesForTrialName() {
  // The first name contains every character that a file name must not contain.
  static const std::vector<wxString> cells =
      ExpectedCells()
          .Add(wxT("a\\a/a:a*a?a\"a<a>a|aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"))
          .Add(wxT("bbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbb"))
          .Repeat(4, wxT("cccccccccccccccccccccccccccccccccccccccc, 1"))
          .Cells();
  return cells;
}

}  // namespace

class TestOMExceptionThrownAndCaught
    : public TestCaseWithFullColumnStringComp_T<TestOMExceptionThrownAndCaught> {
 public:
  TestOMExceptionThrownAndCaught()
      : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("Trial\nName"), GetExpectedCellValuesForTrialName());
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestOMExceptionThrownAndCaught, false);
