// Joins results that runs have written with --json.
#ifndef OMBRELIA_HOST_COMMANDS_MERGECOMMAND_H
#define OMBRELIA_HOST_COMMANDS_MERGECOMMAND_H

#include "host/run/CommandLine.h"

namespace OmbreliaHost {

// Prints the joined results as those of one run and writes the files that were asked for. Ends the run
// (WrongUse) if a file is no results of format 1; MalformedReport if results do not fit together.
ExitStatus RunMergeCommand(const MergeArguments& arguments);

}  // namespace OmbreliaHost

#endif
