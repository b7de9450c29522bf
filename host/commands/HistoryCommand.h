// What a history tells.
#ifndef OMBRELIA_HOST_COMMANDS_HISTORYCOMMAND_H
#define OMBRELIA_HOST_COMMANDS_HISTORYCOMMAND_H

#include "host/run/CommandLine.h"

namespace OmbreliaHost {

// Shows it and writes the files that were asked for. Malformed lines are skipped and named on standard error.
// Returns NoFailingTest, whatever the history tells. Ends the run (WrongUse) if the file cannot be read or no experiment
// matches.
ExitStatus RunHistoryCommand(const HistoryArguments& arguments);

}  // namespace OmbreliaHost

#endif
