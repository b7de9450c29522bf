// A run of data files.
#ifndef OMBRELIA_HOST_COMMANDS_RUNCOMMAND_H
#define OMBRELIA_HOST_COMMANDS_RUNCOMMAND_H

#include "host/run/CommandLine.h"

namespace OmbreliaHost {

ExitStatus RunRunCommand(const RunArguments& arguments);

}  // namespace OmbreliaHost

#endif
