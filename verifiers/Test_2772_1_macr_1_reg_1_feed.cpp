#include "framework/IndividualTestCase_T.h"
#include "framework/RowScan.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2772_1_macr_1_reg_1_feed.om4");

}  // namespace

class Test_2772_1_macr_1_reg_1_feed
    : public IndividualTestCase_T<Test_2772_1_macr_1_reg_1_feed, false> {
 public:
  Test_2772_1_macr_1_reg_1_feed() : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName =
        wxT("Having_1_event_presented_normally_and_1_presented_via_feedback_and_"
            "block_Level_macro_functions");
    const RowScan colours = RowScan::Anywhere({wxT("Red"), wxT("Green"), wxT("Blue")}, 2);
    const RowScan places = RowScan::Anywhere({wxT("one"), wxT("two"), wxT("three")}, 2);
    const bool eachColour = colours.HoldsFor(*m_reader, wxT("Font Color\n(Trial Variable)"));
    const bool eachPlace = places.HoldsFor(*m_reader, wxT("Screen Location\n(Trial Variable)"));
    ReportCheck(eachColour && eachPlace, testName,
                {wxT("Something bad happened instead."), 95,
                 wxT("We expected to see each variable name to show up exactly once.")});

    PerformDurationBoundsTest(2990, 3170, true);
    PerformDurationBoundsTest_MacServer(3000, 3080);
    PerformDurationBoundsTest_SmallTestBox(3000, 3125);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2772_1_macr_1_reg_1_feed, false);
