#include <limits>

#include "framework/CellCounts.h"
#include "framework/IndividualTestCase_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2012-12-20_test_reset_the_subset.om5");

// What the trial's tag must show for one outcome of the flip: nothing the first time, and from then
// on the code that the event wrote the last time that branch ran.
class BranchOfTheFlip {
 public:
  explicit BranchOfTheFlip(const wxString& code) : m_code(code) {}

  bool AcceptsSample(const wxString& trialTag, const wxString& eventTag) {
    const wxString expectedTrialTag = m_sampledBefore ? m_code : wxString();
    m_sampledBefore = true;
    return eventTag == m_code && trialTag == expectedTrialTag;
  }

 private:
  wxString m_code;
  bool m_sampledBefore = false;
};

}  // namespace

class TestMultipleSubsetExpressionsOnOneBlock
    : public IndividualTestCase_T<TestMultipleSubsetExpressionsOnOneBlock, false> {
 public:
  TestMultipleSubsetExpressionsOnOneBlock() : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    if (!m_reader) return;

    // A right count leaves no result in the report.
    if (RowCount() != 83) {
      ReportFailure(wxT("Improper_Row_Count"),
                    {wxT("found either too many or too few data rows"), 37,
                     wxT("by the design of this experiment, we should always have the same exact "
                         "number of data rows for every run")});
    }
    NeverTwoConsecutiveFlips();
    VarietyOfRightAndLeft();
    CheckExpectedCodeValueOutcome();

    PerformDurationBoundsTest(83, 380, true);
    PerformDurationBoundsTest_MacServer(83, 1500);
    PerformDurationBoundsTest_SmallTestBox(83, 4000);
    PerformBoundsTest(10, 55, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(400, 500);
  }

 private:
  void NeverTwoConsecutiveFlips() {
    static const wxString testName = wxT("Never_Two_Consecutive_Coinflips");
    const int column = ColumnOf(wxT("Block\nName"));
    bool foundTwo = false;
    wxString previous;
    for (int row = 0; !foundTwo && row < RowCount(); ++row) {
      const wxString block = CellAt(row, column);
      foundTwo = block == wxT("coinflips") && block == previous;
      previous = block;
    }
    ReportCheck(!foundTwo, testName,
                {wxT("extra coinflip row"), 90,
                 wxT("we should never see two consecutive rows that both are from block "
                     "coinflips")});
  }

  // A correct host fails this occasionally, as the failure text says.
  void VarietyOfRightAndLeft() {
    static const wxString testName = wxT("Variety_of_Right_and_Left");
    const bool left = CountCells(*m_reader, wxT("Trial\nName"), wxT("cues left")) > 0;
    const bool right = CountCells(*m_reader, wxT("Trial\nName"), wxT("cues right")) > 0;
    ReportCheck(left && right, testName,
                {wxT("did not see both left and right -- this OCCASIONALLY FAILS PERMISSIBLY. "
                     "ALLOW THIS TO HAPPEN RARELY"),
                 132,
                 wxT("after randomizing 12 items we normally want to see at least one go left and "
                     "at least one go right -- this OCCASIONALLY FAILS PERMISSIBLY. ALLOW THIS TO "
                     "HAPPEN RARELY")});
  }

  void CheckExpectedCodeValueOutcome() {
    static const wxString testName = wxT("Random_codes_that_propagate_from_evt_to_trl");
    const int eventName = ColumnOf(wxT("Event\nName"));
    const int trialTag = ColumnOf(wxT("coinflips_trial"));
    const int eventTag = ColumnOf(wxT("coinflips_event"));
    BranchOfTheFlip one(wxT("1"));
    BranchOfTheFlip two(wxT("2"));
    const int first = FirstRowOfCoinflips(eventName);
    bool everySampleWasGood = true;
    int samples = 0;
    for (int row = first; everySampleWasGood && row < first + 71; row += 7) {
      const wxString event = CellAt(row, eventName);
      const wxString trialCode = CellAt(row, trialTag);
      const wxString eventCode = CellAt(row, eventTag);
      if (event == wxT("coinflips (1, coinflip)")) {
        everySampleWasGood = one.AcceptsSample(trialCode, eventCode);
      } else if (event == wxT("coinflips (2, coinflip)")) {
        everySampleWasGood = two.AcceptsSample(trialCode, eventCode);
      } else {
        everySampleWasGood = false;
      }
      ++samples;
    }
    ReportCheck(
        everySampleWasGood && samples == 11, testName,
        {wxT("something is wrong with values for tags in columns coinflips_event and "
             "coinflips_trial"),
         249,
         wxT("refer to the function CheckExpectedCodeValueOutcome in "
             "TestMultipleSubsetExpressionsOnOneBlock for details about expected behavior here")});
  }

  // Every run flips, so the search has no end condition. row stops at the greatest int instead of
  // overflowing. found is volatile because a compiler may remove a loop without side effects.
  int FirstRowOfCoinflips(int eventName) const {
    volatile bool found = false;
    int row = 0;
    while (!found) {
      if (CellAt(row, eventName).StartsWith(wxT("coinflips"))) {
        found = true;
      } else if (row < std::numeric_limits<int>::max()) {
        ++row;
      }
    }
    return row;
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestMultipleSubsetExpressionsOnOneBlock, false);
