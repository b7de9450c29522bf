#include <algorithm>
#include <array>
#include <cstdlib>

#include "framework/CellNumbers.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

wxString FOCUS_OF_THIS_TEST() {
  static const wxString name = wxT("2014-06-16_sync_trials.om5");
  return name;
}

constexpr size_t EXPECTED_NAMES = 8;
constexpr size_t NO_EXPECTED_NAME = EXPECTED_NAMES;

// In milliseconds, in the order of the expected names.
constexpr std::array<long, EXPECTED_NAMES> SYNC_INTERVALS = {300, 300, 300, 300,
                                                             400, 300, 400, 300};

// The distance of two times, whatever numbers a data file holds: no difference is too large for it.
unsigned long Distance(long a, long b) {
  return a > b ? static_cast<unsigned long>(a) - static_cast<unsigned long>(b)
               : static_cast<unsigned long>(b) - static_cast<unsigned long>(a);
}

// In milliseconds. The machine cannot change while the library is loaded, so it is asked once.
long GetTolerance() {
  static const long tolerance = RunTimes::RunningOnSmallTestBox() ? 6 : 3;
  return tolerance;
}

}  // namespace

// Each timestamp of a synchronised trial falls on a whole multiple of the trial's interval after the
// timestamp before it.
class TestSyncTrialsTolmey3251
    : public TestCaseWithFullColumnStringComp_T<TestSyncTrialsTolmey3251> {
 public:
  TestSyncTrialsTolmey3251() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST(), false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    m_rows.clear();
    m_expectedNames = {wxT("the"), wxT("ee1"), wxT("ee2"), wxT("ee3"),
                       wxT("b ("), wxT("c ("), wxT("d ("), wxT("e (")};

    PopulateOurSimpleVector();
    BasicPreliminaryIntegrityChecks();
    VerifyProperTrialSyncTolmey3251();

    PerformDurationBoundsTest(6600, 14000, true);
    PerformDurationBoundsTest_MacServer(8000, 14000);
    PerformDurationBoundsTest_SmallTestBox(6600, 16000);
    PerformBoundsTest(10, 70, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(300, 450);
  }

 private:
  struct NameTime {
    wxString name;  // the first three characters of the event's name
    long time;      // cumulative, in milliseconds; 0 if the cell is no number
  };

  void PopulateOurSimpleVector() {
    const int eventColumn = ColumnOf(wxT("Event\nName"));
    const int timeColumn = ColumnOf(wxT("Cumulative\nTime"));
    const int rows = RowCount();
    for (int row = 0; row < rows; ++row) {
      NameTime entry = {CellAt(row, eventColumn).Left(3), 0};
      if (!ReadLong(CellAt(row, timeColumn), entry.time)) {
        ReportFailure(wxT("NON_NUMERIC_TIME_VALUE"),
                      {wxT("Cum time string should always be convertible to a number"), 111,
                       wxT("we called the wx function ToLong on a string, and it failed to "
                           "produce a number")});
      }
      m_rows.push_back(entry);
    }
  }

  // Which of the expected names is it? NO_EXPECTED_NAME if none is.
  size_t IndexOfExpectedName(const wxString& name) const {
    size_t index = 0;
    while (index < m_expectedNames.size() && !name.Contains(m_expectedNames[index])) ++index;
    return index;
  }

  void BasicPreliminaryIntegrityChecks() {
    std::array<int, EXPECTED_NAMES> counts = {};
    for (const NameTime& row : m_rows) {
      const size_t index = IndexOfExpectedName(row.name);
      if (index != NO_EXPECTED_NAME) ++counts[index];
    }
    const std::array<bool, EXPECTED_NAMES> right = {counts[0] == 7,
                                                    counts[1] == 1,
                                                    counts[2] == 1,
                                                    counts[3] == 1,
                                                    counts[4] == 3,
                                                    counts[5] == 0 || counts[5] == 3,
                                                    counts[6] == 3 || counts[6] == 6,
                                                    counts[7] == 6};
    const std::array<long, EXPECTED_NAMES> lines = {330, 340, 350, 360, 370, 380, 390, 400};
    bool allRight = true;
    for (size_t i = 0; i < EXPECTED_NAMES; ++i) {
      if (right[i]) continue;
      allRight = false;
      ReportFailure(wxString::Format(wxT("CONTENT_CHECK_%d_OF_8"), static_cast<int>(i) + 1),
                    {wxT("datafile content conflicts with the block rules and overall "
                         "experiment structure"),
                     lines[i],
                     wxT("This test is for checking sync trial timing, but we also look at "
                         "basic event sequence, which seems to have gone wrong just now")});
    }
    if (allRight) ReportPass(wxT("BASIC_CONTENT_CHECKING"));
  }

  // A clean walk reports nothing of its own: the passes are those of the timestamps.
  void VerifyProperTrialSyncTolmey3251() {
    if (m_rows.empty() || m_rows[0].name != wxT("tim")) {
      ReportFailure(wxT("BAD_FIRST_EVENT_NAME"),
                    {wxT("the first event should always have the name timestamp"), 201,
                     wxT("whatever is the event name on the first data row seems wrong")});
      return;
    }
    const size_t second =
        m_rows.size() > 1 ? IndexOfExpectedName(m_rows[1].name) : NO_EXPECTED_NAME;
    if (second == NO_EXPECTED_NAME) {
      ReportFailure(wxT("BAD_SECOND_EVENT_NAME"),
                    {wxT("the second event should always match one of 8 expected names"), 212,
                     wxT("whatever is the event name on the second data row seems wrong")});
      return;
    }

    long prior = m_rows[0].time;
    long interval = SYNC_INTERVALS[second];
    bool timestampIsDue = true;
    for (size_t row = 2; row < m_rows.size(); ++row) {
      const NameTime& current = m_rows[row];
      if (current.name == wxT("***")) continue;
      const bool isTimestamp = current.name == wxT("tim");
      if (isTimestamp != timestampIsDue) {
        ReportFailure(wxT("ALWAYS_ONE_AND_ONE_TIMESTAMP_PER_EVENT"),
                      {wxT("we need to alternate between finding 1 timestamp 1 event"), 282,
                       wxT("either 2 timestamps happened for 1 event, or 2 events for 1 "
                           "timestamp")});
        return;
      }
      if (isTimestamp) {
        CheckOneTimestamp(prior, interval, current.time);
        prior = current.time;
        timestampIsDue = false;
        continue;
      }
      const size_t index = IndexOfExpectedName(current.name);
      if (index == NO_EXPECTED_NAME) {
        ReportFailure(wxT("BAD_MIDRUN_EVENT_NAME"),
                      {wxT("the events should always match *** or tim or one of 8 expected names"),
                       266, wxT("whatever is the event name on some data row seems wrong")});
        return;
      }
      interval = SYNC_INTERVALS[index];
      timestampIsDue = true;
    }
  }

  // All three in milliseconds. Good is a time one to twenty whole intervals after the prior one,
  // within the tolerance.
  void CheckOneTimestamp(long prior, long interval, long current) {
    constexpr long MOST_INTERVALS = 20;
    long bestDifference = 99999;
    bool good = false;
    // Times further apart than this leave the best difference as it is; closer ones can be subtracted.
    if (Distance(prior, current) <=
        static_cast<unsigned long>(bestDifference + MOST_INTERVALS * interval)) {
      for (long k = 1; k <= MOST_INTERVALS && !good; ++k) {
        bestDifference = std::min(bestDifference, std::labs(current - prior - k * interval));
        good = bestDifference <= GetTolerance();
      }
    }

    // Numbers the timestamps of all data files while the library is loaded.
    static int calls = 0;
    const wxString testName = wxString::Format(wxT("CHECK_TIMESTAMP_%d"), ++calls);
    const wxString words = wxString::Format(
        wxT("Subsequent timestamps were not ok, given prior and current of %ld and %ld and an "
            "interval of %ld for best diff %ld"),
        prior, current, interval, bestDifference);
    ReportCheck(good, testName, {words, 178, words});
  }

  std::vector<NameTime> m_rows;  // one for each data row
  std::vector<wxString> m_expectedNames;
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestSyncTrialsTolmey3251, false);
