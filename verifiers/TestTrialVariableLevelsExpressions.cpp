#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

wxString FOCUS_OF_THIS_TEST() {
  static const wxString focus = wxT("2013-11-15_trial_level_expressions.om5");
  return focus;
}

const wxString LEVEL_NAME_ONE = wxT("one");
const wxString LEVEL_NAME_TWO = wxT("two");
const wxString RULES_RESULT_ONE = wxT("detected position one");
const wxString RULES_RESULT_TWO = wxT("detected position two");

using RowList = std::vector<int>;

}  // namespace

class TestTrialVariableLevelsExpressions
    : public TestCaseWithFullColumnStringComp_T<TestTrialVariableLevelsExpressions> {
 public:
  TestTrialVariableLevelsExpressions()
      : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST(), false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    TestExpressionResultsPriorToAnyLevelUsage();
    TestExpressionResultsUsingNoRepl();
    TestExpressionResultsUsingSequential();
    TestExpressionResultsUsingWithRepl();

    PerformDurationBoundsTest(360, 780, true);
    PerformDurationBoundsTest_SmallTestBox(360, 7800);
    PerformDurationBoundsTest_MacServer(500, 2500);
    PerformBoundsTest(10, 120, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(400, 550);
  }

 private:
  void TestExpressionResultsPriorToAnyLevelUsage() {
    static const wxString testName = wxT("TestExpressionResultsPriorToAnyLevelUsage");
    const RowList rows = {3, 5, 7, 9, 13, 15, 17, 19, 23, 25, 27, 29};
    const int column = ColumnOf(wxT("Event\nName"));
    bool allOne = true;
    for (const int row : rows) {
      allOne = CellAt(row, column) == RULES_RESULT_ONE;
      if (!allOne) break;
    }
    ReportCheck(
        allOne, testName,
        {wxT("bad behavior of trial variable expressions prior to any selections"), 96,
         wxT("before anything in the experiment has APPLIED any variable value the expression "
             "should determine we are at the first level")});
  }

  void TestExpressionResultsUsingNoRepl() {
    static const wxString testName = wxT("TestExpressionResultsUsingNoRepl");
    CheckRules({32, 35, 38, 41, 44, 47, 50}, wxT("positions - R noRepl\n(Trial Variable)"),
               testName,
               wxT("bad behavior of trial variable expressions with selection rand no repl"), 160);
  }

  void TestExpressionResultsUsingSequential() {
    static const wxString testName = wxT("TestExpressionResultsUsingSequential");
    CheckRules({54, 57, 60, 63, 66, 69, 72}, wxT("positions - Seq\n(Trial Variable)"), testName,
               wxT("bad behavior of trial variable expressions with selection sequential"), 185);
  }

  void TestExpressionResultsUsingWithRepl() {
    static const wxString testName = wxT("TestExpressionResultsUsingWithRepl");
    CheckRules({76, 79, 82, 85, 88, 91, 94}, wxT("positions - R wRepl\n(Trial Variable)"), testName,
               wxT("bad behavior of trial variable expressions with selection rand with repl"),
               210);
  }

  void CheckRules(const RowList& rows, const wxString& columnName, const wxString& testName,
                  const wxString& subject, long line) {
    const int column = ColumnOf(columnName);
    ReportCheck(RulesRowsMatchEventRows(rows, column), testName,
                {subject, line,
                 wxT("trial variable expressions in rules do not seem to evaluate according to "
                     "where the position level actually went")});
  }

  // Does the event one row below each of these rows tell the level that stands in the row?
  bool RulesRowsMatchEventRows(const RowList& rows, int column) const {
    const int eventNameColumn = ColumnOf(wxT("Event\nName"));
    for (const int row : rows) {
      const wxString level = CellAt(row, column);
      const wxString event = CellAt(row + 1, eventNameColumn);
      const bool matches = (level == LEVEL_NAME_ONE && event == RULES_RESULT_ONE) ||
                           (level == LEVEL_NAME_TWO && event == RULES_RESULT_TWO);
      if (!matches) return false;
    }
    return true;
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestTrialVariableLevelsExpressions, false);
