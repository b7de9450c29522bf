#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2014-11-17_four_ways_to_change_a_tag.om5");

using SharedCells = boost::shared_ptr<const std::vector<wxString>>;

const std::vector<wxString>& GetExpectedCellValuesForEventTagSet() {
  static const SharedCells targeted_result(new std::vector<wxString>{
      wxT(""), wxT("set_by_event_first_time"),
      wxT("set_by_event_first_time (event)|set_by_trial_2nd_time (trial)")});
  return *targeted_result;
}

const std::vector<wxString>& GetExpectedCellValuesForTrialTagSet() {
  static const SharedCells targeted_result(new std::vector<wxString>{
      wxT(""), wxT("set_by_event_first_time"), wxT("set_by_trial_2nd_time")});
  return *targeted_result;
}

}  // namespace

// A tag that an event sets and then a trial: a tag of events shows both values and who set each, a
// tag of trials the later value alone. No run time is bounded.
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
