#include "framework/IndividualTestCase_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("MAC_new_movie_stress_test_case_2502.om4");

}  // namespace

class TestMacMovieStress_2502 : public IndividualTestCase_T<TestMacMovieStress_2502, false> {
 public:
  TestMacMovieStress_2502() : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    // Getting here at all is the proof.
    ReportPass(wxT("Mac_movie_stress_test_completed"));

    PerformDurationBoundsTest_MacServer(28000, 37000);
    PerformDurationBoundsTest_SmallTestBox(35000, 41500);
    PerformExpansionBoundsTest_MacServer(1000, 4500);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestMacMovieStress_2502, false);
