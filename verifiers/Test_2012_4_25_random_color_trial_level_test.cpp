#include "framework/CellCounts.h"
#include "framework/IndividualTestCase_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2012-4-25_random_color_trial_level_test.om4");

// Other levels, order and counts do not matter.
bool EachColorWasPresented(const MUExperimentTextReaderMultiFile& reader) {
  const wxString column = wxT("Text color\n(Trial Variable)");
  return CountCells(reader, column, wxT("Red")) > 0 &&
         CountCells(reader, column, wxT("Yellow")) > 0 &&
         CountCells(reader, column, wxT("Green")) > 0;
}

}  // namespace

class Test_2012_4_25_random_color_trial_level_test
    : public IndividualTestCase_T<Test_2012_4_25_random_color_trial_level_test, false> {
 public:
  Test_2012_4_25_random_color_trial_level_test()
      : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName = wxT("Test_didnt_randomly_break_and_all_trials_were_presented");
    ReportCheck(EachColorWasPresented(*m_reader), testName,
                {wxT("Something bad happened instead."), 63,
                 wxT("We expected to see three events with three different values of the trial "
                     "variable.")});

    PerformDurationBoundsTest(1500, 1600, true);
    PerformDurationBoundsTest_MacServer(1500, 1620);
    PerformDurationBoundsTest_SmallTestBox(1500, 1700);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2012_4_25_random_color_trial_level_test, false);
