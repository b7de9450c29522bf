#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"
#include "hostsdk/PostProcessingFacade.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("aiming_for_all_possible_rstep_attachment_patterns.om4");

const std::vector<wxString>& GetExpectedCellValuesForCode_01() {
  static const std::vector<wxString> cells =
      ExpectedCells::Blank(45).Range(5, 19, wxT("a")).Cells();
  return cells;
}

// The host's library defines the form of a tag cell, so it makes the expected text.
const std::vector<wxString>& GetExpectedCellValuesForCode_02() {
  static const std::vector<wxString> cells =
      ExpectedCells::Blank(45)
          .Row(19, wxT("b"))
          .Row(24, wxT("b"))
          .Row(29, wxT("b"))
          .Range(30, 33, PostProcessingFacade::GetFormattedTagsDataCell(wxT(""), wxT("b"), true))
          .Row(34, PostProcessingFacade::GetFormattedTagsDataCell(wxT("b"), wxT("b"), true))
          .Cells();
  return cells;
}

}  // namespace

class ExerciseForCase2781 : public TestCaseWithFullColumnStringComp_T<ExerciseForCase2781> {
 public:
  ExerciseForCase2781() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities necessities) override {
    TestCaseWithFullColumnStringComp_T::RunAllVerificationTests(necessities);
    VerifyVerbatimColumnContent(wxT("tcode1"), GetExpectedCellValuesForCode_01());
    VerifyVerbatimColumnContent(wxT("ecode4"), GetExpectedCellValuesForCode_02());

    PerformDurationBoundsTest(28000, 29700, true);
    PerformDurationBoundsTest_MacServer(28100, 28300);
    PerformDurationBoundsTest_SmallTestBox(29000, 29700);
    PerformBoundsTest(15, 60, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(500, 600);
  }

  const std::vector<wxString>& GetExpectedCellValuesForTargetedColumn() override {
    static const std::vector<wxString> cells =
        ExpectedCells()
            .RepeatAll(2, {wxT("E1"), wxT("E2"), wxT("E3"), wxT("E4"), wxT("E5"), wxT("E6"),
                           wxT("E7"), wxT("E8"), wxT("E9"), wxT("E10")})
            .RepeatAll(3, {wxT("E6"), wxT("E7"), wxT("E8"), wxT("E9"), wxT("E10")})
            .AddAll({wxT("E16"), wxT("E11-fb"), wxT("E17"), wxT("E12-fb"), wxT("E18"),
                     wxT("E13-fb"), wxT("E19"), wxT("E14-fb"), wxT("E20"), wxT("E15-fb")})
            .Cells();
    return cells;
  }

  const wxString& GetTargetedColumnName() override {
    static const wxString name = wxT("Event\nName");
    return name;
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(ExerciseForCase2781, false);
