#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2-15-13-limit_trial_repeats_fb_test.om5");

}  // namespace

class Test_2_15_13_limit_trial_repeats_fb_test
    : public TestCaseWithFullColumnStringComp_T<Test_2_15_13_limit_trial_repeats_fb_test> {
 public:
  Test_2_15_13_limit_trial_repeats_fb_test()
      : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  const wxString& GetTargetedColumnName() override {
    static const wxString name = wxT("Event\nName");
    return name;
  }

  const std::vector<wxString>& GetExpectedCellValuesForTargetedColumn() override {
    static const std::vector<wxString> cells = {
        wxT("event w/ repeat trial fb"),
        wxT("event w/ repeat trial fb"),
        wxT("event w/ repeat trial fb, seen once"),
        wxT("event w/ repeat trial fb"),
        wxT("final event"),
    };
    return cells;
  }

  void RunAllVerificationTests(VerificationNecessities necessities) override {
    TestCaseWithFullColumnStringComp_T::RunAllVerificationTests(necessities);

    PerformDurationBoundsTest(2500, 2700, true);
    PerformDurationBoundsTest_MacServer(2500, 2700);
    PerformDurationBoundsTest_SmallTestBox(2500, 2800);
    PerformBoundsTest(5, 25, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(200, 350);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2_15_13_limit_trial_repeats_fb_test, false);
