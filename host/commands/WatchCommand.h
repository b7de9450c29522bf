// Data files that are verified as they arrive.
#ifndef OMBRELIA_HOST_COMMANDS_WATCHCOMMAND_H
#define OMBRELIA_HOST_COMMANDS_WATCHCOMMAND_H

#include "host/run/CommandLine.h"

namespace OmbreliaHost {

// Verifies the data files of a folder, those that are there and those that come, each once it is complete, until a
// signal ends the program. Then writes the files that were asked for; the status is that of a run of all of them.
// Ends the run (WrongUse) if there is no such folder.
ExitStatus RunWatchCommand(const WatchArguments& arguments);

}  // namespace OmbreliaHost

#endif
