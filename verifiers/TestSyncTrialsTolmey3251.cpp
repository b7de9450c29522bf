#include <algorithm>
#include <cstdlib>

#include "framework/CellNumbers.h"
#include "framework/ClampedNumbers.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

wxString FOCUS_OF_THIS_TEST() {
  static const wxString name = wxT("2014-06-16_sync_trials.om5");
  return name;
}

struct ExpectedEvent {
  wxString name;            // an event has it if its first three characters contain it
  std::vector<int> counts;  // how many rows may have it
  long interval;            // to which its trial is synchronised, in milliseconds
  long line;                // of the check of its count
};

const std::vector<ExpectedEvent>& ExpectedEvents() {
  static const std::vector<ExpectedEvent> events = {
      {wxT("the"), {7}, 300, 330},    {wxT("ee1"), {1}, 300, 340}, {wxT("ee2"), {1}, 300, 350},
      {wxT("ee3"), {1}, 300, 360},    {wxT("b ("), {3}, 400, 370}, {wxT("c ("), {0, 3}, 300, 380},
      {wxT("d ("), {3, 6}, 400, 390}, {wxT("e ("), {6}, 300, 400},
  };
  return events;
}

// The first expected event whose name this one contains; null if there is none.
const ExpectedEvent* FindExpectedEvent(const wxString& name) {
  for (const ExpectedEvent& event : ExpectedEvents()) {
    if (name.Contains(event.name)) return &event;
  }
  return nullptr;
}

struct NameTime {
  wxString name;  // the first three characters of the event's name
  long time;      // cumulative, in milliseconds; 0 if the cell is no number
};

// In milliseconds. The machine cannot change while the library is loaded, so it is asked once.
long GetTolerance() {
  static const long tolerance = RunTimes::RunningOnSmallTestBox() ? 6 : 3;
  return tolerance;
}

}  // namespace

class TestSyncTrialsTolmey3251
    : public TestCaseWithFullColumnStringComp_T<TestSyncTrialsTolmey3251> {
 public:
  TestSyncTrialsTolmey3251() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST(), false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    const std::vector<NameTime> rows = ReadNamesAndTimes();
    BasicPreliminaryIntegrityChecks(rows);
    VerifyProperTrialSyncTolmey3251(rows);

    PerformDurationBoundsTest(6600, 14000, true);
    PerformDurationBoundsTest_MacServer(8000, 14000);
    PerformDurationBoundsTest_SmallTestBox(6600, 16000);
    PerformBoundsTest(10, 70, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(300, 450);
  }

 private:
  // One entry for each data row.
  std::vector<NameTime> ReadNamesAndTimes() {
    const int eventColumn = ColumnOf(wxT("Event\nName"));
    const int timeColumn = ColumnOf(wxT("Cumulative\nTime"));
    std::vector<NameTime> rows;
    for (int row = 0; row < RowCount(); ++row) {
      NameTime entry = {CellAt(row, eventColumn).Left(3), 0};
      if (!ReadLong(CellAt(row, timeColumn), entry.time)) {
        ReportFailure(wxT("NON_NUMERIC_TIME_VALUE"),
                      {wxT("Cum time string should always be convertible to a number"), 111,
                       wxT("we called the wx function ToLong on a string, and it failed to "
                           "produce a number")});
      }
      rows.push_back(entry);
    }
    return rows;
  }

  // Each wrong count is a failing test; only all right ones together are a passing test.
  void BasicPreliminaryIntegrityChecks(const std::vector<NameTime>& rows) {
    bool allRight = true;
    int number = 0;
    for (const ExpectedEvent& event : ExpectedEvents()) {
      ++number;
      const auto count = std::count_if(rows.begin(), rows.end(), [&event](const NameTime& row) {
        return FindExpectedEvent(row.name) == &event;
      });
      if (std::count(event.counts.begin(), event.counts.end(), count) > 0) continue;
      allRight = false;
      ReportFailure(wxString::Format(wxT("CONTENT_CHECK_%d_OF_8"), number),
                    {wxT("datafile content conflicts with the block rules and overall "
                         "experiment structure"),
                     event.line,
                     wxT("This test is for checking sync trial timing, but we also look at "
                         "basic event sequence, which seems to have gone wrong just now")});
    }
    if (allRight) ReportPass(wxT("BASIC_CONTENT_CHECKING"));
  }

  // The walk itself records no pass; each of its timestamps records a result.
  void VerifyProperTrialSyncTolmey3251(const std::vector<NameTime>& rows) {
    if (rows.empty() || rows[0].name != wxT("tim")) {
      ReportFailure(wxT("BAD_FIRST_EVENT_NAME"),
                    {wxT("the first event should always have the name timestamp"), 201,
                     wxT("whatever is the event name on the first data row seems wrong")});
      return;
    }
    const ExpectedEvent* event = rows.size() > 1 ? FindExpectedEvent(rows[1].name) : nullptr;
    if (!event) {
      ReportFailure(wxT("BAD_SECOND_EVENT_NAME"),
                    {wxT("the second event should always match one of 8 expected names"), 212,
                     wxT("whatever is the event name on the second data row seems wrong")});
      return;
    }

    long prior = rows[0].time;
    bool timestampIsDue = true;
    for (std::size_t row = 2; row < rows.size(); ++row) {
      const NameTime& current = rows[row];
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
        CheckOneTimestamp(prior, event->interval, current.time);
        prior = current.time;
      } else {
        event = FindExpectedEvent(current.name);
        if (!event) {
          ReportFailure(
              wxT("BAD_MIDRUN_EVENT_NAME"),
              {wxT("the events should always match *** or tim or one of 8 expected names"), 266,
               wxT("whatever is the event name on some data row seems wrong")});
          return;
        }
      }
      timestampIsDue = !isTimestamp;
    }
  }

  // All three are in milliseconds. A good timestamp comes one to twenty whole intervals after the
  // prior one, within the tolerance.
  void CheckOneTimestamp(long prior, long interval, long current) {
    const long elapsed = ClampedDifference(current, prior);
    long bestDifference = 99999;
    bool good = false;
    for (long k = 1; k <= 20 && !good; ++k) {
      bestDifference = std::min(bestDifference, std::labs(elapsed - k * interval));
      good = bestDifference <= GetTolerance();
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
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestSyncTrialsTolmey3251, false);
