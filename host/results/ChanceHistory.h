// What a history says of a test that chance can fail.
#ifndef OMBRELIA_HOST_RESULTS_CHANCEHISTORY_H
#define OMBRELIA_HOST_RESULTS_CHANCEHISTORY_H

#include <string>
#include <vector>

#include "host/results/Chance.h"
#include "host/results/HistoryLine.h"

namespace OmbreliaHost {

struct ChanceHistory {
  std::vector<ChanceTrial> trials;  // each data file once, by its latest verdict
  double spanSeconds = 0;           // from the first of them to the last
};

// The lines are in the order of their times; those of other experiments are passed over. A line that knows no
// digest is a data file of its own. Trials of an unknown probability are left out.
ChanceHistory ChanceHistoryOf(const std::vector<HistoryLine>& lines, const std::string& experiment,
                              const ChanceFailure& chance);

}  // namespace OmbreliaHost

#endif
