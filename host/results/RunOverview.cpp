#include "host/results/RunOverview.h"

#include <algorithm>
#include <map>
#include <numeric>

#include "host/results/Families.h"
#include "host/results/Manifest.h"

namespace OmbreliaHost {

namespace {

int RankOf(Outcome outcome) {
  if (outcome == Outcome::Passed) return 2;
  return outcome == Outcome::Tolerated ? 1 : 0;
}

std::vector<std::size_t> OrderOf(const std::vector<DatafileResult>& datafiles) {
  std::vector<std::size_t> order(datafiles.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(), [&datafiles](std::size_t one, std::size_t other) {
    return RankOf(datafiles[one].outcome) < RankOf(datafiles[other].outcome);
  });
  return order;
}

void Add(ExperimentOverview& experiment, std::size_t index, Outcome outcome) {
  if (experiment.datafiles.empty()) experiment.outcome = outcome;
  experiment.datafiles.push_back(index);
  if (outcome != Outcome::Passed) ++experiment.notPassed;
}

// The expansion's check has a name of its own; every other number in bounds is a duration.
std::optional<BoundCheck> BoundOf(const DatafileResult& datafile, bool ofExpansion) {
  const std::string start = "Expansion_duration_";
  for (const TestOutcome& test : datafile.tests) {
    const bool isExpansion = test.name.compare(0, start.size(), start) == 0;
    if (test.bound && isExpansion == ofExpansion) return test.bound;
  }
  return std::nullopt;
}

std::optional<MeasuredTime> TimeOf(const std::optional<long>& tracked,
                                   const std::optional<BoundCheck>& bound) {
  if (!tracked && !bound) return std::nullopt;
  // What is plotted against bounds is the number that was held against them.
  return MeasuredTime{bound ? bound->actual : *tracked, bound};
}

}  // namespace

RunOverview OverviewOf(const RunResults& results) {
  RunOverview overview;
  overview.order = OrderOf(results.datafiles);
  std::map<std::string, ExperimentOverview> experiments;
  for (const std::size_t index : overview.order) {
    const DatafileResult& datafile = results.datafiles[index];
    ExperimentOverview& experiment = experiments[datafile.experiment];
    experiment.experiment = datafile.experiment;
    Add(experiment, index, datafile.outcome);
  }
  for (const std::string& name : Families()) {
    FamilyOverview family = {name, {}};
    for (const VerifierEntry& entry : Verifiers()) {
      if (FamilyOf(entry.experiment) != name) continue;
      ExperimentOverview experiment = experiments[entry.experiment];
      experiment.experiment = entry.experiment;
      experiment.proves = entry.proves;
      family.experiments.push_back(experiment);
    }
    if (!family.experiments.empty()) overview.families.push_back(family);
  }
  for (const auto& [name, experiment] : experiments) {
    if (FindVerifier(name) == nullptr) overview.withoutVerifier.push_back(experiment);
  }
  return overview;
}

std::optional<MeasuredTime> DurationOf(const DatafileResult& datafile) {
  return TimeOf(datafile.durationMs, BoundOf(datafile, false));
}

std::optional<MeasuredTime> ExpansionOf(const DatafileResult& datafile) {
  return TimeOf(datafile.expansionMs, BoundOf(datafile, true));
}

}  // namespace OmbreliaHost
