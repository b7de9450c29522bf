#include "host/print/HistoryPrinter.h"

#include <algorithm>
#include <array>

#include "host/print/HistoryWords.h"
#include "host/print/VisibleText.h"

namespace OmbreliaHost {

namespace {

constexpr std::size_t WIDTH = 60;  // of a line of marks, one for each of the last runs

template <typename VALUE>
std::vector<VALUE> LastOf(const std::vector<VALUE>& values) {
  return {values.end() - static_cast<std::ptrdiff_t>(std::min(values.size(), WIDTH)), values.end()};
}

std::string OutcomesOf(const std::vector<ExperimentHistory::Run>& runs) {
  std::string marks;
  for (const ExperimentHistory::Run& run : LastOf(runs)) {
    marks += run.outcome == Outcome::Passed ? '.' : run.outcome == Outcome::Tolerated ? 't' : 'X';
  }
  return marks;
}

// One block for each number, the higher the greater it is among them.
std::string Sparkline(const std::vector<ExperimentHistory::Number>& all) {
  static const std::array<const char*, 8> blocks = {"\xE2\x96\x81", "\xE2\x96\x82", "\xE2\x96\x83",
                                                    "\xE2\x96\x84", "\xE2\x96\x85", "\xE2\x96\x86",
                                                    "\xE2\x96\x87", "\xE2\x96\x88"};
  const std::vector<ExperimentHistory::Number> numbers = LastOf(all);
  double least = static_cast<double>(numbers.front().value);
  double most = least;
  for (const ExperimentHistory::Number& number : numbers) {
    least = std::min(least, static_cast<double>(number.value));
    most = std::max(most, static_cast<double>(number.value));
  }
  std::string line;
  for (const ExperimentHistory::Number& number : numbers) {
    const double share =
        most > least ? (static_cast<double>(number.value) - least) / (most - least) : 0;
    line += blocks[std::min<std::size_t>(static_cast<std::size_t>(share * 8), 7)];
  }
  return line;
}

}  // namespace

void HistoryPrinter::Print(const HistorySummary& summary) {
  for (const ExperimentHistory& history : summary.experiments) Print(history);
  m_out << WordsOnTotals(summary) << "\n";
  m_out.flush();
}

void HistoryPrinter::Print(const ExperimentHistory& history) {
  using State = ExperimentHistory::State;
  const bool broken = history.state == State::NewlyBroken || history.state == State::StillBroken;
  m_out << (broken ? "FAIL  " : "ok    ") << LineShown(history.experiment) << ": "
        << LineShown(WordsOnState(history)) << "\n"
        << "    runs       " << OutcomesOf(history.runs) << "  " << history.runs.size() << "\n";
  PrintSeries("duration ", history.duration);
  PrintSeries("expansion", history.expansion);
  // Without a spread yet, none is closer than another.
  if (!history.bounds.empty() &&
      (history.bounds.front().outlook.isBroken || history.bounds.front().outlook.spreads))
    m_out << "    closest    " << LineShown(WordsOnBound(history.bounds.front())) << "\n";
  for (const ExperimentHistory::Chances& chances : history.chances)
    m_out << "    chance     " << LineShown(WordsOnChances(chances)) << "\n";
}

void HistoryPrinter::PrintSeries(const char* name, const ExperimentHistory::Series& series) {
  if (series.numbers.empty()) return;
  m_out << "    " << name << "  " << Sparkline(series.numbers) << "  " << WordsOnSeries(series)
        << "\n";
}

}  // namespace OmbreliaHost
