// Joins the reports that processes of the plug-in have left.
#ifndef OMBRELIA_HOST_COMMANDS_COLLECTCOMMAND_H
#define OMBRELIA_HOST_COMMANDS_COLLECTCOMMAND_H

#include "host/run/CommandLine.h"

namespace OmbreliaHost {

// Prints the results of all reports in a folder and below it as those of one run, names each process that left none,
// and writes the files that were asked for. MalformedReport if a process left no report, or a malformed one. Ends the
// run (WrongUse) if the folder cannot be read or no process left anything there.
ExitStatus RunCollectCommand(const CollectArguments& arguments);

}  // namespace OmbreliaHost

#endif
