// What differs between two inputs.
#ifndef OMBRELIA_TABULON_CLI_DIFF_H
#define OMBRELIA_TABULON_CLI_DIFF_H

#include "Tabulon/cli/CommandLine.h"

namespace TabulonCli {

// Prints one row per cell that differs, per row that only one of them has and per column that only one of them has.
// Without a difference and without a format nothing is printed. Answers Fine or Different; ends the run (WrongUse)
// if one of them is no data file, and at an unknown column.
ExitStatus Diff(const CommandLine& commandLine);

}  // namespace TabulonCli

#endif
