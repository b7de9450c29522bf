// Timestamps are numbered, and the tolerance is chosen, once while the library is loaded. So tests
// that depend on either run in a fresh process; all others look at numbers within their file alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2014-06-16_sync_trials.om5";
const char* const EVENT = "Event\nName";
const char* const TIME = "Cumulative\nTime";
const std::string CHECK = "CHECK_TIMESTAMP_";

// Runs body in a separate process, which ends with status 0 if no expectation in it failed. It ends
// at once: what main holds is not given back in it, and a leak checker would take that for leaks.
#define EXPECT_IN_FRESH_PROCESS(body)                                            \
  GTEST_FLAG_SET(death_test_style, "threadsafe");                                \
  EXPECT_EXIT(                                                                   \
      {                                                                          \
        body();                                                                  \
        std::fflush(nullptr);                                                    \
        std::_Exit(::testing::Test::HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS); \
      },                                                                         \
      ::testing::ExitedWithCode(EXIT_SUCCESS), "")

DataFile Sample() { return DataFile::Sample(EXPERIMENT); }

// Numbers the timestamps of one file from 1, after seeing that theirs follow each other.
Lines Renumbered(Lines lines) {
  int first = 0;
  int count = 0;
  for (std::string& line : lines) {
    const std::size_t start = line.find(CHECK);
    if (start == std::string::npos) continue;
    const std::size_t digits = start + CHECK.size();
    std::size_t length = 0;
    const int number = std::stoi(line.substr(digits), &length);
    if (count == 0) first = number;
    EXPECT_EQ(number, first + count);
    ++count;
    line.replace(digits, length, std::to_string(count));
  }
  return lines;
}

Lines Failures(const DataFile& file) { return FailuresOf(Renumbered(file.Verify())); }

std::size_t TimestampsExamined(const DataFile& file) {
  std::size_t count = 0;
  for (const std::string& line : file.Verify()) {
    if (line.find(CHECK) != std::string::npos) ++count;
  }
  return count;
}

// The record of the sample, with its timestamps numbered from first on.
Lines PassingFrom(int first) {
  Lines lines = {"suite 2014-06-16_sync_trials.om5",
                 "pass VerifyDatafile_was_called_for_2014-06-16_sync_trials.om5",
                 "pass BASIC_CONTENT_CHECKING"};
  for (int i = 0; i < 25; ++i) lines.push_back("pass CHECK_TIMESTAMP_" + std::to_string(first + i));
  lines.insert(lines.end(), {"pass Experiment_duration_2014-06-16_sync_trials.om5",
                             "pass Expansion_duration_2014-06-16_sync_trials.om5",
                             "pass __TIMING__TRACKING__2014-06-16_sync_trials.om5__8855_ms",
                             "pass __EXPANSION__TRACKING__2014-06-16_sync_trials.om5__41_ms"});
  return lines;
}

std::string ContentCheck(int number, int line) {
  return Fail("CONTENT_CHECK_" + std::to_string(number) + "_OF_8",
              "datafile content conflicts with the block rules and overall experiment structure",
              EXPERIMENT, line,
              "This test is for checking sync trial timing, but we also look at basic event "
              "sequence, which seems to have gone wrong just now");
}

std::string BadTimestamp(int number, long prior, long current, long interval, long difference) {
  const std::string words = "Subsequent timestamps were not ok, given prior and current of " +
                            std::to_string(prior) + " and " + std::to_string(current) +
                            " and an interval of " + std::to_string(interval) + " for best diff " +
                            std::to_string(difference);
  return Fail(CHECK + std::to_string(number), words, EXPERIMENT, 178, words);
}

const std::string NON_NUMERIC =
    Fail("NON_NUMERIC_TIME_VALUE", "Cum time string should always be convertible to a number",
         EXPERIMENT, 111,
         "we called the wx function ToLong on a string, and it failed to produce a number");

const std::string BAD_FIRST =
    Fail("BAD_FIRST_EVENT_NAME", "the first event should always have the name timestamp",
         EXPERIMENT, 201, "whatever is the event name on the first data row seems wrong");

const std::string BAD_SECOND =
    Fail("BAD_SECOND_EVENT_NAME", "the second event should always match one of 8 expected names",
         EXPERIMENT, 212, "whatever is the event name on the second data row seems wrong");

const std::string BAD_MIDRUN = Fail(
    "BAD_MIDRUN_EVENT_NAME", "the events should always match *** or tim or one of 8 expected names",
    EXPERIMENT, 266, "whatever is the event name on some data row seems wrong");

const std::string NO_ALTERNATION =
    Fail("ALWAYS_ONE_AND_ONE_TIMESTAMP_PER_EVENT",
         "we need to alternate between finding 1 timestamp 1 event", EXPERIMENT, 282,
         "either 2 timestamps happened for 1 event, or 2 events for 1 timestamp");

// A file in which each event has its timestamp one interval after the timestamp before it. It ends
// in a row that is skipped, whose time lies inside the bounds whatever the events are.
DataFile FileOf(const std::vector<std::string>& events) {
  std::vector<std::vector<std::string>> rows = {{"timestamp", "100", "-"}};
  long now = 100;
  for (const std::string& event : events) {
    rows.push_back({event, std::to_string(now + 1), "-"});
    now += event[0] == 'b' || event[0] == 'd' ? 400 : 300;
    rows.push_back({"timestamp", std::to_string(now), "-"});
  }
  rows.push_back({"***", "9000", "-"});
  return DataFile::Of(EXPERIMENT, {EVENT, TIME, "Expansion Time(ms): 41"}, rows);
}

// As many events of each kind, in the order "the", "ee1", "ee2", "ee3", "b (", "c (", "d (", "e (".
DataFile FileOfCounts(const std::vector<std::size_t>& counts) {
  const std::vector<std::string> names = {"the",   "ee1",   "ee2",   "ee3",
                                          "b (1)", "c (1)", "d (1)", "e (1)"};
  std::vector<std::string> events;
  for (std::size_t i = 0; i < names.size(); ++i)
    events.insert(events.end(), counts.at(i), names[i]);
  return FileOf(events);
}

// --- The sample

TEST(TestSyncTrialsTolmey3251, PassesItsSample) {
  EXPECT_EQ(Renumbered(Sample().Verify()), PassingFrom(1));
}

void GoOnNumbering() {
  EXPECT_EQ(Sample().Verify(), PassingFrom(1));
  EXPECT_EQ(Sample().Verify(), PassingFrom(26));
  EXPECT_EQ(Sample().Set(2, TIME, "320").Failures(),
            (Lines{BadTimestamp(51, 12, 320, 300, 8), BadTimestamp(52, 320, 613, 300, 7)}));
  EXPECT_EQ(Sample().Verify(), PassingFrom(76));
}

TEST(TestSyncTrialsTolmey3251, NumbersTimestampsFromOneThroughAllFiles) {
  EXPECT_IN_FRESH_PROCESS(GoOnNumbering);
}

// --- Times that are no numbers

TEST(TestSyncTrialsTolmey3251, ReportsATimeThatIsNoNumber) {
  for (const char* text : {"soon", "12.5", "613ms", "", "99999999999999999999"}) {
    EXPECT_EQ(Failures(Sample().Set(3, TIME, text)), Lines{NON_NUMERIC}) << text;
  }
}

TEST(TestSyncTrialsTolmey3251, KeepsATimeThatIsNoNumberAsZero) {
  EXPECT_EQ(
      Failures(Sample().Set(2, TIME, "312ms")),
      (Lines{NON_NUMERIC, BadTimestamp(1, 12, 0, 300, 312), BadTimestamp(2, 0, 613, 300, 13)}));
}

TEST(TestSyncTrialsTolmey3251, ReportsEachRowWithoutTheTimeColumn) {
  const DataFile file = FileOf({"the", "b (1)"}).RenameColumn(TIME, "Some\nTime");
  EXPECT_EQ(Failures(file),
            (Lines{NON_NUMERIC, NON_NUMERIC, NON_NUMERIC, NON_NUMERIC, NON_NUMERIC, NON_NUMERIC,
                   ContentCheck(1, 330), ContentCheck(2, 340), ContentCheck(3, 350),
                   ContentCheck(4, 360), ContentCheck(5, 370), ContentCheck(7, 390),
                   ContentCheck(8, 400), BadTimestamp(1, 0, 0, 300, 300),
                   BadTimestamp(2, 0, 0, 400, 400), DurationUnavailable(EXPERIMENT)}));
}

// --- The counts of events

TEST(TestSyncTrialsTolmey3251, AcceptsTheCountsThatTheBlocksCanHave) {
  for (const std::size_t c : {0u, 3u}) {
    for (const std::size_t d : {3u, 6u}) {
      EXPECT_EQ(Failures(FileOfCounts({7, 1, 1, 1, 3, c, d, 6})), Lines{}) << c << " " << d;
    }
  }
}

TEST(TestSyncTrialsTolmey3251, ReportsEachOtherCount) {
  struct Case {
    std::size_t kind;
    std::vector<std::size_t> counts;
    int line;
  };
  const std::vector<Case> cases = {{0, {6, 8}, 330},          {1, {0, 2}, 340},
                                   {2, {0, 2}, 350},          {3, {0, 2}, 360},
                                   {4, {0, 2, 4}, 370},       {5, {1, 2, 4, 6}, 380},
                                   {6, {0, 2, 4, 5, 7}, 390}, {7, {0, 3, 5, 7}, 400}};
  for (const Case& one : cases) {
    for (const std::size_t count : one.counts) {
      std::vector<std::size_t> counts = {7, 1, 1, 1, 3, 3, 3, 6};
      counts[one.kind] = count;
      EXPECT_EQ(Failures(FileOfCounts(counts)),
                Lines{ContentCheck(static_cast<int>(one.kind) + 1, one.line)})
          << one.kind << " " << count;
    }
  }
}

TEST(TestSyncTrialsTolmey3251, PassesNoCountBesideOneThatFails) {
  const Lines lines = FileOfCounts({7, 2, 1, 1, 3, 3, 3, 6}).Verify();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "pass BASIC_CONTENT_CHECKING"), 0);
}

TEST(TestSyncTrialsTolmey3251, LooksAtThreeCharactersOfAName) {
  EXPECT_EQ(Failures(Sample()
                         .Set(1, EVENT, "theatre")
                         .Set(2, EVENT, "time of day")
                         .Set(5, EVENT, "ee1 (with more behind it)")),
            Lines{});
  EXPECT_EQ(Failures(Sample().Set(5, EVENT, "Ee1")), (Lines{ContentCheck(2, 340), BAD_MIDRUN}));
  EXPECT_EQ(Failures(Sample().Set(5, EVENT, " ee1")), (Lines{ContentCheck(2, 340), BAD_MIDRUN}));
  EXPECT_EQ(Failures(Sample().Set(5, EVENT, "ee")), (Lines{ContentCheck(2, 340), BAD_MIDRUN}));
}

// --- The order of events and timestamps

TEST(TestSyncTrialsTolmey3251, ReportsAFirstRowThatIsNoTimestamp) {
  for (const char* name : {"the", "***", "Timestamp", "ti", ""}) {
    const DataFile file = FileOfCounts({7, 1, 1, 1, 3, 3, 3, 6}).Set(0, EVENT, name);
    const Lines expected =
        std::string(name) == "the" ? Lines{ContentCheck(1, 330), BAD_FIRST} : Lines{BAD_FIRST};
    EXPECT_EQ(Failures(file), expected) << name;
    EXPECT_EQ(TimestampsExamined(file), 0u) << name;
  }
}

TEST(TestSyncTrialsTolmey3251, ReportsASecondRowWithoutAnExpectedName) {
  for (const char* name : {"timestamp", "***", "f (1)", ""}) {
    const DataFile file = FileOfCounts({7, 1, 1, 1, 3, 3, 3, 6}).Set(1, EVENT, name);
    EXPECT_EQ(Failures(file), (Lines{ContentCheck(1, 330), BAD_SECOND})) << name;
    EXPECT_EQ(TimestampsExamined(file), 0u) << name;
  }
}

TEST(TestSyncTrialsTolmey3251, ReportsAMissingSecondRow) {
  EXPECT_EQ(
      Failures(FileOf({}).KeepRows(1).SetDuration("9000")),
      (Lines{ContentCheck(1, 330), ContentCheck(2, 340), ContentCheck(3, 350), ContentCheck(4, 360),
             ContentCheck(5, 370), ContentCheck(7, 390), ContentCheck(8, 400), BAD_SECOND}));
}

TEST(TestSyncTrialsTolmey3251, AcceptsAFileThatEndsWhereATimestampIsDue) {
  const DataFile file = FileOfCounts({7, 1, 1, 1, 3, 3, 3, 6}).RemoveRow(50);
  EXPECT_EQ(Failures(file), Lines{});
  EXPECT_EQ(TimestampsExamined(file), 24u);
}

TEST(TestSyncTrialsTolmey3251, ReportsAnUnknownNameAndEndsThere) {
  const DataFile file = FileOfCounts({7, 1, 1, 1, 3, 3, 3, 6}).Set(7, EVENT, "?");
  EXPECT_EQ(Failures(file), (Lines{ContentCheck(1, 330), BAD_MIDRUN}));
  EXPECT_EQ(TimestampsExamined(file), 3u);
}

TEST(TestSyncTrialsTolmey3251, ReportsTwoTimestampsForOneEventAndEndsThere) {
  const DataFile file = FileOfCounts({7, 1, 1, 1, 3, 3, 3, 6}).Set(7, EVENT, "timestamp");
  EXPECT_EQ(Failures(file), (Lines{ContentCheck(1, 330), NO_ALTERNATION}));
  EXPECT_EQ(TimestampsExamined(file), 3u);
}

TEST(TestSyncTrialsTolmey3251, ReportsTwoEventsForOneTimestampAndEndsThere) {
  const DataFile file = FileOfCounts({7, 1, 1, 1, 3, 3, 3, 6}).Set(8, EVENT, "ee1");
  EXPECT_EQ(Failures(file), (Lines{ContentCheck(2, 340), NO_ALTERNATION}));
  EXPECT_EQ(TimestampsExamined(file), 3u);
}

TEST(TestSyncTrialsTolmey3251, ReportsTheAlternationForAnUnknownNameWhereATimestampIsDue) {
  const DataFile file = FileOfCounts({7, 1, 1, 1, 3, 3, 3, 6}).Set(8, EVENT, "?");
  EXPECT_EQ(Failures(file), Lines{NO_ALTERNATION});
  EXPECT_EQ(TimestampsExamined(file), 3u);
}

TEST(TestSyncTrialsTolmey3251, SkipsStarsAnywhereBehindTheSecondRow) {
  DataFile file = FileOfCounts({7, 1, 1, 1, 3, 3, 3, 6});
  for (std::size_t row = 50; row >= 2; --row) {
    file.RepeatRow(row).Set(row, EVENT, "***").Set(row, TIME, "-5");
  }
  EXPECT_EQ(Failures(file), Lines{});
  EXPECT_EQ(TimestampsExamined(file), 25u);
}

TEST(TestSyncTrialsTolmey3251, ReportsEverythingWithoutTheEventColumn) {
  EXPECT_EQ(
      Failures(Sample().RemoveColumn(EVENT)),
      (Lines{ContentCheck(1, 330), ContentCheck(2, 340), ContentCheck(3, 350), ContentCheck(4, 360),
             ContentCheck(5, 370), ContentCheck(7, 390), ContentCheck(8, 400), BAD_FIRST}));
}

// --- One timestamp

// The failure of a single timestamp that comes so long after the one before it; empty if it is good.
Lines FailureOfOneTimestamp(const std::string& event, const std::string& prior,
                            const std::string& current, const char* machine = ORDINARY_MACHINE) {
  const DataFile file =
      DataFile::Of(EXPERIMENT, {EVENT, TIME},
                   {{"timestamp", prior}, {event, prior}, {"timestamp", current}, {"***", "9000"}});
  Lines found;
  int examined = 0;
  for (const std::string& line : Renumbered(file.Verify(machine))) {
    if (line.find(CHECK) == std::string::npos) continue;
    ++examined;
    if (line != "pass CHECK_TIMESTAMP_1") found.push_back(line);
  }
  EXPECT_EQ(examined, 1);
  return found;
}

Lines FailureAfter(const std::string& event, long elapsed, const char* machine = ORDINARY_MACHINE) {
  return FailureOfOneTimestamp(event, "1000", std::to_string(1000 + elapsed), machine);
}

TEST(TestSyncTrialsTolmey3251, AcceptsOneToTwentyIntervals) {
  for (long k = 1; k <= 20; ++k) {
    EXPECT_EQ(FailureAfter("the", k * 300), Lines{}) << k;
    EXPECT_EQ(FailureAfter("b (1)", k * 400), Lines{}) << k;
  }
}

TEST(TestSyncTrialsTolmey3251, KnowsTheIntervalOfEachName) {
  for (const char* name : {"the", "ee1", "ee2", "ee3", "c (1)", "e (1)"}) {
    EXPECT_EQ(FailureAfter(name, 300), Lines{}) << name;
    EXPECT_EQ(FailureAfter(name, 400), Lines{BadTimestamp(1, 1000, 1400, 300, 100)}) << name;
  }
  for (const char* name : {"b (1)", "d (1)"}) {
    EXPECT_EQ(FailureAfter(name, 400), Lines{}) << name;
    EXPECT_EQ(FailureAfter(name, 300), Lines{BadTimestamp(1, 1000, 1300, 400, 100)}) << name;
  }
}

TEST(TestSyncTrialsTolmey3251, RejectsNoIntervalAndTwentyOne) {
  EXPECT_EQ(FailureAfter("the", 0), Lines{BadTimestamp(1, 1000, 1000, 300, 300)});
  EXPECT_EQ(FailureAfter("the", 21 * 300), Lines{BadTimestamp(1, 1000, 7300, 300, 300)});
  EXPECT_EQ(FailureAfter("b (1)", 0), Lines{BadTimestamp(1, 1000, 1000, 400, 400)});
  EXPECT_EQ(FailureAfter("b (1)", 21 * 400), Lines{BadTimestamp(1, 1000, 9400, 400, 400)});
  EXPECT_EQ(FailureAfter("the", -300), Lines{BadTimestamp(1, 1000, 700, 300, 600)});
}

TEST(TestSyncTrialsTolmey3251, GivesTheSmallestDifference) {
  EXPECT_EQ(FailureAfter("the", 740), Lines{BadTimestamp(1, 1000, 1740, 300, 140)});
  EXPECT_EQ(FailureAfter("the", 6000 + 99998), Lines{BadTimestamp(1, 1000, 106998, 300, 99998)});
  EXPECT_EQ(FailureAfter("the", 6000 + 99999), Lines{BadTimestamp(1, 1000, 106999, 300, 99999)});
  EXPECT_EQ(FailureAfter("the", 6000 + 100000), Lines{BadTimestamp(1, 1000, 107000, 300, 99999)});
  EXPECT_EQ(FailureAfter("the", 300 - 99998), Lines{BadTimestamp(1, 1000, -98698, 300, 99998)});
  EXPECT_EQ(FailureAfter("the", 300 - 100000), Lines{BadTimestamp(1, 1000, -98700, 300, 99999)});
}

TEST(TestSyncTrialsTolmey3251, SurvivesTheLargestTimes) {
  const long max = 9223372036854775807L;
  const long min = -max - 1;
  const std::string maxText = "9223372036854775807";
  const std::string minText = "-9223372036854775808";
  EXPECT_EQ(FailureOfOneTimestamp("the", minText, maxText),
            Lines{BadTimestamp(1, min, max, 300, 99999)});
  EXPECT_EQ(FailureOfOneTimestamp("the", maxText, minText),
            Lines{BadTimestamp(1, max, min, 300, 99999)});
  EXPECT_EQ(FailureOfOneTimestamp("the", maxText, maxText),
            Lines{BadTimestamp(1, max, max, 300, 300)});
  EXPECT_EQ(FailureOfOneTimestamp("the", "9223372036854775207", maxText), Lines{});
}

TEST(TestSyncTrialsTolmey3251, MeasuresFromTheTimestampBeforeAndNotFromItsDueTime) {
  // Three milliseconds late each time, which adds up.
  DataFile file = FileOfCounts({7, 1, 1, 1, 3, 3, 3, 6});
  for (std::size_t row = 2; row <= 50; row += 2) {
    file.Set(row, TIME,
             std::to_string(std::stol(file.Cell(row, TIME)) + static_cast<long>(row / 2) * 3));
  }
  EXPECT_EQ(Failures(file), Lines{});
}

void ToleratesThreeMilliseconds(const char* machine) {
  for (const long off : {-3, -2, -1, 0, 1, 2, 3}) {
    EXPECT_EQ(FailureAfter("the", 600 + off, machine), Lines{}) << off;
  }
  EXPECT_EQ(FailureAfter("the", 604, machine), Lines{BadTimestamp(1, 1000, 1604, 300, 4)});
  EXPECT_EQ(FailureAfter("the", 596, machine), Lines{BadTimestamp(1, 1000, 1596, 300, 4)});
  EXPECT_EQ(FailureAfter("the", 605, machine), Lines{BadTimestamp(1, 1000, 1605, 300, 5)});
}

void ToleratesSixMilliseconds(const char* machine) {
  for (const long off : {-6, -5, 0, 5, 6}) {
    EXPECT_EQ(FailureAfter("the", 600 + off, machine), Lines{}) << off;
  }
  EXPECT_EQ(FailureAfter("the", 607, machine), Lines{BadTimestamp(1, 1000, 1607, 300, 7)});
  EXPECT_EQ(FailureAfter("the", 593, machine), Lines{BadTimestamp(1, 1000, 1593, 300, 7)});
}

TEST(TestSyncTrialsTolmey3251, ToleratesThreeMillisecondsOnAnOrdinaryMachine) {
  EXPECT_IN_FRESH_PROCESS([] { ToleratesThreeMilliseconds(ORDINARY_MACHINE); });
}

TEST(TestSyncTrialsTolmey3251, ToleratesThreeMillisecondsOnTheServer) {
  EXPECT_IN_FRESH_PROCESS([] { ToleratesThreeMilliseconds(SERVER_MACHINE); });
}

TEST(TestSyncTrialsTolmey3251, ToleratesSixMillisecondsOnTheSmallTestMachine) {
  EXPECT_IN_FRESH_PROCESS([] { ToleratesSixMilliseconds(TESTBOX_MACHINE); });
}

TEST(TestSyncTrialsTolmey3251, ToleratesSixMillisecondsOnAMachineThatIsBoth) {
  EXPECT_IN_FRESH_PROCESS([] { ToleratesSixMilliseconds(BOTH_MACHINES); });
}

void KeepsTheToleranceOfAnOrdinaryMachine() {
  ToleratesThreeMilliseconds(ORDINARY_MACHINE);
  ToleratesThreeMilliseconds(TESTBOX_MACHINE);
}

void KeepsTheToleranceOfTheTestMachine() {
  ToleratesSixMilliseconds(TESTBOX_MACHINE);
  ToleratesSixMilliseconds(ORDINARY_MACHINE);
}

TEST(TestSyncTrialsTolmey3251, ChoosesItsToleranceOnce) {
  EXPECT_IN_FRESH_PROCESS(KeepsTheToleranceOfAnOrdinaryMachine);
  EXPECT_IN_FRESH_PROCESS(KeepsTheToleranceOfTheTestMachine);
}

// --- The run as a whole

TEST(TestSyncTrialsTolmey3251, TestsTheBoundsAfterFailures) {
  EXPECT_EQ(
      Failures(Sample().Set(0, EVENT, "the").SetDuration("14001").SetExpansion("71")),
      (Lines{ContentCheck(1, 330), BAD_FIRST, DurationOutOfBounds(EXPERIMENT, 6600, 14000, "14001"),
             ExpansionOutOfBounds(EXPERIMENT, 10, 70, "71")}));
}

TEST(TestSyncTrialsTolmey3251, ForgetsTheRowsOfTheFileBefore) {
  EXPECT_EQ(Renumbered(Sample().Verify()), PassingFrom(1));
  EXPECT_EQ(Renumbered(Sample().Verify()), PassingFrom(1));
}

}  // namespace
}  // namespace Tests
