#include "framework/IndividualTestCase_T.h"
#include "framework/RowRuns.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("3002_spec_trial_level_actions_expressions.om5");

}  // namespace

class Test_3002_spec_trial_level_actions_expressions
    : public IndividualTestCase_T<Test_3002_spec_trial_level_actions_expressions, false> {
 public:
  Test_3002_spec_trial_level_actions_expressions()
      : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName =
        wxT("Having_events_presented_with_the_right_color_variables_in_specific_order");
    static const std::vector<wxString> colors = {wxT("red"), wxT("green"), wxT("blue"),
                                                 wxT("red"), wxT("green"), wxT("blue")};
    ReportCheck(RunEquals(*m_reader, wxT("color\n(Trial Variable)"), 0, colors), testName,
                {wxT("Something bad happened instead."), 79,
                 wxT("We expected RGBRGB to show up in the data file in that precise order")});

    PerformDurationBoundsTest(3000, 3300, true);
    PerformDurationBoundsTest_MacServer(3000, 3200);
    PerformDurationBoundsTest_SmallTestBox(3100, 3700);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_3002_spec_trial_level_actions_expressions, false);
