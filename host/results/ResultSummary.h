// What the results of a run amount to.
#ifndef OMBRELIA_HOST_RESULTS_RESULTSUMMARY_H
#define OMBRELIA_HOST_RESULTS_RESULTSUMMARY_H

#include <cstddef>
#include <optional>
#include <vector>

#include "host/results/ExitStatus.h"
#include "host/results/RunResults.h"

namespace OmbreliaHost {

struct TestCounts {
  std::size_t passed = 0;
  std::size_t failed = 0;  // without the tolerated ones
  std::size_t tolerated = 0;

  std::size_t All() const { return passed + failed + tolerated; }
};

TestCounts CountTests(const std::vector<TestOutcome>& tests);
TestCounts CountTests(const RunResults& results);  // also those before the first data file

std::size_t CountDatafiles(const RunResults& results, Outcome outcome);

// SomeFailingTest also for a data file that could not be verified to its end, and for a tolerated failure
// unless tolerate, or where chance does not explain it; MalformedReport if the results have faults.
ExitStatus ExitStatusOf(const RunResults& results, bool tolerate);

// The line of the data file, from 1, that decided a test, that of the first cell of its evidence that stands
// anywhere; absent if there is none.
std::optional<long> LineOf(const TestOutcome& test);

}  // namespace OmbreliaHost

#endif
