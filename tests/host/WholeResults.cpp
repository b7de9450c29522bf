#include "tests/host/WholeResults.h"

namespace Tests {

using namespace OmbreliaHost;

namespace {

TestOutcome PassingTest(int number, const std::string& name) {
  TestOutcome test;
  test.number = number;
  test.name = name;
  return test;
}

TestOutcome FailingTest(int number, const std::string& name, const std::string& subject,
                        const std::string& message, Evidence::Kind kind) {
  TestOutcome test = PassingTest(number, name);
  test.outcome = Outcome::Failed;
  test.subject = subject;
  test.location = "Whichever/File/Focuses/On/Verifying/x.om5:" + std::to_string(100 + number);
  test.message = message;
  test.evidence.kind = kind;
  return test;
}

EvidenceCell Cell(const std::string& column, long row, const std::string& actual) {
  EvidenceCell cell;
  cell.column = column;
  cell.row = row;
  cell.line = row + 7;
  cell.actual = actual;
  return cell;
}

DatafileResult Datafile(const std::string& experiment, const std::string& run, Outcome outcome) {
  DatafileResult datafile;
  datafile.path = "runs/" + experiment + " " + run + ".txt";
  datafile.experiment = experiment;
  datafile.digest = "0123456789abcdef0123456789abcdef";
  datafile.outcome = outcome;
  datafile.seconds = 0.25;
  return datafile;
}

const char* const START = "DataHookOutputTestingPlugin_PerformPostProcessing_was_called";

DatafileResult DatafileWithEachKindOfEvidence() {
  DatafileResult datafile = Datafile("all_kinds.om5", "1", Outcome::Failed);
  datafile.position = 2;
  datafile.tests.push_back(PassingTest(9, START));

  TestOutcome length =
      FailingTest(10, "Correct_quantity_of_data_cells", "Too many data cells. More than expected.",
                  "No extra info.", Evidence::Kind::Length);
  length.evidence.cells = {Cell("color", 6, "green")};
  length.evidence.actualCount = 7;
  length.evidence.expectedCount = 6;
  datafile.tests.push_back(length);

  TestOutcome missing = FailingTest(11, "we_presented_all_events", "not all of them", "m",
                                    Evidence::Kind::MissingText);
  EvidenceCell sought;
  sought.column = "Trial\nName";
  sought.expected = "cues left";
  missing.evidence.cells = {sought};
  datafile.tests.push_back(missing);

  TestOutcome row = FailingTest(12, "Only_once", "not in this row", "m", Evidence::Kind::Row);
  row.evidence.cells = {Cell("Event\nName", 3, "event 1")};
  row.evidence.cells[0].expected = "event 2";
  datafile.tests.push_back(row);

  TestOutcome count = FailingTest(13, "Three_times", "not three times", "m", Evidence::Kind::Count);
  count.evidence.cells = {Cell("Event\nName", 0, "event 1"), Cell("Event\nName", 5, "event 1")};
  count.evidence.actualCount = 2;
  count.evidence.expectedCount = 3;
  datafile.tests.push_back(count);

  TestOutcome bound =
      FailingTest(14, "Experiment_duration_all_kinds.om5",
                  "Experiment duration is weird. Too short or too long (see details below).",
                  "Expected a duration between 700 and 900. Instead, we got a duration of 1000.",
                  Evidence::Kind::Bound);
  bound.bound = BoundCheck{700, 900, 1000};
  bound.evidence.cells = {Cell("Cumulative\nTime", 6, "1000")};
  datafile.tests.push_back(bound);

  TestOutcome reads = FailingTest(15, "Sums_up", "does not sum up", "m", Evidence::Kind::LastReads);
  reads.evidence.cells = {Cell("a", 0, "1"), Cell("b", 0, "2")};
  reads.evidence.words = {"The sum is not 4."};
  datafile.tests.push_back(reads);

  datafile.tests.push_back(PassingTest(16, "__TIMING__TRACKING__all_kinds.om5__1000_ms"));
  datafile.durationMs = 1000;
  datafile.expansionMs = 23;
  return datafile;
}

}  // namespace

DatafileResult DatafileWithOneWrongCell() {
  DatafileResult datafile = Datafile("two_sublists_tagging.om5", "3", Outcome::Failed);
  datafile.position = 1;
  datafile.tests.push_back(PassingTest(2, START));
  TestOutcome test =
      FailingTest(3, "Data_appears_completely_and_in_order",
                  "Mismatch in the ordering of data cells in datafile.",
                  "At datafile row index 4 we expected {red}, but that was not the actual content.",
                  Evidence::Kind::Cell);
  test.evidence.cells = {Cell("color", 4, "blue")};
  test.evidence.cells[0].expected = "red";
  test.evidence.context.columns = {"color"};
  test.evidence.context.rows = {{9, 2, {"blue"}, false, ""},
                                {10, 3, {"red"}, false, ""},
                                {11, 4, {"blue"}, true, "red"},
                                {12, 5, {"blue"}, false, ""}};
  datafile.tests.push_back(test);
  return datafile;
}

RunResults WholeResults() {
  RunResults results;
  results.machine = MachineKind::Small;
  results.started = "2026-03-01T12:00:00Z";
  results.seconds = 2.5;
  results.shard = Shard{2, 3};
  results.faults = {"Shard 3 of 3 is missing."};
  results.host = "builder-7";
  results.verifiers = "1.2.3+0123abcd";
  results.tolerance = ToleranceBudget{ToleranceBudget::State::Kept, {"1 tolerated failure."}};
  results.beforeFirst = {PassingTest(1, "SingleDummyPassingTest")};
  results.reports = {"/somewhere/report_1.xml", "/somewhere/report_2.xml"};

  results.datafiles.push_back(DatafileWithOneWrongCell());
  results.datafiles.push_back(DatafileWithEachKindOfEvidence());

  DatafileResult passed = Datafile("good.om4", "1", Outcome::Passed);
  passed.tests = {PassingTest(17, START), PassingTest(18, "__TIMING__TRACKING__good.om4__812_ms")};
  results.datafiles.push_back(passed);

  DatafileResult tolerated = Datafile("by_chance.om4", "1", Outcome::Tolerated);
  tolerated.tests = {PassingTest(19, START),
                     FailingTest(20, "By_chance", "rarely", "m", Evidence::Kind::None)};
  tolerated.tests[1].outcome = Outcome::Tolerated;
  tolerated.tests[1].chance = "p=0.0714 k/n=2/400: 2 in 400, chance allows it";
  tolerated.rows = 93;
  results.datafiles.push_back(tolerated);

  DatafileResult unreadable = Datafile("broken.om4", "1", Outcome::Unreadable);
  unreadable.digest.clear();
  unreadable.tests = {
      PassingTest(21, START),
      FailingTest(22, "open_and_parse_broken.om4 1", "this datafile was not open-able/parse-able",
                  "unable", Evidence::Kind::Reader)};
  unreadable.tests[1].evidence.words = {"The second line is missing."};
  results.datafiles.push_back(unreadable);

  DatafileResult unknown = Datafile("nearly.om4", "1", Outcome::Unknown);
  unknown.tests = {PassingTest(23, START), FailingTest(24, "locating_verifier_for_nearly.om4 1",
                                                       "no logic", "m", Evidence::Kind::None)};
  unknown.remarks = {"Did you mean nearby.om4?"};
  results.datafiles.push_back(unknown);

  DatafileResult crashed = Datafile("crashing.om4", "1", Outcome::Crashed);
  crashed.loss = Loss{11, 0, {"one", "two"}};
  results.datafiles.push_back(crashed);
  DatafileResult timedOut = Datafile("endless.om4", "1", Outcome::TimedOut);
  timedOut.loss = Loss{9, 0, {}};
  results.datafiles.push_back(timedOut);
  DatafileResult lost = Datafile("leaving.om4", "1", Outcome::Lost);
  lost.loss = Loss{0, 3, {"bye"}};
  results.datafiles.push_back(lost);
  return results;
}

const std::vector<std::string>& HostileTexts() {
  static const std::vector<std::string> texts = {"say \"no\"",
                                                 "it's",
                                                 "<b>&amp;</b>",
                                                 "a]]>b",
                                                 "]]></failure></testcase><testcase name=\"x\"/>",
                                                 std::string("nul\0 in it", 10),
                                                 "\x1B[31mred\x1B[0m",
                                                 "a\tb\r\nc\n",
                                                 "\x01\x7F\xC2\x85",
                                                 "bad \xFF\xC3 utf-8 \xED\xA0\x80",
                                                 "\xEF\xBF\xBE\xEF\xBF\xBF",
                                                 "::error::injected\n::set-output name=x::y",
                                                 "a | b `c` [d](e) @f",
                                                 std::string(200 * 1024, 'x')};
  return texts;
}

}  // namespace Tests
