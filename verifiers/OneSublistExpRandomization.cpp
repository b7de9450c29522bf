#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

wxString FOCUS_OF_THIS_TEST() {
  static const wxString name = wxT("one_sublist_exp_randomization.om5");
  return name;
}

const wxString TEST_NAME = wxT("Test_Correct_Amt_of_Sublist_Items_and_in_Order");

constexpr int ITEMS_DRAWN = 4;

const std::vector<wxString>& GetExpectedCellValuesForEventNames() {
  static const std::vector<wxString> cells = {wxT("e (1, 1)"), wxT("e (2, 2)"), wxT("e (3, 3)"),
                                              wxT("e (4, 4)"), wxT("e (5, 5)")};
  return cells;
}

}  // namespace

class OneSublistExpRandomization
    : public TestCaseWithFullColumnStringComp_T<OneSublistExpRandomization> {
 public:
  OneSublistExpRandomization() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST(), false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    const int matches = CountItemsInOrder();
    ReportCheck(
        matches == ITEMS_DRAWN, TEST_NAME,
        {wxT("Mismatch in data cells in datafile."), 106,
         wxString::Format(
             wxT("The column contents weren't an ordered subset of the given items. We matched "
                 "%d/%d items. Either they were our of order or there were too few or too "
                 "many or something else went wrong."),
             matches, ITEMS_DRAWN)});

    PerformDurationBoundsTest(400, 5200, true);
    PerformDurationBoundsTest_MacServer(410, 500);
    PerformDurationBoundsTest_SmallTestBox(400, 11600);
    PerformBoundsTest(0, 400, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(200, 300);
  }

 private:
  // How many rows are items in list order? One walk through the list serves all rows. A row that is no
  // item, or an item out of order, uses up the rest of the list.
  int CountItemsInOrder() const {
    const std::vector<wxString>& items = GetExpectedCellValuesForEventNames();
    const int column = ColumnOf(wxT("Event\nName"));
    std::size_t cursor = 0;
    int matches = 0;
    for (int row = 0; row < RowCount(); ++row) {
      const wxString cell = CellAt(row, column);
      bool found = false;
      while (!found && cursor < items.size()) found = cell == items[cursor++];
      if (found) ++matches;
    }
    return matches;
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(OneSublistExpRandomization, false);
