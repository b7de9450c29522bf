// What the verifier of one experiment checks.
#ifndef OMBRELIA_HOST_COMMANDS_EXPLAINCOMMAND_H
#define OMBRELIA_HOST_COMMANDS_EXPLAINCOMMAND_H

#include "host/run/CommandLine.h"

namespace OmbreliaHost {

// Verifies a good data file of the experiment and shows what was checked: the sample that was built with this
// program, or the data file that the user names. Case does not matter in the experiment's name. Ends the run
// (WrongUse) if there is no such experiment or no such data file.
ExitStatus RunExplainCommand(const ExplainArguments& arguments);

}  // namespace OmbreliaHost

#endif
