// Makes a well-formed copy of a report that a host has left.
#ifndef OMBRELIA_HOST_COMMANDS_REPAIRCOMMAND_H
#define OMBRELIA_HOST_COMMANDS_REPAIRCOMMAND_H

#include "host/run/CommandLine.h"

namespace OmbreliaHost {

// Says which texts broke the report and writes the copy; a report that is well-formed is copied only if an output was
// named. The report itself is never written to. NoFailingTest if the copy holds every result that the report's head
// counts, whatever they are; MalformedReport if it holds fewer or others. Ends the run (WrongUse) if the report cannot
// be read or holds no result of any test; then nothing is written.
ExitStatus RunRepairCommand(const RepairArguments& arguments);

}  // namespace OmbreliaHost

#endif
