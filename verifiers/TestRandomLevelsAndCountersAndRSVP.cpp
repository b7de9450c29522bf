#include <wx/tokenzr.h>

#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

wxString FOCUS_OF_THIS_TEST() {
  static const wxString name = wxT("2013-10-21_randomize_opts_TrialVars_RSVP_SPR.om5");
  return name;
}

constexpr std::size_t ROWS = 318;

// From this row on the levels of the groups of variables are drawn.
constexpr std::size_t FIRST_GROUP_ROW = 188;

std::vector<wxString> Words(const wxString& text) {
  std::vector<wxString> words;
  for (wxStringTokenizer tokens(text, wxT(" ")); tokens.HasMoreTokens();) {
    words.push_back(tokens.GetNextToken());
  }
  return words;
}

// How many rows at the end of a group of four hold the group's level.
enum class GroupRows : std::size_t { ALL_FOUR = 4, LAST_THREE = 3, LAST_TWO = 2, LAST_ONE = 1 };

// Twelve groups of four rows with one level each, from the first group row on. Other rows are empty.
ExpectedCells InTwelveGroups(GroupRows rows, const wxString& levels) {
  return ExpectedCells::Blank(ROWS).Groups(FIRST_GROUP_ROW, 4, 4 - static_cast<std::size_t>(rows),
                                           3, Words(levels));
}

std::vector<wxString> TenColors1Cells() {
  const std::vector<wxString> cycle =
      Words(wxT("red yellow green blue grey black white purple pink orange"));
  std::vector<wxString> cells(ROWS);
  std::size_t drawn = 0;
  for (std::size_t row = 1; row <= 107; ++row) {
    if (row % 3 != 0) cells[row] = cycle[drawn++ % cycle.size()];
  }
  for (std::size_t row = 36; row <= 105; row += 3) cells[row] = cells[row - 4];
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForWhollyEmptyColumn() {
  static const std::vector<wxString> cells(ROWS);
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForTenColors1() {
  static const std::vector<wxString> cells = TenColors1Cells();
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForTenColors3() {
  static const std::vector<wxString> cells =
      ExpectedCells::Blank(ROWS)
          .Range(236, 240, wxT("red"))
          .From(241, Words(wxT("yellow green blue grey black white purple pink")))
          .Range(249, 251, wxT("orange"))
          .From(252, Words(wxT("red yellow green blue grey black")))
          .Cells();
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForConvenienceVar() {
  static const std::vector<wxString> cells = ExpectedCells::Blank(ROWS)
                                                 .Remainder(0, 35, 3, 2, wxT("10"))
                                                 .Range(36, 187, wxT("10"))
                                                 .Remainder(188, 235, 4, 3, wxT("10"))
                                                 .Range(236, 317, wxT("10"))
                                                 .Cells();
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForNoRepl01() {
  static const std::vector<wxString> cells =
      InTwelveGroups(GroupRows::ALL_FOUR, wxT("02 06 03 05 04 07 01 06 04 05 07 02"))
          .From(236, Words(wxT("03 03 01 01")))
          .Cells();
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForNoRepl02() {
  static const std::vector<wxString> cells =
      InTwelveGroups(GroupRows::LAST_THREE, wxT("02 03 04 05 07 06 01 06 02 03 04 05")).Cells();
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForWithRepl01() {
  static const std::vector<wxString> cells =
      InTwelveGroups(GroupRows::LAST_TWO, wxT("07 01 06 05 01 02 07 06 01 07 07 05"))
          .Row(237, wxT("06"))
          .Row(239, wxT("05"))
          .Cells();
  return cells;
}

// Here the level changes twice in each group of four.
const std::vector<wxString>& GetExpectedCellValuesForWithRepl02() {
  static const std::vector<wxString> cells =
      ExpectedCells::Blank(ROWS)
          .Groups(FIRST_GROUP_ROW, 2, 0, 1,
                  Words(wxT("02 01 02 06 06 07 02 02 06 06 04 01 07 06 06 04 07 07 07 03 07 06 "
                            "04 06")))
          .Row(237, wxT("04"))
          .Row(239, wxT("06"))
          .Cells();
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForManual01() {
  static const std::vector<wxString> cells =
      InTwelveGroups(GroupRows::LAST_THREE, wxT("01 01 02 07 04 04 01 06 01 07 05 04"))
          .From(258, Words(wxT("05 05 06 06 07 05 01 01 01 06 01 03 02 02 04 06 03 05 06 04 "
                               "05 02 05 02 07 05 04 02 01 06 03 07 01 02 03 02 04 05 02 02 "
                               "01 03 06 02 02 03 01 04 05 07 06 07 05 02 04 02 04 05 07 "
                               "04")))
          .Cells();
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForManual02() {
  static const std::vector<wxString> cells =
      InTwelveGroups(GroupRows::LAST_ONE, wxT("03 07 01 05 07 06 06 04 05 04 07 03")).Cells();
  return cells;
}

}  // namespace

class TestRandomLevelsAndCountersAndRSVP
    : public TestCaseWithFullColumnStringComp_T<TestRandomLevelsAndCountersAndRSVP> {
 public:
  TestRandomLevelsAndCountersAndRSVP()
      : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST(), false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("ten colors 1\n(Trial Variable)"),
                                GetExpectedCellValuesForTenColors1());
    VerifyVerbatimColumnContent(wxT("ten colors 2\n(Trial Variable)"),
                                GetExpectedCellValuesForWhollyEmptyColumn());
    VerifyVerbatimColumnContent(
        wxT("ten colors 3. sequential. restart each trial\n(Trial Variable)"),
        GetExpectedCellValuesForTenColors3());
    // Compared like the others, whatever its name says.
    VerifyVerbatimColumnContent(
        wxT("NOT FOR TEST VERIFICATION. for convenience.\n(Trial Variable)"),
        GetExpectedCellValuesForConvenienceVar());
    VerifyVerbatimColumnContent(wxT("anti-lockstep group no-repl 1. LOC\n(Trial Variable)"),
                                GetExpectedCellValuesForNoRepl01());
    VerifyVerbatimColumnContent(wxT("anti-lockstep group no-repl 2. LOC\n(Trial Variable)"),
                                GetExpectedCellValuesForNoRepl02());
    VerifyVerbatimColumnContent(wxT("anti-lockstep group with-repl 1. LOC\n(Trial Variable)"),
                                GetExpectedCellValuesForWithRepl01());
    VerifyVerbatimColumnContent(wxT("anti-lockstep group with-repl 2. COLOR\n(Trial Variable)"),
                                GetExpectedCellValuesForWithRepl02());
    VerifyVerbatimColumnContent(wxT("anti-lockstep group manual 1. COLOR\n(Trial Variable)"),
                                GetExpectedCellValuesForManual01());
    VerifyVerbatimColumnContent(wxT("anti-lockstep group manual 2. LOC\n(Trial Variable)"),
                                GetExpectedCellValuesForManual02());
    VerifyVerbatimColumnContent(wxT("EMPTY location\n(Trial Variable)"),
                                GetExpectedCellValuesForWhollyEmptyColumn());
    VerifyVerbatimColumnContent(wxT("EMPTY color\n(Trial Variable)"),
                                GetExpectedCellValuesForWhollyEmptyColumn());

    PerformDurationBoundsTest(2200, 3200, true);
    PerformDurationBoundsTest_SmallTestBox(2300, 18000);
    PerformDurationBoundsTest_MacServer(3000, 3700);
    PerformBoundsTest(50, 150, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(700, 900);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestRandomLevelsAndCountersAndRSVP, false);
