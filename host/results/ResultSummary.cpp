#include "host/results/ResultSummary.h"

#include <algorithm>

namespace OmbreliaHost {

namespace {

void Add(TestCounts& counts, const std::vector<TestOutcome>& tests) {
  for (const TestOutcome& test : tests) {
    if (test.outcome == Outcome::Passed) {
      ++counts.passed;
    } else if (test.outcome == Outcome::Tolerated) {
      ++counts.tolerated;
    } else {
      ++counts.failed;
    }
  }
}

bool CountsAsFailing(Outcome outcome, bool tolerate) {
  return outcome != Outcome::Passed && !(tolerate && outcome == Outcome::Tolerated);
}

}  // namespace

TestCounts CountTests(const std::vector<TestOutcome>& tests) {
  TestCounts counts;
  Add(counts, tests);
  return counts;
}

TestCounts CountTests(const RunResults& results) {
  TestCounts counts = CountTests(results.beforeFirst);
  for (const DatafileResult& datafile : results.datafiles) Add(counts, datafile.tests);
  return counts;
}

std::size_t CountDatafiles(const RunResults& results, Outcome outcome) {
  return static_cast<std::size_t>(
      std::count_if(results.datafiles.begin(), results.datafiles.end(),
                    [&](const DatafileResult& datafile) { return datafile.outcome == outcome; }));
}

ExitStatus ExitStatusOf(const RunResults& results, bool tolerate) {
  if (!results.faults.empty()) return ExitStatus::MalformedReport;
  const auto fails = [&](const auto& result) { return CountsAsFailing(result.outcome, tolerate); };
  const bool anyFails =
      std::any_of(results.beforeFirst.begin(), results.beforeFirst.end(), fails) ||
      std::any_of(results.datafiles.begin(), results.datafiles.end(), fails) ||
      (results.tolerance && results.tolerance->state == ToleranceBudget::State::Blown);
  return anyFails ? ExitStatus::SomeFailingTest : ExitStatus::NoFailingTest;
}

std::optional<long> LineOf(const TestOutcome& test) {
  const std::vector<EvidenceCell>& cells = test.evidence.cells;
  const auto found = std::find_if(cells.begin(), cells.end(),
                                  [](const EvidenceCell& cell) { return cell.line.has_value(); });
  return found == cells.end() ? std::nullopt : found->line;
}

}  // namespace OmbreliaHost
