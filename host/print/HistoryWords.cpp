#include "host/print/HistoryWords.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "host/results/ResultNames.h"

namespace OmbreliaHost {

namespace {

constexpr std::size_t MOST_TESTS = 3;

std::string Number(const char* format, double number) {
  std::array<char, 400> text{};
  std::snprintf(text.data(), text.size(), format, number);
  return text.data();
}

// What failed first, or how the data file was lost.
std::string WordsOnCause(const ExperimentHistory::Break& one) {
  if (one.tests.empty()) return NameOf(one.outcome);
  std::string words;
  const std::size_t shown = std::min(one.tests.size(), MOST_TESTS);
  for (std::size_t i = 0; i < shown; ++i) words += (i == 0 ? "" : ", ") + one.tests[i];
  if (shown < one.tests.size())
    words += " and " + std::to_string(one.tests.size() - shown) + " more";
  return words;
}

}  // namespace

std::string WordsOnState(const ExperimentHistory& history) {
  const std::string state = NameOf(history.state);
  if (history.breaks.empty()) return state;
  const ExperimentHistory::Break& last = history.breaks.back();
  if (!last.mended) return state + " since " + last.from + " by " + WordsOnCause(last);
  return state + " since " + *last.mended + ", broken from " + last.from + " by " +
         WordsOnCause(last);
}

std::string WordsOnSeries(const ExperimentHistory::Series& series) {
  if (series.numbers.empty()) return std::string();
  const auto [least, most] = std::minmax_element(
      series.numbers.begin(), series.numbers.end(),
      [](const ExperimentHistory::Number& one, const ExperimentHistory::Number& other) {
        return one.value < other.value;
      });
  std::string words = std::to_string(least->value) + " to " + std::to_string(most->value) + " ms";
  if (series.trend.spread) words += ", spread " + Number("%.1f", *series.trend.spread) + " ms";
  if (series.trend.isSure) {
    words += ", " + Number("%+.2g", series.trend.perRun) + " ms a run";
  } else if (series.trend.spread) {
    words += ", no sure trend";
  }
  return words;
}

std::string WordsOnBound(const ExperimentHistory::Bound& bound) {
  std::string words = bound.test + ": " + std::to_string(bound.check.actual) + " of " +
                      std::to_string(bound.check.min) + " to " + std::to_string(bound.check.max);
  if (bound.outlook.isBroken) return words + ", broken";
  if (bound.outlook.spreads)
    words += ", " + Number("%.1f", *bound.outlook.spreads) + " spreads away";
  if (bound.outlook.runsLeft)
    words += "; at this trend in " + std::to_string(*bound.outlook.runsLeft) + " runs";
  return words;
}

std::string WordsOnChances(const ExperimentHistory::Chances& chances) {
  return chances.chance.test + ": " + chances.count.words;
}

std::string WordsOnProbability(const ExperimentHistory::Chances& chances) {
  return "p=" + Number("%.3g", chances.probability) + ". " + chances.chance.derivation;
}

std::string WordsOnTotals(const HistorySummary& summary) {
  using State = ExperimentHistory::State;
  std::string words = std::to_string(summary.experiments.size()) + " experiments:";
  const char* separator = " ";
  for (const State state : {State::NewlyBroken, State::StillBroken, State::Mended, State::Good}) {
    words += separator + std::to_string(CountExperiments(summary, state)) + " " + NameOf(state);
    separator = ", ";
  }
  return words;
}

}  // namespace OmbreliaHost
