// A verification by the program itself, which tells why a test failed.
#ifndef OMBRELIA_HOST_RESULTS_SECONDVERIFICATION_H
#define OMBRELIA_HOST_RESULTS_SECONDVERIFICATION_H

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "framework/StimAreaData.h"
#include "host/results/RunResults.h"
#include "host/results/ThisMachine.h"

namespace OmbreliaHost {

struct OwnVerdict {
  std::string experiment;  // as in DatafileResult
  Outcome outcome = Outcome::Passed;
  // Those of the plug-in for this data file, in order, from the one on with which each data file begins.
  // All failing tests have evidence, all tests of a number its bound. No test has a number.
  std::vector<TestOutcome> tests;
  std::optional<long> durationMs;
  std::optional<long> expansionMs;
  std::optional<long> rows;  // of the table; absent if the data file cannot be read
};

// Verifies one data file in this process, with the rooms that the program is linked with and not with the
// plug-in library. Writes no file. The data file's content may crash the process or keep it busy for ever:
// callers that must go on call this in a child. A data file that cannot be read has a verdict, too.
OwnVerdict VerifyInThisProcess(const std::filesystem::path& absoluteDatafile,
                               const std::vector<Ombrelia::StimAreaData>& areas,
                               MachineKind machine);

}  // namespace OmbreliaHost

#endif
