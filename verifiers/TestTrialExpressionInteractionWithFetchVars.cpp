#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("tolmey_2807_test.om5");

}  // namespace

class TestTrialExpressionInteractionWithFetchVars
    : public TestCaseWithFullColumnStringComp_T<TestTrialExpressionInteractionWithFetchVars> {
 public:
  TestTrialExpressionInteractionWithFetchVars()
      : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  const std::vector<wxString>& GetExpectedCellValuesForTargetedColumn() override {
    static const std::vector<wxString> cells =
        ExpectedCells::Blank(30)
            .Groups(0, 3, 0, 0,
                    {wxT("Red"), wxT("Orange"), wxT("Yellow"), wxT("Green"), wxT("Red"),
                     wxT("Orange"), wxT("Yellow"), wxT("Green"), wxT("Red"), wxT("Orange")})
            .Cells();
    return cells;
  }
  const wxString& GetTargetedColumnName() override {
    static const wxString name = wxT("Test_Variable\n(Trial Variable)");
    return name;
  }

  void RunAllVerificationTests(VerificationNecessities necessities) override {
    TestCaseWithFullColumnStringComp_T::RunAllVerificationTests(necessities);

    PerformDurationBoundsTest(1500, 1700, true);
    PerformDurationBoundsTest_MacServer(1600, 2200);
    PerformDurationBoundsTest_SmallTestBox(2000, 2300);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestTrialExpressionInteractionWithFetchVars, false);
