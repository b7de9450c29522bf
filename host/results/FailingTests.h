// Which tests fail for a data file, and no more than that.
#ifndef OMBRELIA_HOST_RESULTS_FAILINGTESTS_H
#define OMBRELIA_HOST_RESULTS_FAILINGTESTS_H

#include <filesystem>
#include <string>
#include <vector>

#include "framework/StimAreaData.h"
#include "host/results/RunResults.h"

namespace OmbreliaHost {

// The names, in order, of the tests that fail with the bounds of this kind of machine. Verifies in this process
// with the program's own rooms, quickly, since no evidence is gathered. The content may crash the process or
// keep it busy for ever.
std::vector<std::string> FailingTestsOf(const std::filesystem::path& absoluteDatafile,
                                        const std::vector<Ombrelia::StimAreaData>& areas,
                                        MachineKind machine);

}  // namespace OmbreliaHost

#endif
