#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST =
    wxT("2012-12-06_stimlist_events_oddly_attached_as_feedbacks.om4");

const std::vector<wxString>& GetExpectedCellValuesForTrialName() {
  static const std::vector<wxString> cells = ExpectedCells()
                                                 .Repeat(2, wxT("a"))
                                                 .Repeat(3, wxT("b, 1"))
                                                 .Repeat(3, wxT("b, 2"))
                                                 .Repeat(3, wxT("b, 3"))
                                                 .Repeat(2, wxT("c"))
                                                 .Add(wxT("b, 1"))
                                                 .Cells();
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForEventName() {
  static const std::vector<wxString> cells = {
      wxT("1"),         wxT("2 (1, 1a)"),
      wxT("3 (1, 2a)"), wxT("4"),
      wxT("3 (1, 2a)"), wxT("3 (2, 2b)"),
      wxT("4"),         wxT("3 (1, 2a)"),
      wxT("3 (3, 2c)"), wxT("4"),
      wxT("3 (1, 2a)"), wxT("5"),
      wxT("6 (1, 3a)"), wxT("show trial that ends up in a NAME CLASH"),
  };
  return cells;
}

}  // namespace

class ListExpansionAndFeedbacks01
    : public TestCaseWithFullColumnStringComp_T<ListExpansionAndFeedbacks01> {
 public:
  ListExpansionAndFeedbacks01() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("Trial\nName"), GetExpectedCellValuesForTrialName());
    VerifyVerbatimColumnContent(wxT("Event\nName"), GetExpectedCellValuesForEventName());

    PerformDurationBoundsTest(420, 520, true);
    PerformDurationBoundsTest_MacServer(300, 800);
    PerformDurationBoundsTest_SmallTestBox(420, 1160);
    PerformBoundsTest(5, 40, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(300, 500);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(ListExpansionAndFeedbacks01, false);
