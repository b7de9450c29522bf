// What the plug-in's report says, as results of data files.
#ifndef OMBRELIA_HOST_RESULTS_REPORTCONTENT_H
#define OMBRELIA_HOST_RESULTS_REPORTCONTENT_H

#include <filesystem>
#include <string>
#include <vector>

#include "host/results/ReportReader.h"
#include "host/results/RunResults.h"

namespace OmbreliaHost {

struct ReportContent {
  std::vector<TestOutcome> beforeFirst;               // before any data file
  std::vector<std::vector<TestOutcome>> ofDatafiles;  // in the order of the report
};

// The entries as ReadReport gives them.
ReportContent ContentOf(std::vector<TestResult> results);

// The registered name that the plug-in finds a data file's verifier under; if there is none, the name that
// it looked for.
std::string ExperimentLookedUp(const std::filesystem::path& datafile);

// Fills in what follows from the data file's experiment, which is filled in already, and its tests: which
// failures are tolerated, the outcome and the times that the host needed.
void ConcludeFromTests(DatafileResult& datafile);

// A data file of which no more is known than its tests, in the report's order. The experiment is the one whose verifier
// was called, or that was looked for in vain; empty if the tests break off before they tell. In place of the path stands
// the name of the data file without folder and extension where a test has it, otherwise the experiment.
DatafileResult DatafileOfTests(std::vector<TestOutcome> tests);

}  // namespace OmbreliaHost

#endif
