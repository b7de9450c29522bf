// The kind of machine whose bounds apply here.
#ifndef OMBRELIA_HOST_RESULTS_THISMACHINE_H
#define OMBRELIA_HOST_RESULTS_THISMACHINE_H

#include <wx/string.h>

#include <string>

#include "host/results/RunResults.h"

namespace OmbreliaHost {

// The plug-in tells it from the host's name, and so does this. A machine that is both small and large has the
// bounds of both; it is called large.
MachineKind ThisMachine();

// Whether the bounds of the machines with this text in their names apply on the kind of machine, wherever the
// program runs.
bool IsKnownBy(MachineKind machine, const wxString& hostNameText);

// Empty if the system does not tell.
std::string NameOfThisHost();

}  // namespace OmbreliaHost

#endif
