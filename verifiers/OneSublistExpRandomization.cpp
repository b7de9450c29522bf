#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
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
  static const std::vector<wxString> targeted_result = {
      wxT("e (1, 1)"), wxT("e (2, 2)"), wxT("e (3, 3)"), wxT("e (4, 4)"), wxT("e (5, 5)")};
  return targeted_result;
}

// How many rows are items in list order. One walk through the list serves all rows: a row that is no
// item, or an item out of order, uses up the rest of it.
int CountItemsInOrder(const MUExperimentTextReaderMultiFile& reader) {
  const std::vector<wxString>& items = GetExpectedCellValuesForEventNames();
  const int column = reader.GetColumnPositionNumberFromText(wxT("Event\nName"));
  const int rows = reader.GetNumberOfDataRows();
  size_t cursor = 0;
  int matches = 0;
  for (int row = 0; row < rows; ++row) {
    const wxString cell = reader.GetDataCellValue(row, column);
    while (cursor < items.size()) {
      if (cell == items[cursor++]) {
        ++matches;
        break;
      }
    }
  }
  return matches;
}

}  // namespace

// Four of a sublist's five items are drawn, in list order; which one is left out varies.
class OneSublistExpRandomization
    : public TestCaseWithFullColumnStringComp_T<OneSublistExpRandomization> {
 public:
  OneSublistExpRandomization() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST(), false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    const int matches = CountItemsInOrder(*m_reader);
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
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(OneSublistExpRandomization, false);
