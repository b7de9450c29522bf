// The name by which this machine is told from others.
#ifndef OMBRELIA_PLUGIN_LOCALHOSTNAME_H
#define OMBRELIA_PLUGIN_LOCALHOSTNAME_H

#include <wx/string.h>

namespace Halvex {

// This host's name, read from the system at every call; empty if the system gives none. The source of
// this function is linked into the shared library alone: test programs put another in its place.
wxString LocalHostName();

}  // namespace Halvex

#endif
