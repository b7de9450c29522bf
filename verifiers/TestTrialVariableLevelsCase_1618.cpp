#include <map>

#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2011-08-11_tolmey_1618_NumberMemorytest.om4");
const wxString COL_6_TEST_NAME = wxT("Trial_levels_in_column_6");
const wxString COL_6_PATHOLOGY_TEST_NAME = wxT("Trial_levels_in_column_6_randomized");

const std::vector<wxString>& GetExpectedCellValuesForCode() {
  static const std::vector<wxString> cells = ExpectedCells::Blank(10).Cells();
  return cells;
}

}  // namespace

// Each level of a trial variable comes up once, and the order is shuffled.
class TestTrialVariableLevelsCase_1618
    : public TestCaseWithFullColumnStringComp_T<TestTrialVariableLevelsCase_1618> {
 public:
  TestTrialVariableLevelsCase_1618()
      : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("Presented"), GetExpectedCellValuesForCode());

    const std::vector<wxString> sorted = {
        wxT("01 - Left Left"),   wxT("02 - Left"),   wxT("03 - Middle"), wxT("04 - Right"),
        wxT("05 - Right Right"), wxT("Invisible01"), wxT("Invisible02"), wxT("Invisible03"),
        wxT("Invisible04"),      wxT("Invisible05")};
    std::map<wxString, int> counts = {{wxT("01 - Left Left"), 0},
                                      {wxT("02 - Left"), 0},
                                      {wxT("03 - Middle"), 0},
                                      {wxT("04 - Right"), 0},
                                      {wxT("05 - Right Right"), 0}};
    bool shuffled = false;
    const int column = ColumnOf(wxT("Random Number Locations\n(Trial Variable)"));
    for (int row = 0; row < RowCount(); ++row) {
      const wxString level = CellAt(row, column);
      ++counts[level];
      const size_t entry = static_cast<size_t>(row);
      if (entry < sorted.size() && level != sorted[entry]) shuffled = true;
    }

    const bool eachOnce = counts[wxT("03 - Middle")] == 1 && counts[wxT("04 - Right")] == 1 &&
                          counts[wxT("05 - Right Right")] == 1 &&
                          counts[wxT("01 - Left Left")] == 1 && counts[wxT("02 - Left")] == 1;
    ReportCheck(eachOnce, COL_6_TEST_NAME,
                {wxT("We didn't find exactly one occurrence of each of the five levels."), 107,
                 wxT("There should have been a left-left, a left, a middle, a right, and a "
                     "right-right.                   Exactly one of each.")});
    ReportCheck(
        shuffled, COL_6_PATHOLOGY_TEST_NAME,
        {wxT("could fail VERY RARELY... the levels were in perfect SORTED order rather than "
             "random"),
         123,
         wxT("probability dictates this will fail once in a BLUE MOON. normally we expect a "
             "SHUFFLED ordering")});

    PerformDurationBoundsTest(1000, 1090, true);
    PerformDurationBoundsTest_SmallTestBox(1000, 1200);
    PerformDurationBoundsTest_MacServer(1000, 1050);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestTrialVariableLevelsCase_1618, false);
