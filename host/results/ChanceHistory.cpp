#include "host/results/ChanceHistory.h"

#include <algorithm>
#include <unordered_map>

namespace OmbreliaHost {

ChanceHistory ChanceHistoryOf(const std::vector<HistoryLine>& lines, const std::string& experiment,
                              const ChanceFailure& chance) {
  ChanceHistory history;
  std::unordered_map<std::string, std::size_t> known;  // digests
  double first = 0;
  double last = 0;
  for (const HistoryLine& line : lines) {
    if (line.experiment != experiment) continue;
    const auto trial =
        std::find_if(line.trials.begin(), line.trials.end(),
                     [&](const HistoryLine::Trial& one) { return one.test == chance.test; });
    if (trial == line.trials.end()) continue;
    const std::optional<double> probability = ProbabilityOf(chance, line.rows);
    if (!probability) continue;
    const ChanceTrial now = {*probability, trial->failed};
    if (!line.digest.empty()) {
      const auto [place, isNew] = known.emplace(line.digest, history.trials.size());
      if (!isNew) {
        history.trials[place->second] = now;
        continue;
      }
    }
    if (history.trials.empty()) first = line.seconds;
    last = line.seconds;
    history.trials.push_back(now);
  }
  history.spanSeconds = last - first;
  return history;
}

}  // namespace OmbreliaHost
