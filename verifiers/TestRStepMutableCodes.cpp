#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("exit_block_using_subset_with_mutable_codes.om4");

const std::vector<wxString>& GetExpectedCellValuesForFirstCodeCol() {
  static const std::vector<wxString> cells =
      ExpectedCells::Blank(14).Range(0, 5, wxT("a")).Range(7, 12, wxT("a")).Cells();
  return cells;
}

// The code changes on the third "a" trial of the second pass.
const std::vector<wxString>& GetExpectedCellValuesForSecondCodeCol() {
  static const std::vector<wxString> cells = ExpectedCells::Blank(14)
                                                 .Range(0, 5, wxT("c"))
                                                 .Range(7, 10, wxT("c"))
                                                 .Range(11, 12, wxT("d"))
                                                 .Cells();
  return cells;
}

}  // namespace

class TestRStepMutableCodes : public TestCaseWithFullColumnStringComp_T<TestRStepMutableCodes> {
 public:
  TestRStepMutableCodes() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities necessities) override {
    TestCaseWithFullColumnStringComp_T::RunAllVerificationTests(necessities);
    VerifyVerbatimColumnContent(wxT("trial_hey"), GetExpectedCellValuesForFirstCodeCol());
    VerifyVerbatimColumnContent(wxT("trial_b"), GetExpectedCellValuesForSecondCodeCol());

    PerformDurationBoundsTest(3000, 3900, true);
    PerformDurationBoundsTest_MacServer(3400, 3800);
    PerformDurationBoundsTest_SmallTestBox(3700, 4100);
    PerformBoundsTest(10, 50, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(400, 600);
  }

  const std::vector<wxString>& GetExpectedCellValuesForTargetedColumn() override {
    static const std::vector<wxString> cells =
        ExpectedCells()
            .RepeatAll(2, {wxT("a (1, one)"), wxT("filler"), wxT("a (2, two)"), wxT("filler"),
                           wxT("a (3, three)"), wxT("filler"), wxT("done")})
            .Cells();
    return cells;
  }

  const wxString& GetTargetedColumnName() override {
    static const wxString name = wxT("Event\nName");
    return name;
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestRStepMutableCodes, false);
