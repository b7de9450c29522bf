// Holds the tolerated failures of a run against chance.
#ifndef OMBRELIA_HOST_RESULTS_TOLERANCE_H
#define OMBRELIA_HOST_RESULTS_TOLERANCE_H

#include <vector>

#include "host/results/HistoryLine.h"
#include "host/results/RunResults.h"

namespace OmbreliaHost {

// Fills the words of each tolerated failure and the tolerance of the run. lines: what each failure is counted
// among, a history that holds this run, or the run's own lines. In one run one such failure is borne, two warn, and
// three are not explained by chance; nor is one alone that chance brings less than once in a million runs, or one
// of a test whose failures among the lines need a look. If a run has several data files of one experiment, two
// or more failures are still borne when chance brings that many in more than 1 run in 100.
void JudgeTolerance(RunResults& results, const std::vector<HistoryLine>& lines);

// Does anything of these results have to be judged?
bool HasToleratedFailure(const RunResults& results);

}  // namespace OmbreliaHost

#endif
