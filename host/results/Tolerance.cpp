#include "host/results/Tolerance.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "host/results/ChanceHistory.h"
#include "host/results/Manifest.h"
#include "host/results/StableNames.h"

namespace OmbreliaHost {

namespace {

constexpr double NOT_RARE_IN_A_RUN = 0.01;

std::string ShortNumber(double number) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.3g", number);
  return text.data();
}

// One run's trials. Data files of identical bytes count once, with the latest verdict.
struct RunTrials {
  std::vector<double> probabilities;  // of the tests whose failure is tolerated
  bool repeats = false;               // is there a test with more than one?
};

RunTrials TrialsOf(const RunResults& results) {
  RunTrials trials;
  const std::vector<HistoryLine> lines = HistoryLinesOf(results);
  std::set<std::string> experiments;
  for (const HistoryLine& line : lines) experiments.insert(line.experiment);
  for (const std::string& experiment : experiments) {
    const VerifierEntry* const verifier = FindVerifier(experiment);
    if (verifier == nullptr) continue;
    for (const ChanceFailure& chance : verifier->chanceFailures) {
      if (!IsTolerated(experiment, chance.test)) continue;
      const ChanceHistory history = ChanceHistoryOf(lines, experiment, chance);
      for (const ChanceTrial& trial : history.trials)
        trials.probabilities.push_back(trial.probability);
      trials.repeats = trials.repeats || history.trials.size() > 1;
    }
  }
  return trials;
}

// Judges the failures one by one, then all together.
class Judge {
 public:
  Judge(const std::vector<HistoryLine>& lines) : m_lines(lines) {}

  void Take(const DatafileResult& datafile, TestOutcome& test) {
    const std::string name = StableName(datafile.experiment, test.name);
    const std::string bytes = datafile.digest.empty() ? datafile.path.string() : datafile.digest;
    if (m_failures.emplace(datafile.experiment, name, bytes).second) ++m_count;

    const ChanceFailure* const chance = FindChance(datafile.experiment, name);
    const std::optional<double> probability =
        chance == nullptr ? std::nullopt : ProbabilityOf(*chance, datafile.rows);
    if (!probability) {
      test.chance = "p=? k/n=?: the table of verifiers does not say how often chance fails it";
      return;
    }
    const ChanceCount& count = CountOf(datafile.experiment, *chance);
    test.chance = "p=" + ShortNumber(*probability) + " k/n=" + std::to_string(count.failures) +
                  "/" + std::to_string(count.trials) + ": " + count.words;
    if (*probability < ONE_IN_A_MILLION) {
      Blow(datafile.experiment + ", " + name +
           ": chance brings this failure less than once in a million runs.");
    } else if (count.verdict == ChanceVerdict::LookAtIt) {
      Blow(datafile.experiment + ", " + name + ": " + count.words + ".");
    }
  }

  ToleranceBudget Conclude(const RunTrials& run) {
    const double tail = TailOf(run.probabilities, m_count);
    const std::string failures =
        m_count == 0 ? "No tolerated failure"
                     : std::to_string(m_count) + " tolerated failure" + (m_count == 1 ? "" : "s");
    if (m_count < 2 || (run.repeats && tail >= NOT_RARE_IN_A_RUN)) {
      if (m_budget.words.empty()) m_budget.words.push_back(failures + ".");
      return m_budget;
    }
    std::string words = failures + " in one run";
    if (tail > 0) words += ", which chance brings to " + ShortNumber(tail * 100) + " runs in 100";
    if (m_count == 2) {
      if (m_budget.state == ToleranceBudget::State::Kept)
        m_budget.state = ToleranceBudget::State::Warns;
      m_budget.words.push_back(words + ": look at them.");
    } else {
      Blow(words + ": chance does not explain them.");
    }
    return m_budget;
  }

 private:
  void Blow(const std::string& words) {
    m_budget.state = ToleranceBudget::State::Blown;
    std::vector<std::string>& all = m_budget.words;
    if (std::find(all.begin(), all.end(), words) == all.end()) all.push_back(words);
  }

  const ChanceCount& CountOf(const std::string& experiment, const ChanceFailure& chance) {
    const auto [place, isNew] = m_counts.emplace(std::pair(experiment, chance.test), ChanceCount());
    if (isNew) {
      const ChanceHistory history = ChanceHistoryOf(m_lines, experiment, chance);
      place->second = CountAgainstChance(history.trials, history.spanSeconds);
    }
    return place->second;
  }

  const std::vector<HistoryLine>& m_lines;
  std::map<std::pair<std::string, std::string>, ChanceCount> m_counts;
  std::set<std::tuple<std::string, std::string, std::string>> m_failures;
  std::size_t m_count = 0;
  ToleranceBudget m_budget;
};

}  // namespace

bool HasToleratedFailure(const RunResults& results) {
  return std::any_of(
      results.datafiles.begin(), results.datafiles.end(), [](const DatafileResult& datafile) {
        return std::any_of(
            datafile.tests.begin(), datafile.tests.end(),
            [](const TestOutcome& test) { return test.outcome == Outcome::Tolerated; });
      });
}

void JudgeTolerance(RunResults& results, const std::vector<HistoryLine>& lines) {
  Judge judge(lines);
  for (DatafileResult& datafile : results.datafiles) {
    for (TestOutcome& test : datafile.tests) {
      if (test.outcome == Outcome::Tolerated) judge.Take(datafile, test);
    }
  }
  results.tolerance = judge.Conclude(TrialsOf(results));
}

}  // namespace OmbreliaHost
