// What the verifiers notice of changed data files.
#ifndef OMBRELIA_HOST_COMMANDS_WATCHEDCOMMAND_H
#define OMBRELIA_HOST_COMMANDS_WATCHEDCOMMAND_H

#include "host/run/CommandLine.h"

namespace OmbreliaHost {

// Changes good data files, shows what is noticed of it, and writes the files that were asked for. Ends the run
// (WrongUse) if a name is that of no data file and of no experiment, if a data file is no good one, or if a file
// cannot be written.
ExitStatus RunWatchedCommand(const WatchedArguments& arguments);

}  // namespace OmbreliaHost

#endif
