#include "host/results/HistorySummary.h"

#include <fnmatch.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <tuple>

#include "host/results/ChanceHistory.h"
#include "host/results/Manifest.h"
#include "host/results/NamedValues.h"
#include "host/results/ResultNames.h"

namespace OmbreliaHost {

namespace {

using nlohmann::json;
using State = ExperimentHistory::State;

const std::vector<NamedValue<State>>& States() {
  static const std::vector<NamedValue<State>> states = {{State::NewlyBroken, "newly broken"},
                                                        {State::StillBroken, "still broken"},
                                                        {State::Mended, "mended"},
                                                        {State::Good, "good"}};
  return states;
}

bool IsTaken(const std::string& experiment, const std::vector<std::string>& only) {
  return only.empty() || std::any_of(only.begin(), only.end(), [&](const std::string& glob) {
           return fnmatch(glob.c_str(), experiment.c_str(), 0) == 0;
         });
}

bool IsBroken(Outcome outcome) {
  return outcome != Outcome::Passed && outcome != Outcome::Tolerated;
}

// A data file that was lost is worse than one that failed, and that is worse than a tolerated failure.
int Badness(Outcome outcome) {
  if (outcome == Outcome::Passed) return 0;
  if (outcome == Outcome::Tolerated) return 1;
  return outcome == Outcome::Failed ? 2 : 3;
}

void AddRun(std::vector<ExperimentHistory::Run>& runs, const HistoryLine& line) {
  const bool sameRun =
      !runs.empty() && runs.back().time == line.time && runs.back().host == line.host;
  if (!sameRun) runs.push_back({line.time, line.host, line.outcome, {}});
  ExperimentHistory::Run& run = runs.back();
  if (Badness(line.outcome) > Badness(run.outcome)) run.outcome = line.outcome;
  for (const std::string& test : line.failed) {
    if (std::find(run.failed.begin(), run.failed.end(), test) == run.failed.end())
      run.failed.push_back(test);
  }
}

std::vector<ExperimentHistory::Break> BreaksOf(const std::vector<ExperimentHistory::Run>& runs) {
  std::vector<ExperimentHistory::Break> breaks;
  bool broken = false;
  for (const ExperimentHistory::Run& run : runs) {
    const bool isBroken = IsBroken(run.outcome);
    if (isBroken && !broken) breaks.push_back({run.time, run.failed, run.outcome, std::nullopt});
    if (!isBroken && broken) breaks.back().mended = run.time;
    broken = isBroken;
  }
  return breaks;
}

State StateOf(const std::vector<ExperimentHistory::Run>& runs) {
  const bool last = IsBroken(runs.back().outcome);
  const bool before = runs.size() > 1 && IsBroken(runs[runs.size() - 2].outcome);
  if (last) return before ? State::StillBroken : State::NewlyBroken;
  return before ? State::Mended : State::Good;
}

Trend TrendOf(const std::vector<ExperimentHistory::Number>& numbers) {
  std::vector<long> values;
  for (const ExperimentHistory::Number& number : numbers) values.push_back(number.value);
  return OmbreliaHost::TrendOf(values);
}

// A bound that is broken comes first, then the one that the fewest spreads lie before.
double Distance(const ExperimentHistory::Bound& bound) {
  if (bound.outlook.isBroken) return -std::numeric_limits<double>::infinity();
  return bound.outlook.spreads.value_or(std::numeric_limits<double>::infinity());
}

std::vector<ExperimentHistory::Bound> BoundsOf(const std::vector<const HistoryLine*>& lines) {
  std::vector<ExperimentHistory::Bound> bounds;
  // The last data file says which bounds there are; a lost one knows of none.
  const auto last = std::find_if(lines.rbegin(), lines.rend(),
                                 [](const HistoryLine* line) { return !line->bounds.empty(); });
  if (last == lines.rend()) return bounds;
  std::set<std::string> taken;
  for (const HistoryLine::Bound& bound : (*last)->bounds) {
    if (!taken.insert(bound.test).second) continue;
    std::vector<long> numbers;
    for (const HistoryLine* const line : lines) {
      const auto same =
          std::find_if(line->bounds.begin(), line->bounds.end(),
                       [&](const HistoryLine::Bound& one) { return one.test == bound.test; });
      if (same != line->bounds.end()) numbers.push_back(same->check.actual);
    }
    bounds.push_back(
        {bound.test, bound.check, OutlookOf(bound.check, OmbreliaHost::TrendOf(numbers))});
  }
  std::stable_sort(bounds.begin(), bounds.end(),
                   [](const ExperimentHistory::Bound& one, const ExperimentHistory::Bound& other) {
                     return Distance(one) < Distance(other);
                   });
  return bounds;
}

std::optional<BoundCheck> BoundOf(const std::vector<ExperimentHistory::Bound>& bounds,
                                  const std::string& test) {
  for (const ExperimentHistory::Bound& bound : bounds) {
    if (bound.test == test) return bound.check;
  }
  return std::nullopt;
}

std::vector<ExperimentHistory::Chances> ChancesOf(const std::string& experiment,
                                                  const std::vector<HistoryLine>& lines) {
  std::vector<ExperimentHistory::Chances> all;
  const VerifierEntry* const verifier = FindVerifier(experiment);
  if (verifier == nullptr) return all;
  for (const ChanceFailure& chance : verifier->chanceFailures) {
    const ChanceHistory history = ChanceHistoryOf(lines, experiment, chance);
    if (history.trials.empty()) continue;
    all.push_back({chance, history.trials.back().probability,
                   CountAgainstChance(history.trials, history.spanSeconds)});
  }
  return all;
}

// lines: of the one experiment, at least one.
ExperimentHistory HistoryOf(const std::string& experiment, const std::vector<HistoryLine>& lines) {
  ExperimentHistory history;
  history.experiment = experiment;
  history.machine = lines.back().machine;
  std::set<std::tuple<std::string, std::string, Outcome>> seen;
  std::set<std::string> measured;
  std::vector<const HistoryLine*> ofThisMachine;
  for (const HistoryLine& line : lines) {
    if (line.digest.empty() || seen.emplace(line.digest, line.verifiers, line.outcome).second)
      AddRun(history.runs, line);
    const bool isNew = line.digest.empty() || measured.insert(line.digest).second;
    if (!isNew || line.machine != history.machine) continue;
    ofThisMachine.push_back(&line);
    const bool good = !IsBroken(line.outcome);
    if (line.durationMs) history.duration.numbers.push_back({line.time, *line.durationMs, good});
    if (line.expansionMs) history.expansion.numbers.push_back({line.time, *line.expansionMs, good});
  }
  history.breaks = BreaksOf(history.runs);
  history.state = StateOf(history.runs);
  history.bounds = BoundsOf(ofThisMachine);
  history.duration.trend = TrendOf(history.duration.numbers);
  history.duration.bound = BoundOf(history.bounds, "Experiment_duration_" + experiment);
  history.expansion.trend = TrendOf(history.expansion.numbers);
  history.expansion.bound = BoundOf(history.bounds, "Expansion_duration_" + experiment);
  history.chances = ChancesOf(experiment, lines);
  return history;
}

json ToJson(const ExperimentHistory::Series& series) {
  json numbers = json::array();
  for (const ExperimentHistory::Number& number : series.numbers)
    numbers.push_back({{"time", number.time}, {"ms", number.value}});
  json object = {{"numbers", numbers},
                 {"level", series.trend.level},
                 {"per_run", series.trend.perRun},
                 {"trend_is_sure", series.trend.isSure}};
  if (series.trend.spread) object["spread"] = *series.trend.spread;
  return object;
}

json ToJson(const ExperimentHistory::Bound& bound) {
  json object = {{"test", bound.test},
                 {"min", bound.check.min},
                 {"max", bound.check.max},
                 {"actual", bound.check.actual},
                 {"broken", bound.outlook.isBroken}};
  if (bound.outlook.spreads) object["spreads"] = *bound.outlook.spreads;
  if (bound.outlook.runsLeft) object["runs_left"] = *bound.outlook.runsLeft;
  return object;
}

json ToJson(const ExperimentHistory::Chances& chances) {
  static const std::vector<NamedValue<ChanceVerdict>> verdicts = {
      {ChanceVerdict::Allows, "chance allows it"},
      {ChanceVerdict::CannotTell, "cannot tell yet"},
      {ChanceVerdict::LookAtIt, "look at it"}};
  return {{"test", chances.chance.test},
          {"derivation", chances.chance.derivation},
          {"probability", chances.probability},
          {"failures", chances.count.failures},
          {"trials", chances.count.trials},
          {"tail", chances.count.tail},
          {"log10_likelihood_ratio", chances.count.logLikelihoodRatio / std::log(10.0)},
          {"verdict", NameIn(verdicts, chances.count.verdict)},
          {"words", chances.count.words}};
}

json ToJson(const ExperimentHistory& history) {
  json object = {{"experiment", history.experiment},
                 {"state", NameOf(history.state)},
                 {"machine", NameOf(history.machine)},
                 {"runs", json::array()},
                 {"breaks", json::array()},
                 {"duration", ToJson(history.duration)},
                 {"expansion", ToJson(history.expansion)},
                 {"bounds", json::array()},
                 {"chances", json::array()}};
  for (const ExperimentHistory::Run& run : history.runs) {
    object["runs"].push_back({{"time", run.time},
                              {"host", run.host},
                              {"outcome", NameOf(run.outcome)},
                              {"failed", run.failed}});
  }
  for (const ExperimentHistory::Break& one : history.breaks) {
    json entry = {{"from", one.from}, {"outcome", NameOf(one.outcome)}, {"tests", one.tests}};
    if (one.mended) entry["mended"] = *one.mended;
    object["breaks"].push_back(entry);
  }
  for (const ExperimentHistory::Bound& bound : history.bounds)
    object["bounds"].push_back(ToJson(bound));
  for (const ExperimentHistory::Chances& chances : history.chances)
    object["chances"].push_back(ToJson(chances));
  return object;
}

}  // namespace

HistorySummary SummaryOf(const HistoryContent& content, const std::vector<std::string>& only) {
  HistorySummary summary;
  summary.lines = content.lines.size();
  summary.skipped = content.skipped;
  std::map<std::string, std::vector<HistoryLine>> byExperiment;
  for (const HistoryLine& line : content.lines) {
    if (IsTaken(line.experiment, only)) byExperiment[line.experiment].push_back(line);
  }
  for (const auto& [experiment, lines] : byExperiment)
    summary.experiments.push_back(HistoryOf(experiment, lines));
  std::stable_sort(summary.experiments.begin(), summary.experiments.end(),
                   [](const ExperimentHistory& one, const ExperimentHistory& other) {
                     return one.state < other.state;
                   });
  return summary;
}

std::string NameOf(ExperimentHistory::State state) { return NameIn(States(), state); }

std::size_t CountExperiments(const HistorySummary& summary, ExperimentHistory::State state) {
  return static_cast<std::size_t>(
      std::count_if(summary.experiments.begin(), summary.experiments.end(),
                    [&](const ExperimentHistory& one) { return one.state == state; }));
}

json ToJson(const HistorySummary& summary) {
  json experiments = json::array();
  for (const ExperimentHistory& one : summary.experiments) experiments.push_back(ToJson(one));
  return {{"format", 1},
          {"lines", summary.lines},
          {"skipped", summary.skipped},
          {"experiments", experiments}};
}

}  // namespace OmbreliaHost
