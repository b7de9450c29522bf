// The plug-in's results of a data file beside those of a second verification.
#ifndef OMBRELIA_HOST_RESULTS_AGREEMENT_H
#define OMBRELIA_HOST_RESULTS_AGREEMENT_H

#include <string>
#include <vector>

#include "host/results/RunResults.h"

namespace OmbreliaHost {

// Gives the plug-in's tests the evidence and the bounds of the second verification's, and the data file the number
// of its rows, and adds a remark where the two do not agree. Failed assertions of the host are the plug-in's alone.
void TakeEvidence(DatafileResult& datafile, const DatafileResult& second);

// Gives tests that are the same in both verifications their bounds, and the data file the number of its rows; says
// nothing of the others.
void TakeBounds(DatafileResult& datafile, const DatafileResult& second);

// One sentence for each test whose outcome another kind of machine would change.
std::vector<std::string> DifferencesOn(MachineKind machine, const DatafileResult& datafile,
                                       const DatafileResult& there);

}  // namespace OmbreliaHost

#endif
