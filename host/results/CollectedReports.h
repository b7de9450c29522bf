// The reports of many processes as the results of one run.
#ifndef OMBRELIA_HOST_RESULTS_COLLECTEDREPORTS_H
#define OMBRELIA_HOST_RESULTS_COLLECTEDREPORTS_H

#include <vector>

#include "host/results/ProcessTraces.h"
#include "host/results/RunResults.h"

namespace OmbreliaHost {

// One result for each data file that some report tells of, in the order of the processes and of each report. A report
// tells the experiment and the tests, and the name of a data file that has no verifier or cannot be read; of any other
// its path is not known. In place of a path stands the experiment with the process and the number of the data file,
// counted from 1 in each report: "bells.om5 (process 4711, data file 2)". Nothing is known of digests and of times of
// verification. The run started when the first flag file, or else the first report, was written.
//
// A process with a flag file and no report of its own died, or has not ended yet: which data files it had in hand
// nobody knows. It makes the results not whole (a fault), and it is a failing test before the first data file. So is
// a report of which no results, or not all, can be had. A report that is malformed is repaired, and is a fault.
//
// machine: the kind of the machine that wrote the reports, which tell nothing of it.
RunResults CollectReports(const std::vector<ProcessTraces>& processes, MachineKind machine);

}  // namespace OmbreliaHost

#endif
