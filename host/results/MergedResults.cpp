#include "host/results/MergedResults.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "host/results/ResultNames.h"
#include "host/results/StableNames.h"
#include "host/results/WideText.h"

namespace OmbreliaHost {

namespace {

// What of a result does not change from run to run: no times and no counters.
struct Verdict {
  Outcome outcome;
  std::vector<std::pair<std::string, Outcome>> tests;

  bool operator==(const Verdict& other) const {
    return outcome == other.outcome && tests == other.tests;
  }
};

Verdict VerdictOf(const DatafileResult& datafile) {
  Verdict verdict{datafile.outcome, {}};
  for (const TestOutcome& test : datafile.tests) {
    verdict.tests.emplace_back(StableName(datafile.experiment, test.name), test.outcome);
  }
  return verdict;
}

std::string DatafileCalled(const DatafileResult& datafile) { return Utf8OfPath(datafile.path); }

struct Kept {
  DatafileResult result;
  std::string part;  // the name of the part that it is from
};

void AddDatafile(std::vector<Kept>& all,
                 std::map<std::pair<std::string, std::string>, std::size_t>& found,
                 const DatafileResult& datafile, const std::string& part,
                 std::vector<std::string>& faults) {
  const auto [place, isNew] =
      found.emplace(std::pair(datafile.path.string(), datafile.digest), all.size());
  if (isNew) {
    all.push_back({datafile, part});
    return;
  }
  Kept& former = all[place->second];
  if (VerdictOf(former.result) == VerdictOf(datafile)) return;
  faults.push_back(DatafileCalled(datafile) +
                   " has two verdicts: " + NameOf(former.result.outcome) + " in " + former.part +
                   ", " + NameOf(datafile.outcome) + " in " + part +
                   (former.result.outcome == datafile.outcome ? ", of different tests" : ""));
  if (former.result.outcome == Outcome::Passed) former = {datafile, part};
}

// The plug-in records the same before any data file in each process.
void AddBeforeFirst(std::vector<TestOutcome>& all, const std::vector<TestOutcome>& tests) {
  for (const TestOutcome& test : tests) {
    const bool known = std::any_of(all.begin(), all.end(), [&](const TestOutcome& other) {
      return other.name == test.name && other.outcome == test.outcome &&
             other.subject == test.subject && other.message == test.message;
    });
    if (!known) all.push_back(test);
  }
}

// "2 and 4 to 7": the numbers from 1 to count that are not there.
std::string MissingNumbers(const std::set<std::size_t>& there, std::size_t count) {
  std::string text;
  const auto add = [&](std::size_t first, std::size_t end) {
    if (first >= end) return;
    text += (text.empty() ? "" : ", ") + std::to_string(first);
    if (end - first > 1) text += " to " + std::to_string(end - 1);
  };
  std::size_t next = 1;
  for (const std::size_t number : there) {
    add(next, number);
    next = number + 1;
  }
  if (next <= count) add(next, count + 1);
  return text;
}

void RequireAllShards(const std::vector<NamedResults>& parts, std::vector<std::string>& faults) {
  std::map<std::size_t, std::set<std::size_t>> indexes;  // by number of shards
  std::map<std::size_t, std::string> examples;
  for (const NamedResults& part : parts) {
    if (!part.results.shard) continue;
    indexes[part.results.shard->count].insert(part.results.shard->index);
    examples.emplace(part.results.shard->count, part.name);
  }
  if (indexes.size() > 1) {
    std::string fault = "the shards are not of one run:";
    for (const auto& [count, example] : examples) {
      fault += (count == examples.begin()->first ? " " : ", ") + example + " is one of " +
               std::to_string(count);
    }
    faults.push_back(fault);
  }
  for (const auto& [count, there] : indexes) {
    const std::string missing = MissingNumbers(there, count);
    if (!missing.empty()) {
      faults.push_back("missing of " + std::to_string(count) + " shards: " + missing);
    }
  }
}

}  // namespace

RunResults MergeResults(const std::vector<NamedResults>& parts) {
  RunResults merged;
  merged.machine = parts.front().results.machine;
  merged.started = parts.front().results.started;
  merged.host = parts.front().results.host;
  merged.verifiers = parts.front().results.verifiers;
  std::vector<Kept> datafiles;
  std::map<std::pair<std::string, std::string>, std::size_t> found;
  for (const NamedResults& part : parts) {
    const RunResults& results = part.results;
    merged.faults.insert(merged.faults.end(), results.faults.begin(), results.faults.end());
    merged.started = std::min(merged.started, results.started);
    merged.seconds += results.seconds;
    if (results.host != merged.host) merged.host.clear();
    if (results.verifiers != merged.verifiers) merged.verifiers.clear();
    AddBeforeFirst(merged.beforeFirst, results.beforeFirst);
    merged.reports.insert(merged.reports.end(), results.reports.begin(), results.reports.end());
    for (const DatafileResult& datafile : results.datafiles) {
      AddDatafile(datafiles, found, datafile, part.name, merged.faults);
    }
    if (results.machine != merged.machine) {
      merged.faults.push_back("machines of different kinds judged: " + parts.front().name +
                              " is of one that is " + NameOf(merged.machine) + ", " + part.name +
                              " of one that is " + NameOf(results.machine));
    }
  }
  RequireAllShards(parts, merged.faults);

  const bool placesAreKnown = std::all_of(datafiles.begin(), datafiles.end(), [](const Kept& kept) {
    return kept.result.position > 0;
  });
  if (placesAreKnown) {
    std::stable_sort(datafiles.begin(), datafiles.end(), [](const Kept& one, const Kept& other) {
      return one.result.position < other.result.position;
    });
  }
  for (Kept& kept : datafiles) merged.datafiles.push_back(std::move(kept.result));
  return merged;
}

}  // namespace OmbreliaHost
