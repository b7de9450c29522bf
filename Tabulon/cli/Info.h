// Describing single files.
#ifndef OMBRELIA_TABULON_CLI_INFO_H
#define OMBRELIA_TABULON_CLI_INFO_H

#include "Tabulon/cli/CommandLine.h"
#include "Tabulon/cli/Inputs.h"

namespace TabulonCli {

// Describes each file, or gives its reader's own words if it is no data file; then the answer is NoDataFile, else
// Fine. In JSON one object per file with its columns, in other formats one row per file.
ExitStatus Info(const CommandLine& commandLine, const Inputs& inputs);

}  // namespace TabulonCli

#endif
