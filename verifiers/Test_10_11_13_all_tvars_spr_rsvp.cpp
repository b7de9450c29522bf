#include <algorithm>

#include "framework/CellCounts.h"
#include "framework/ExpectedCells.h"
#include "framework/IndividualTestCase_T.h"
#include "framework/RowRuns.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("10_11_13_all_tvars_spr_rsvp.om5");

const wxString POSITION = wxT("position\n(Trial Variable)");
const wxString COLOR = wxT("color!\n(Trial Variable)");
const wxString TIME_LIMIT = wxT("time limits!\n(Trial Variable)");

const std::vector<wxString>& GetExpectedSegments() {
  static const std::vector<wxString> cells =
      ExpectedCells()
          .RepeatAll(3, {wxT("[SubEvent 1] SPR"), wxT("[SubEvent 2] SPR"), wxT("[SubEvent 1] RSVP"),
                         wxT("[SubEvent 2] RSVP")})
          .Cells();
  return cells;
}

// Position, colour and time limit of each row if no level were shuffled.
const std::vector<wxString>& GetSortedLevels() {
  static const std::vector<wxString> levels =
      ExpectedCells()
          .RepeatAll(2, {wxT("left|r|1500"), wxT("left|r|1500"), wxT("right|g|1000"),
                         wxT("right|g|1000"), wxT("top|b|500"), wxT("top|b|500")})
          .Cells();
  return levels;
}

}  // namespace

// Shuffled levels can come out sorted by chance, so the second check fails rarely on a correct host.
class Test_10_11_13_all_tvars_spr_rsvp
    : public IndividualTestCase_T<Test_10_11_13_all_tvars_spr_rsvp, false> {
 public:
  Test_10_11_13_all_tvars_spr_rsvp() : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    CheckSegmentsAndLevels();
    CheckThatLevelsAreShuffled();

    PerformDurationBoundsTest(12000, 12600, true);
    PerformDurationBoundsTest_MacServer(12000, 12400);
    PerformDurationBoundsTest_SmallTestBox(12000, 13000);
    PerformBoundsTest(0, 5000, EXPANSION_TIME_COLUMN_NAME, true, true);
  }

 private:
  void CheckSegmentsAndLevels() {
    static const wxString testName =
        wxT("Having_an_SPR_and an_RSVP_event_present_every_segment_and_use_every_trial_level");
    const bool asDemanded =
        RunEquals(*m_reader, wxT("Event\nName"), 0, GetExpectedSegments()) &&
        EachOccursFourTimes(POSITION, {wxT("left"), wxT("right"), wxT("top")}) &&
        EachOccursFourTimes(COLOR, {wxT("r"), wxT("g"), wxT("b")}) &&
        EachOccursFourTimes(TIME_LIMIT, {wxT("500"), wxT("1000"), wxT("1500")});
    // Each segment is demanded three times. The message says six; its wording is fixed.
    ReportCheck(asDemanded, testName,
                {wxT("Something bad happened instead."), 123,
                 wxT("We expected to see every segment six times in a specific order and every "
                     "trial level four times.")});
  }

  // Rows beyond the sorted list are not compared.
  void CheckThatLevelsAreShuffled() {
    static const wxString testName =
        wxT("SPR_and_RSVP_detect_that_randomization_happened_OK_to_FAIL_RARELY");
    const int position = ColumnOf(POSITION);
    const int color = ColumnOf(COLOR);
    const int timeLimit = ColumnOf(TIME_LIMIT);
    bool shuffled = false;
    int row = 0;
    for (const wxString& sorted : GetSortedLevels()) {
      if (row == RowCount()) break;
      const wxString levels =
          CellAt(row, position) + wxT("|") + CellAt(row, color) + wxT("|") + CellAt(row, timeLimit);
      if (levels != sorted) shuffled = true;
      ++row;
    }
    ReportCheck(shuffled, testName,
                {wxT("could fail VERY RARELY... the levels were in perfect SORTED order rather "
                     "than random"),
                 168,
                 wxT("probability dictates this will fail once in a BLUE MOON. normally we expect "
                     "a SHUFFLED ordering")});
  }

  bool EachOccursFourTimes(const wxString& columnName, const std::vector<wxString>& levels) const {
    return std::all_of(levels.begin(), levels.end(), [&](const wxString& level) {
      return CountCells(*m_reader, columnName, level) == 4;
    });
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_10_11_13_all_tvars_spr_rsvp, false);
