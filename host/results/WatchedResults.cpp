#include "host/results/WatchedResults.h"

#include <algorithm>

namespace OmbreliaHost {

Share NoticedShareOf(const WatchedCell& cell) {
  bool some = false;
  bool all = true;
  for (const std::optional<ChangeOutcome>& outcome : {cell.near, cell.other, cell.empty}) {
    if (!outcome) continue;
    some = some || IsNoticed(*outcome);
    all = all && IsNoticed(*outcome);
  }
  if (!some) return Share::None;
  return all ? Share::All : Share::Some;
}

std::size_t WatchedColumn::CountOf(Share share) const {
  const auto count = std::count_if(cells.begin(), cells.end(), [share](const WatchedCell& cell) {
    return NoticedShareOf(cell) == share;
  });
  return static_cast<std::size_t>(count);
}

std::size_t CountNoticed(const std::vector<ChangeOutcome>& outcomes) {
  return static_cast<std::size_t>(std::count_if(outcomes.begin(), outcomes.end(), &IsNoticed));
}

std::size_t CountNoticed(const std::vector<WatchedBound>& bounds) {
  const auto count = std::count_if(bounds.begin(), bounds.end(),
                                   [](const WatchedBound& bound) { return bound.IsNoticed(); });
  return static_cast<std::size_t>(count);
}

}  // namespace OmbreliaHost
