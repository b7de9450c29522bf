#include "framework/CellCounts.h"
#include "framework/IndividualTestCase_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("1-30-13-TextEventParamTestNoParams.om5");

}  // namespace

class Test_2013_01_params_in_text_events_no_params
    : public IndividualTestCase_T<Test_2013_01_params_in_text_events_no_params, false> {
 public:
  Test_2013_01_params_in_text_events_no_params()
      : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName = wxT("we_presented_all_events");
    const int rows = RowCount();
    const std::vector<int> rowsOfEachKind = CountCellsByPrefix(
        *m_reader, wxT("Trial\nName"),
        {wxT("block without params trial"), wxT("pause block trial"), wxT("param block trial")});
    const bool allPresented = rows == 56 && rowsOfEachKind == std::vector<int>{20, 6, 30};
    ReportCheck(allPresented, testName,
                {wxT("Something bad happened instead."), 67,
                 wxT("We expected to see 56 rows of data split up into three kinds of trials in a "
                     "20-6-30 proportion.")});

    PerformDurationBoundsTest(16300, 17000, true);
    PerformDurationBoundsTest_MacServer(16000, 18000);
    PerformDurationBoundsTest_SmallTestBox(18500, 19100);
    PerformBoundsTest(10, 50, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(400, 600);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2013_01_params_in_text_events_no_params, false);
