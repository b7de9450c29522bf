// The results of a run from above: experiment by experiment, and what is to be looked at first.
#ifndef OMBRELIA_HOST_RESULTS_RUNOVERVIEW_H
#define OMBRELIA_HOST_RESULTS_RUNOVERVIEW_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/results/RunResults.h"

namespace OmbreliaHost {

struct ExperimentOverview {
  std::string experiment;
  std::string proves;  // empty if it has no verifier
  std::vector<std::size_t>
      datafiles;              // indices into the results, what is to be looked at first in front
  std::size_t notPassed = 0;  // how many of them
  std::optional<Outcome> outcome;  // of the first one; absent if the run had none
};

struct FamilyOverview {
  std::string name;
  std::vector<ExperimentOverview> experiments;  // at least one
};

struct RunOverview {
  // All experiments that have a verifier, as the manifest orders them, by families.
  std::vector<FamilyOverview> families;
  // Those of the run that have none, in the order of their names.
  std::vector<ExperimentOverview> withoutVerifier;
  // Indices into the results: what failed, then what is tolerated, then what passed, each in the results' order.
  std::vector<std::size_t> order;
};

RunOverview OverviewOf(const RunResults& results);

// A time that the host needed, with the bounds that it was held against where they are known.
struct MeasuredTime {
  long milliseconds = 0;
  std::optional<BoundCheck> bound;
};

// Absent if the data file tells no such time.
std::optional<MeasuredTime> DurationOf(const DatafileResult& datafile);
std::optional<MeasuredTime> ExpansionOf(const DatafileResult& datafile);

}  // namespace OmbreliaHost

#endif
