// All that is known of one failing test, as lines of text; the terminal and the JUnit report share them.
#ifndef OMBRELIA_HOST_PRINT_TESTDESCRIPTION_H
#define OMBRELIA_HOST_PRINT_TESTDESCRIPTION_H

#include <string>
#include <vector>

#include "host/results/RunResults.h"

namespace OmbreliaHost {

struct DescriptionLine {
  std::string text;
  bool decides = false;  // the row of the data file that the test failed at
};

// The evidence: a table of the cells, the numbers that were compared, or the words of the reader. Nothing if
// nothing is known. machine: whose bounds applied.
std::vector<DescriptionLine> DescribeEvidence(const TestOutcome& test, MachineKind machine);

// How the process of a data file ended, on one line; the data file must have a loss.
std::string DescribeLoss(const DatafileResult& datafile);

// A number and its bounds on a scale, as in "700 [=======] 900 ----* 1000".
std::string BoundScale(const BoundCheck& bound);

}  // namespace OmbreliaHost

#endif
