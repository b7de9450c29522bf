#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2014-11-17_four_ways_to_change_a_tag.om5");

const std::vector<wxString>& GetExpectedCellValuesForEventTagSet() {
  static const std::vector<wxString> cells = {
      wxT(""), wxT("set_by_event_first_time"),
      wxT("set_by_event_first_time (event)|set_by_trial_2nd_time (trial)")};
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForTrialTagSet() {
  static const std::vector<wxString> cells = {wxT(""), wxT("set_by_event_first_time"),
                                              wxT("set_by_trial_2nd_time")};
  return cells;
}

}  // namespace

class TestFourWaysChangeTags : public TestCaseWithFullColumnStringComp_T<TestFourWaysChangeTags> {
 public:
  TestFourWaysChangeTags() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("event_set"), GetExpectedCellValuesForEventTagSet());
    VerifyVerbatimColumnContent(wxT("trial_set"), GetExpectedCellValuesForTrialTagSet());
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestFourWaysChangeTags, false);
