// What a user means by the name of an experiment.
#ifndef OMBRELIA_HOST_COMMANDS_EXPERIMENTNAMES_H
#define OMBRELIA_HOST_COMMANDS_EXPERIMENTNAMES_H

#include <filesystem>
#include <string>

#include "host/results/Manifest.h"

namespace OmbreliaHost {

// The verifier of this experiment, whatever the case of its letters; null if there is none.
const VerifierEntry* VerifierNamed(const std::string& name);
// The same; ends the run (WrongUse) with the nearest name if there is none.
const VerifierEntry& RequireVerifier(const std::string& name);

// The sample that was built with this program. Ends the run (WrongUse) if there is none here; instead: what
// the user may give instead.
std::filesystem::path SampleOf(const std::string& experiment, const std::string& instead);

}  // namespace OmbreliaHost

#endif
