#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2013-05-14_and_or_expression_evaluation.om5");

// Returns whether the trial's expression is true. Trials count from 1.
bool ExpressionIsTrueIn(int trial) {
  return trial <= 7 || (trial >= 14 && trial <= 24) || trial == 26 || trial == 28;
}

std::vector<wxString> TrialsWithTheirFeedback() {
  const wxChar* const letters[] = {wxT("a"), wxT("b"), wxT("c"),  wxT("d"),  wxT("e"), wxT("f"),
                                   wxT("g"), wxT("h"), wxT("i"),  wxT("j"),  wxT("k"), wxT("l"),
                                   wxT("m"), wxT("n"), wxT("o"),  wxT("p"),  wxT("q"), wxT("r"),
                                   wxT("s"), wxT("t"), wxT("u"),  wxT("v"),  wxT("w"), wxT("x"),
                                   wxT("y"), wxT("z"), wxT("aa"), wxT("bb"), wxT("cc")};
  std::vector<wxString> cells;
  int trial = 0;
  int feedback = 0;
  for (const wxChar* const letter : letters) {
    ++trial;
    cells.push_back(wxString::Format(wxT("event (%d, %s)"), trial, letter));
    if (!ExpressionIsTrueIn(trial)) continue;
    ++feedback;
    cells.push_back(wxString::Format(wxT("feedback event (%d, T%d)"), trial, feedback));
  }
  return cells;
}

}  // namespace

class TestBooleanExpressionOperatorPrecedence
    : public TestCaseWithFullColumnStringComp_T<TestBooleanExpressionOperatorPrecedence> {
 public:
  TestBooleanExpressionOperatorPrecedence()
      : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  const std::vector<wxString>& GetExpectedCellValuesForTargetedColumn() override {
    static const std::vector<wxString> cells = TrialsWithTheirFeedback();
    return cells;
  }
  const wxString& GetTargetedColumnName() override {
    static const wxString name = wxT("Event\nName");
    return name;
  }

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(GetTargetedColumnName(), GetExpectedCellValuesForTargetedColumn());

    PerformDurationBoundsTest(49, 1750, true);
    PerformDurationBoundsTest_SmallTestBox(1500, 2600);
    PerformDurationBoundsTest_MacServer(200, 1200);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestBooleanExpressionOperatorPrecedence, false);
