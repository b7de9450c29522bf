#include "framework/IndividualTestCase_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("9_25_13_all_param2param_actions.om5");

constexpr int PARAMETERS = 7;
constexpr int ROWS = 3;

const wxChar* const PARAMETER_NAMES[PARAMETERS] = {
    wxT("Counter 1"), wxT("Counter 2"), wxT("Counter 3"), wxT("Bonus Counter"),
    wxT("Text 1"),    wxT("Text 2"),    wxT("Text 3")};

// From row to row counter 1 takes the bonus counter, counter 2 is reduced by it, counter 3 is doubled,
// text 1 takes text 2, and text 2 has text 3 appended.
const wxChar* const EXPECTED_CELLS[ROWS][PARAMETERS] = {
    {wxT("1"), wxT("2"), wxT("3"), wxT("123"), wxT("one!"), wxT("two!"), wxT("three!")},
    {wxT("123"), wxT("-121"), wxT("6"), wxT("123"), wxT("two!"), wxT("two!three!"), wxT("three!")},
    {wxT("123"), wxT("-244"), wxT("12"), wxT("123"), wxT("two!three!"), wxT("two!three!three!"),
     wxT("three!")}};

int CountMatches(const MUExperimentTextReaderMultiFile& reader) {
  int matches = 0;
  for (int parameter = 0; parameter < PARAMETERS; ++parameter) {
    const int column = reader.GetColumnPositionNumberFromText(PARAMETER_NAMES[parameter]);
    for (int row = 0; row < ROWS; ++row) {
      if (reader.GetDataCellValue(row, column) == EXPECTED_CELLS[row][parameter]) ++matches;
    }
  }
  return matches;
}

}  // namespace

class Test_9_25_13_all_param2param_actions
    : public IndividualTestCase_T<Test_9_25_13_all_param2param_actions, false> {
 public:
  Test_9_25_13_all_param2param_actions() : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName =
        wxT("Having_parameters_get_modified_by_values_in_other_parameters");
    ReportCheck(CountMatches(*m_reader) == PARAMETERS * ROWS, testName,
                {wxT("Something bad happened instead."), 123,
                 wxT("We expected very  specific values to be in the parameter cells, at least "
                     "one of them wasn't right.")});

    PerformDurationBoundsTest(1500, 1620, true);
    PerformDurationBoundsTest_SmallTestBox(1700, 2050);
    PerformDurationBoundsTest_MacServer(1500, 1650);
    PerformBoundsTest(0, 20, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(200, 300);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_9_25_13_all_param2param_actions, false);
