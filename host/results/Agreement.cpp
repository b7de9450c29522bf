#include "host/results/Agreement.h"

#include <algorithm>

#include "host/results/ResultNames.h"

namespace OmbreliaHost {

namespace {

bool IsAssertion(const TestOutcome& test) {
  const std::string start = "TestingPluginDH_AssertionFailure_";
  return test.name.compare(0, start.size(), start) == 0;
}

bool AreTheSame(const TestOutcome& a, const TestOutcome& b) {
  return a.name == b.name && (a.outcome == Outcome::Passed) == (b.outcome == Outcome::Passed) &&
         a.subject == b.subject && a.location == b.location && a.message == b.message;
}

std::string Counts(const DatafileResult& datafile) {
  const auto passed =
      std::count_if(datafile.tests.begin(), datafile.tests.end(),
                    [](const TestOutcome& test) { return test.outcome == Outcome::Passed; });
  return std::to_string(passed) + " passed, " +
         std::to_string(static_cast<std::ptrdiff_t>(datafile.tests.size()) - passed) + " failed";
}

// The failing tests of one that the other does not have.
std::vector<std::string> FailuresOnlyOf(const DatafileResult& one, const DatafileResult& other) {
  std::vector<std::string> failures;
  for (const TestOutcome& test : one.tests) {
    if (test.outcome == Outcome::Passed || IsAssertion(test)) continue;
    const bool there = std::any_of(other.tests.begin(), other.tests.end(),
                                   [&](const TestOutcome& its) { return AreTheSame(its, test); });
    if (!there) failures.push_back(test.name + ": " + test.message);
  }
  return failures;
}

}  // namespace

void TakeEvidence(DatafileResult& datafile, const DatafileResult& second) {
  datafile.rows = second.rows;
  auto next = second.tests.begin();
  bool agree = true;
  for (TestOutcome& test : datafile.tests) {
    if (IsAssertion(test)) continue;
    agree = agree && next != second.tests.end() && AreTheSame(test, *next);
    if (!agree) break;
    test.evidence = next->evidence;
    test.bound = next->bound;
    ++next;
  }
  if (agree && next == second.tests.end()) return;
  datafile.remarks.push_back(
      "The second verification, which gives the evidence, has other results (" + Counts(second) +
      "); the plug-in's count.");
}

void TakeBounds(DatafileResult& datafile, const DatafileResult& second) {
  datafile.rows = second.rows;
  for (TestOutcome& test : datafile.tests) {
    const auto same = std::find_if(
        second.tests.begin(), second.tests.end(),
        [&test](const TestOutcome& its) { return its.bound && AreTheSame(its, test); });
    if (same != second.tests.end()) test.bound = same->bound;
  }
}

std::vector<std::string> DifferencesOn(MachineKind machine, const DatafileResult& datafile,
                                       const DatafileResult& there) {
  const std::string where = "On a machine of the kind " + NameOf(machine);
  std::vector<std::string> differences;
  for (const std::string& failure : FailuresOnlyOf(there, datafile)) {
    differences.push_back(where + " fails " + failure);
  }
  for (const std::string& failure : FailuresOnlyOf(datafile, there)) {
    differences.push_back(where + " does not fail " + failure);
  }
  return differences;
}

}  // namespace OmbreliaHost
