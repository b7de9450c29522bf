#include "framework/IndividualTestCase_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2012_3_9_tolmey_2668_macro_exit_experiment.om4");

}  // namespace

// One row is the proof; no cell is read.
class Test_2012_3_9_tolmey_2668_macro_exit_experiment
    : public IndividualTestCase_T<Test_2012_3_9_tolmey_2668_macro_exit_experiment, false> {
 public:
  Test_2012_3_9_tolmey_2668_macro_exit_experiment()
      : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName = wxT("Experiment_exited_after_one_trial_as_expected");
    ReportCheck(RowCount() == 1, testName,
                {wxT("Something bad happened instead."), 43,
                 wxT("We expected the experiment to exit after one trial.")});

    PerformDurationBoundsTest(800, 900, true);
    PerformDurationBoundsTest_SmallTestBox(800, 880);
    PerformDurationBoundsTest_MacServer(800, 860);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2012_3_9_tolmey_2668_macro_exit_experiment, false);
