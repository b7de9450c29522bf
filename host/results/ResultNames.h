// The words that outcomes and kinds of machine go by, on the command line as in every printed form.
#ifndef OMBRELIA_HOST_RESULTS_RESULTNAMES_H
#define OMBRELIA_HOST_RESULTS_RESULTNAMES_H

#include <string>

#include "host/results/RunResults.h"

namespace OmbreliaHost {

std::string NameOf(Outcome outcome);      // as in "timed out"
std::string NameOf(MachineKind machine);  // as in "ordinary"

// The other way; std::invalid_argument, with the word in its text, if there is no such name.
Outcome OutcomeOf(const std::string& name);
MachineKind MachineKindOf(const std::string& name);

}  // namespace OmbreliaHost

#endif
