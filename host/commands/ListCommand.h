// The experiments that have a verifier.
#ifndef OMBRELIA_HOST_COMMANDS_LISTCOMMAND_H
#define OMBRELIA_HOST_COMMANDS_LISTCOMMAND_H

#include "host/run/CommandLine.h"

namespace OmbreliaHost {

// Shows each experiment with what it proves and the tests whose failure is tolerated, in the order of the
// table of verifiers. Ends the run (WrongUse) if no experiment matches.
ExitStatus RunListCommand(const ListArguments& arguments);

}  // namespace OmbreliaHost

#endif
