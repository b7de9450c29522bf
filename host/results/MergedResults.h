// The results of several runs, or of the shards of one, joined.
#ifndef OMBRELIA_HOST_RESULTS_MERGEDRESULTS_H
#define OMBRELIA_HOST_RESULTS_MERGEDRESULTS_H

#include <string>
#include <vector>

#include "host/results/RunResults.h"

namespace OmbreliaHost {

// The results of one run, and what to call them in a fault, such as the name of their file.
struct NamedResults {
  std::string name;
  RunResults results;
};

// One result for each data file and digest of its bytes, where several parts have it the first one that did not
// pass. The order is that of the list before shards divided it, as far as the parts know it, otherwise that of
// the parts. The start is the earliest, the seconds are those of all parts together; the merged results are no
// shard. Faults are the parts' own, and further ones where a shard is missing, parts say different numbers of
// shards, one data file has two verdicts, or machines of different kinds judged. At least one part.
RunResults MergeResults(const std::vector<NamedResults>& parts);

}  // namespace OmbreliaHost

#endif
