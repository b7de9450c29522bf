#include <algorithm>

#include "framework/CheckReport.h"
#include "framework/ExpectedCells.h"
#include "framework/IndividualTestCase_T.h"
#include "framework/RowRuns.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("10_11_13_all_tvars_spr_rsvp.om5");

bool EachLevelOccursFourTimes(const MUExperimentTextReaderMultiFile& reader, int column,
                              const std::vector<wxString>& levels) {
  std::vector<int> counts(levels.size());
  for (int row = 0; row < reader.GetNumberOfDataRows(); ++row) {
    const wxString cell = reader.GetDataCellValue(row, column);
    for (size_t i = 0; i < levels.size(); ++i) {
      if (cell == levels[i]) ++counts[i];
    }
  }
  return std::all_of(counts.begin(), counts.end(), [](int count) { return count == 4; });
}

}  // namespace

// Events that present in segments, SPR and RSVP, show every segment and use every level of three
// trial variables, in shuffled order.
class Test_10_11_13_all_tvars_spr_rsvp
    : public IndividualTestCase_T<Test_10_11_13_all_tvars_spr_rsvp, false> {
 public:
  Test_10_11_13_all_tvars_spr_rsvp() : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities necessities) override {
    const MUExperimentTextReaderMultiFile& reader = *necessities.reader;
    const int position = reader.GetColumnPositionNumberFromText(wxT("position\n(Trial Variable)"));
    const int color = reader.GetColumnPositionNumberFromText(wxT("color!\n(Trial Variable)"));
    const int timeLimit =
        reader.GetColumnPositionNumberFromText(wxT("time limits!\n(Trial Variable)"));
    const int eventName = reader.GetColumnPositionNumberFromText(wxT("Event\nName"));

    static const wxString segmentsTestName =
        wxT("Having_an_SPR_and an_RSVP_event_present_every_segment_and_use_every_trial_level");
    const std::vector<wxString> segments =
        ExpectedCells()
            .RepeatAll(3, {wxT("[SubEvent 1] SPR"), wxT("[SubEvent 2] SPR"),
                           wxT("[SubEvent 1] RSVP"), wxT("[SubEvent 2] RSVP")})
            .Cells();
    const bool asDemanded =
        RunEquals(reader, eventName, 0, segments) &&
        EachLevelOccursFourTimes(reader, position, {wxT("left"), wxT("right"), wxT("top")}) &&
        EachLevelOccursFourTimes(reader, color, {wxT("r"), wxT("g"), wxT("b")}) &&
        EachLevelOccursFourTimes(reader, timeLimit, {wxT("500"), wxT("1000"), wxT("1500")});
    // The message says six, though each segment is to come three times; readers of the report know
    // it by these words.
    ReportCheck(necessities.printer, asDemanded, segmentsTestName,
                {wxT("Something bad happened instead."), 123, FOCUS_OF_THIS_TEST,
                 wxT("We expected to see every segment six times in a specific order and every "
                     "trial level four times.")});

    static const wxString shuffledTestName =
        wxT("SPR_and_RSVP_detect_that_randomization_happened_OK_to_FAIL_RARELY");
    const std::vector<wxString> sorted =
        ExpectedCells()
            .RepeatAll(2, {wxT("left|r|1500"), wxT("left|r|1500"), wxT("right|g|1000"),
                           wxT("right|g|1000"), wxT("top|b|500"), wxT("top|b|500")})
            .Cells();
    bool shuffled = false;
    const int compared = std::min(reader.GetNumberOfDataRows(), static_cast<int>(sorted.size()));
    for (int row = 0; row < compared; ++row) {
      const wxString levels = reader.GetDataCellValue(row, position) + wxT("|") +
                              reader.GetDataCellValue(row, color) + wxT("|") +
                              reader.GetDataCellValue(row, timeLimit);
      if (levels != sorted[static_cast<size_t>(row)]) shuffled = true;
    }
    ReportCheck(
        necessities.printer, shuffled, shuffledTestName,
        {wxT("could fail VERY RARELY... the levels were in perfect SORTED order rather than "
             "random"),
         168, FOCUS_OF_THIS_TEST,
         wxT("probability dictates this will fail once in a BLUE MOON. normally we expect a "
             "SHUFFLED ordering")});

    PerformDurationBoundsTest(12000, 12600, true);
    PerformDurationBoundsTest_MacServer(12000, 12400);
    PerformDurationBoundsTest_SmallTestBox(12000, 13000);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_10_11_13_all_tvars_spr_rsvp, false);
