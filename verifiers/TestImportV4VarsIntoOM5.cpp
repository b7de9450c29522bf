#include <algorithm>
#include <iterator>

#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2013-10-21_import_v4_trial_vars.om4");

const std::vector<wxString>& GetExpectedCellValuesForEventName() {
  static const std::vector<wxString> cells =
      ExpectedCells()
          .AddAll({wxT("1"), wxT("2"), wxT("1"), wxT("1"), wxT("2")})
          .RepeatAll(
              2, {wxT("color 1"), wxT("color 2"), wxT("color 3"), wxT("color 4"), wxT("color 5")})
          .AddAll({wxT("position 1"), wxT("position 2"), wxT("position 3"), wxT("position 3"),
                   wxT("position 4"), wxT("position 5"), wxT("position 1"), wxT("position 2"),
                   wxT("position 5")})
          .Cells();
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForTimeout() {
  static const std::vector<wxString> cells =
      ExpectedCells()
          .AddAll({wxT("30"), wxT("40"), wxT("50"), wxT("60"), wxT("30")})
          .Repeat(10, wxT(""))
          .AddAll({wxT("40"), wxT("50"), wxT("60"), wxT("30"), wxT("40"), wxT("50"), wxT("60"),
                   wxT("30"), wxT("40")})
          .Cells();
  return cells;
}

}  // namespace

class TestImportV4VarsIntoOM5 : public TestCaseWithFullColumnStringComp_T<TestImportV4VarsIntoOM5> {
 public:
  TestImportV4VarsIntoOM5() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("Event\nName"), GetExpectedCellValuesForEventName());
    VerifyVerbatimColumnContent(wxT("timeout\n(Trial Variable)"),
                                GetExpectedCellValuesForTimeout());
    VerifyVariableThatUsedRandom_NO_Replacement();
    VerifyVariableThatUsedRandom_WITH_Replacement();

    PerformDurationBoundsTest(710, 1200, true);
    PerformDurationBoundsTest_SmallTestBox(1300, 1700);
    PerformDurationBoundsTest_MacServer(700, 1400);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }

 private:
  // The cells of rows first to last, each followed by a bar.
  wxString JoinedCells(const wxString& columnName, int first, int last) const {
    const int column = ColumnOf(columnName);
    wxString joined;
    for (int row = first; row <= last; ++row) {
      joined += CellAt(row, column) + wxT("|");
    }
    return joined;
  }

  // The draw restarts only at a block boundary, so two blocks of five rows allow four sequences.
  void VerifyVariableThatUsedRandom_NO_Replacement() {
    static const wxString testName =
        wxT("Random_choice_of_two_items_ONLY_RESETS_at_BLOCK_boundary");
    static const wxString possible[] = {wxT("green|red|green|red|green|green|red|green|red|green|"),
                                        wxT("green|red|green|red|green|red|green|red|green|red|"),
                                        wxT("red|green|red|green|red|green|red|green|red|green|"),
                                        wxT("red|green|red|green|red|red|green|red|green|red|")};
    const wxString actual = JoinedCells(wxT("color_var\n(Trial Variable)"), 5, 14);
    const bool found =
        std::find(std::begin(possible), std::end(possible), actual) != std::end(possible);
    ReportCheck(found, testName,
                {wxT("bad behavior of trial variable for colors with selection rand no repl"), 193,
                 wxT("the comments in the function VerifyVariableThatUsedRandom_NO_Replacement "
                     "explain what SHOULD happen every time")});
  }

  // Drawing with replacement under the seed of a group always gives the same sequence.
  void VerifyVariableThatUsedRandom_WITH_Replacement() {
    static const wxString testName = wxT("Random_choice_of_five_items_ALLOWS_REPEATS_group_seed");
    static const wxString expected = wxT("3|4|3|3|1|3|4|1|5|");
    const wxString actual = JoinedCells(wxT("location\n(Trial Variable)"), 15, 23);
    ReportCheck(actual == expected, testName,
                {wxT("bad behavior of trial variable for positions with selection rand with "
                     "repl group seed"),
                 225,
                 wxT("the group seed should guarantee the same sequence... this test never has "
                     "a reason to fail")});
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestImportV4VarsIntoOM5, false);
