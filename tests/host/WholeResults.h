// Results of a run in which every member of the model is set, for the tests of what is made of results.
#ifndef OMBRELIA_TESTS_HOST_WHOLERESULTS_H
#define OMBRELIA_TESTS_HOST_WHOLERESULTS_H

#include <string>

#include "host/results/RunResults.h"

namespace Tests {

// A data file whose compared column differs from the expected cells in row 4.
OmbreliaHost::DatafileResult DatafileWithOneWrongCell();

// A data file for each outcome, and evidence of each kind.
OmbreliaHost::RunResults WholeResults();

// What data files and names may hold to break a form of output, one thing each.
const std::vector<std::string>& HostileTexts();

}  // namespace Tests

#endif
