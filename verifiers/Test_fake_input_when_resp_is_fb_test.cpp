#include "framework/IndividualTestCase_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("fake_input_when_resp_is_fb_test.om5");

const std::vector<wxString>& GetExpectedEventNames() {
  static const std::vector<wxString> cells = {
      wxT("non-fb-event1, should show one fb"),
      wxT("feedback event a"),
      wxT("non-fb-event2, should not show fb"),
      wxT("non-fb-event3, should show one fb"),
      wxT("feedback event c"),
  };
  return cells;
}

wxString JoinedBySemicolons(const std::vector<wxString>& cells) {
  wxString text;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) text += wxT("; ");
    text += cells[i];
  }
  return text;
}

}  // namespace

class Test_fake_input_when_resp_is_fb_test
    : public IndividualTestCase_T<Test_fake_input_when_resp_is_fb_test, false> {
 public:
  Test_fake_input_when_resp_is_fb_test() : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName =
        wxT("Use the fake input plugin to trigger feedback events when appropriate.");
    const int column = ColumnOf(wxT("Event\nName"));
    const int rows = RowCount();
    std::vector<wxString> cells;
    cells.reserve(static_cast<std::size_t>(rows));
    for (int row = 0; row < rows; ++row) {
      cells.push_back(CellAt(row, column));
    }
    ReportCheck(cells == GetExpectedEventNames(), testName,
                {wxT("Something bad happened instead."), 98,
                 wxT("We expected to see exactly five events in that order:\n"
                     "non-fb-event1, should show one fb; feedback event a; "
                     "non-fb-event2, should not show fb; non-fb-event3, should show one fb; "
                     "feedback event c\nWe got\n") +
                     JoinedBySemicolons(cells) + wxT(" instead")});

    PerformDurationBoundsTest(2100, 2300, true);
    PerformDurationBoundsTest_MacServer(2100, 2300);
    PerformDurationBoundsTest_SmallTestBox(2100, 2400);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_fake_input_when_resp_is_fb_test, false);
