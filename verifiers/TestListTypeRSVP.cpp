#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

wxString FOCUS_OF_THIS_TEST() {
  static const wxString name = wxT("2014-08-14_list_SPR_and_RSVP.om5");
  return name;
}

const std::vector<wxString>& GetExpectedCellValuesForEventName() {
  static const std::vector<wxString> cells = {wxT("[SubEvent 1] a (3, (3) a a b b\\(3) two)"),
                                              wxT("[SubEvent 2] a (3, (3) a a b b\\(3) two)"),
                                              wxT("[SubEvent 1] a (1, (1) aaa\\(1) bbb\\(1) ccc)"),
                                              wxT("[SubEvent 2] a (1, (1) aaa\\(1) bbb\\(1) ccc)"),
                                              wxT("[SubEvent 3] a (1, (1) aaa\\(1) bbb\\(1) ccc)"),
                                              wxT("[SubEvent 1] a (4, (4) d d e e\\(4) three)"),
                                              wxT("[SubEvent 2] a (4, (4) d d e e\\(4) three)"),
                                              wxT("[SubEvent 1] a (2, (2) ddd\\(2) eee)"),
                                              wxT("[SubEvent 2] a (2, (2) ddd\\(2) eee)"),
                                              wxT("[SubEvent 1] b (4, (4) d d e e\\(4) three)"),
                                              wxT("[SubEvent 2] b (4, (4) d d e e\\(4) three)"),
                                              wxT("[SubEvent 1] b (2, (2) ddd\\(2) eee)"),
                                              wxT("[SubEvent 2] b (2, (2) ddd\\(2) eee)"),
                                              wxT("[SubEvent 1] b (1, (1) aaa\\(1) bbb\\(1) ccc)"),
                                              wxT("[SubEvent 2] b (1, (1) aaa\\(1) bbb\\(1) ccc)"),
                                              wxT("[SubEvent 3] b (1, (1) aaa\\(1) bbb\\(1) ccc)"),
                                              wxT("[SubEvent 1] b (3, (3) a a b b\\(3) two)"),
                                              wxT("[SubEvent 2] b (3, (3) a a b b\\(3) two)")};
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForTrialName() {
  static const std::vector<wxString> cells = ExpectedCells()
                                                 .Repeat(2, wxT("a - random PER GROUP, 3"))
                                                 .Repeat(3, wxT("a - random PER GROUP, 1"))
                                                 .Repeat(2, wxT("a - random PER GROUP, 4"))
                                                 .Repeat(2, wxT("a - random PER GROUP, 2"))
                                                 .Repeat(2, wxT("b - random PER GROUP, 4"))
                                                 .Repeat(2, wxT("b - random PER GROUP, 2"))
                                                 .Repeat(3, wxT("b - random PER GROUP, 1"))
                                                 .Repeat(2, wxT("b - random PER GROUP, 3"))
                                                 .Cells();
  return cells;
}

}  // namespace

class TestListTypeRSVP : public TestCaseWithFullColumnStringComp_T<TestListTypeRSVP> {
 public:
  TestListTypeRSVP() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST(), false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("Event\nName"), GetExpectedCellValuesForEventName());
    VerifyVerbatimColumnContent(wxT("Trial\nName"), GetExpectedCellValuesForTrialName());

    PerformDurationBoundsTest(396, 460, true);
    PerformDurationBoundsTest_MacServer(396, 1000);
    PerformDurationBoundsTest_SmallTestBox(396, 1250);
    PerformBoundsTest(5, 40, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(200, 300);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestListTypeRSVP, false);
