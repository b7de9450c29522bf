#include "framework/IndividualTestCase_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2011-09-21_basic_audio_format_4.5.2_tests.om4");

}  // namespace

class TestElevenAudioFormats : public IndividualTestCase_T<TestElevenAudioFormats, false> {
 public:
  TestElevenAudioFormats() : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName = wxT("Simple_playback_11_formats");
    ReportCheck(RowCount() == 22, testName,
                {wxT("Incorrect number of events played back."), 44,
                 wxT("There should be two events per each of 11 audio formats,                    "
                     "for a total of 22 events.")});

    PerformDurationBoundsTest(22300, 27000, true);
    PerformDurationBoundsTest_SmallTestBox(22300, 28000);
    PerformDurationBoundsTest_MacServer(22300, 26000);
    PerformBoundsTest(5, 40, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(400, 550);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestElevenAudioFormats, false);
