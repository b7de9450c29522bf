// What the plug-in's report says, as results of data files.
#ifndef OMBRELIA_HOST_RESULTS_REPORTCONTENT_H
#define OMBRELIA_HOST_RESULTS_REPORTCONTENT_H

#include <vector>

#include "host/results/ReportReader.h"
#include "host/results/RunResults.h"

namespace OmbreliaHost {

struct ReportContent {
  std::vector<TestOutcome> beforeFirst;               // before any data file
  std::vector<std::vector<TestOutcome>> ofDatafiles;  // in the order of the report
};

// The entries as ReadReport gives them.
ReportContent ContentOf(const std::vector<TestResult>& results);

// Fills in what follows from the data file's path and its tests: the experiment, which failures are
// tolerated, the outcome and the times that the host needed.
void ConcludeFromTests(DatafileResult& datafile);

}  // namespace OmbreliaHost

#endif
