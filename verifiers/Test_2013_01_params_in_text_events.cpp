#include "framework/CheckReport.h"
#include "framework/IndividualTestCase_T.h"
#include "framework/RowPrefixes.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("1-30-13-TextEventParamTest.om5");

}  // namespace

// Text events that show parameters are all presented.
class Test_2013_01_params_in_text_events
    : public IndividualTestCase_T<Test_2013_01_params_in_text_events, false> {
 public:
  Test_2013_01_params_in_text_events() : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities necessities) override {
    static const wxString testName = wxT("we_presented_all_events");
    const int rows = necessities.reader->GetNumberOfDataRows();
    const std::vector<int> rowsOfEachKind = CountRowsByPrefix(
        *necessities.reader, wxT("Trial\nName"),
        {wxT("block without params trial"), wxT("pause block trial"), wxT("param block trial")});
    const bool allPresented = rows == 56 && rowsOfEachKind == std::vector<int>{20, 6, 30};
    ReportCheck(
        necessities.printer, allPresented, testName,
        {wxString::Format(wxT("Something bad happened instead %d."), rows), 67, FOCUS_OF_THIS_TEST,
         wxT("We expected to see 56 rows of data split up into three kinds of trials in a "
             "20-6-30 proportion.")});

    PerformDurationBoundsTest(16300, 17000, true);
    PerformDurationBoundsTest_MacServer(16000, 18000);
    PerformDurationBoundsTest_SmallTestBox(18600, 19500);
    PerformBoundsTest(10, 50, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(400, 600);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2013_01_params_in_text_events, false);
