#include <algorithm>

#include "framework/CellCounts.h"
#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2011-08-11_tolmey_1618_NumberMemorytest.om4");
const wxString LEVELS_COLUMN = wxT("Random Number Locations\n(Trial Variable)");
const wxString COL_6_TEST_NAME = wxT("Trial_levels_in_column_6");
const wxString COL_6_PATHOLOGY_TEST_NAME = wxT("Trial_levels_in_column_6_randomized");

const std::vector<wxString>& GetExpectedCellValuesForCode() {
  static const std::vector<wxString> cells = ExpectedCells::Blank(10).Cells();
  return cells;
}

}  // namespace

class TestTrialVariableLevelsCase_1618
    : public TestCaseWithFullColumnStringComp_T<TestTrialVariableLevelsCase_1618> {
 public:
  TestTrialVariableLevelsCase_1618()
      : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("Presented"), GetExpectedCellValuesForCode());

    CheckThatEachLevelOccursOnce();
    CheckThatLevelsAreShuffled();

    PerformDurationBoundsTest(1000, 1090, true);
    PerformDurationBoundsTest_SmallTestBox(1000, 1200);
    PerformDurationBoundsTest_MacServer(1000, 1050);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }

 private:
  // The invisible levels are not counted.
  void CheckThatEachLevelOccursOnce() {
    const std::vector<wxString> levels = {wxT("03 - Middle"), wxT("04 - Right"),
                                          wxT("05 - Right Right"), wxT("01 - Left Left"),
                                          wxT("02 - Left")};
    const bool eachOnce = std::all_of(levels.begin(), levels.end(), [this](const wxString& level) {
      return CountCells(*m_reader, LEVELS_COLUMN, level) == 1;
    });
    ReportCheck(eachOnce, COL_6_TEST_NAME,
                {wxT("We didn't find exactly one occurrence of each of the five levels."), 107,
                 wxT("There should have been a left-left, a left, a middle, a right, and a "
                     "right-right.                   Exactly one of each.")});
  }

  // Rows beyond the sorted list are not compared.
  void CheckThatLevelsAreShuffled() {
    const std::vector<wxString> sorted = {
        wxT("01 - Left Left"),   wxT("02 - Left"),   wxT("03 - Middle"), wxT("04 - Right"),
        wxT("05 - Right Right"), wxT("Invisible01"), wxT("Invisible02"), wxT("Invisible03"),
        wxT("Invisible04"),      wxT("Invisible05")};
    const int column = ColumnOf(LEVELS_COLUMN);
    bool shuffled = false;
    int row = 0;
    for (const wxString& level : sorted) {
      if (row == RowCount()) break;
      if (CellAt(row, column) != level) shuffled = true;
      ++row;
    }
    ReportCheck(
        shuffled, COL_6_PATHOLOGY_TEST_NAME,
        {wxT("could fail VERY RARELY... the levels were in perfect SORTED order rather than "
             "random"),
         123,
         wxT("probability dictates this will fail once in a BLUE MOON. normally we expect a "
             "SHUFFLED ordering")});
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestTrialVariableLevelsCase_1618, false);
