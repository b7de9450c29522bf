// What single files are.
#ifndef OMBRELIA_TABULON_CLI_INFO_H
#define OMBRELIA_TABULON_CLI_INFO_H

#include <filesystem>
#include <iosfwd>
#include <vector>

#include "Tabulon/cli/ExitStatus.h"

namespace TabulonCli {

// Describes each file, or gives its reader's own words if it is no data file; then the answer is
// NoDataFile, else Fine.
ExitStatus PrintInfo(std::ostream& out, const std::vector<std::filesystem::path>& files);

}  // namespace TabulonCli

#endif
