// What a history tells of each experiment: the model that the text, the page and the JSON of a history print.
#ifndef OMBRELIA_HOST_RESULTS_HISTORYSUMMARY_H
#define OMBRELIA_HOST_RESULTS_HISTORYSUMMARY_H

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

#include "host/results/Chance.h"
#include "host/results/HistoryFile.h"
#include "host/results/Trend.h"

namespace OmbreliaHost {

struct ExperimentHistory {
  // All data files of the experiment that one run verified.
  struct Run {
    std::string time;
    std::string host;
    Outcome outcome = Outcome::Passed;  // the worst
    std::vector<std::string> failed;    // tests, each once
  };
  // Failed runs in a row; tolerated failures do not count.
  struct Break {
    std::string from;                   // the time of the first one
    std::vector<std::string> tests;     // what failed in it
    Outcome outcome = Outcome::Failed;  // of it
    std::optional<std::string>
        mended;  // the time of the first good run behind it; absent to this day
  };
  enum class State { NewlyBroken, StillBroken, Mended, Good };

  struct Number {
    std::string time;
    long value = 0;
    bool good = true;  // did the run of the data file pass?
  };
  struct Series {
    std::vector<Number> numbers;  // milliseconds, each data file once
    Trend trend;
    std::optional<BoundCheck> bound;  // of this very number
  };
  struct Bound {
    std::string test;
    BoundCheck check;  // as it was last
    BoundOutlook outlook;
  };
  struct Chances {
    ChanceFailure chance;
    double probability = 0;  // computed from the last data file's rows if it depends on them
    ChanceCount count;
  };

  std::string experiment;
  State state = State::Good;
  std::vector<Run> runs;      // in the order of their times
  std::vector<Break> breaks;  // the last one is that of a broken experiment
  // Only runs on the last run's kind of machine, because bounds differ by kind.
  MachineKind machine = MachineKind::Ordinary;
  Series duration;
  Series expansion;
  std::vector<Bound> bounds;  // the closest to breaking first
  std::vector<Chances> chances;
};

struct HistorySummary {
  std::size_t lines = 0;
  std::vector<std::string> skipped;  // words on lines that are none
  std::vector<ExperimentHistory>
      experiments;  // newly broken, still broken, mended, good; by name within
};

// The same bytes verified again with the same outcome by the same verifiers are passed over. only: globs on the
// experiments' names; empty: all.
HistorySummary SummaryOf(const HistoryContent& content, const std::vector<std::string>& only);

std::string NameOf(ExperimentHistory::State state);  // as in "newly broken"
std::size_t CountExperiments(const HistorySummary& summary, ExperimentHistory::State state);

// docs/history.md describes the format.
nlohmann::json ToJson(const HistorySummary& summary);

}  // namespace OmbreliaHost

#endif
