#include "framework/TestCaseWithFullColumnStringComp_T.h"
#include "hostsdk/PostProcessingFacade.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("all_feedback_branching.om4");

// The host's library defines the form of a tag cell, so it makes the expected text.
wxString TagCell(const wxString& eventValue, const wxString& trialValue) {
  return PostProcessingFacade::GetFormattedTagsDataCell(eventValue, trialValue, true);
}

const std::vector<wxString>& GetExpectedCellValuesForInit() {
  static const std::vector<wxString> cells = {
      wxT(""),
      wxT(""),
      wxT(""),
      wxT(""),
      TagCell(wxT(""), wxT("unset")),
      TagCell(wxT("unset"), wxT("unset")),
      TagCell(wxT(""), wxT("unset")),
      TagCell(wxT(""), wxT("unset")),
      TagCell(wxT("set"), wxT("unset")),
  };
  return cells;
}

}  // namespace

class TestThreeFeedbackBranchingJumps
    : public TestCaseWithFullColumnStringComp_T<TestThreeFeedbackBranchingJumps> {
 public:
  TestThreeFeedbackBranchingJumps()
      : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  const wxString& GetTargetedColumnName() override {
    static const wxString name = wxT("Event\nName");
    return name;
  }

  const std::vector<wxString>& GetExpectedCellValuesForTargetedColumn() override {
    static const std::vector<wxString> cells = {
        wxT("how are you - FB with ZERO branch action after"),
        wxT("feedback event!"),
        wxT("won't you - FB with SKIP TO NEXT TRIAL"),
        wxT("feedback event!"),
        wxT("OMG 2nd trial"),
        wxT("hello - FB with REPEAT the trial. (then code to stop)"),
        wxT("feedback event!"),
        wxT("OMG 2nd trial"),
        wxT("hello - FB with REPEAT the trial. (then code to stop)"),
    };
    return cells;
  }

  void RunAllVerificationTests(VerificationNecessities necessities) override {
    TestCaseWithFullColumnStringComp_T::RunAllVerificationTests(necessities);
    VerifyVerbatimColumnContent(wxT("init"), GetExpectedCellValuesForInit());

    PerformDurationBoundsTest(90, 400, true);
    PerformDurationBoundsTest_MacServer(90, 350);
    PerformDurationBoundsTest_SmallTestBox(300, 600);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestThreeFeedbackBranchingJumps, false);
