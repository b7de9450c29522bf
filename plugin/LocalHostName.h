// The name by which this machine is told from others.
#ifndef OMBRELIA_PLUGIN_LOCALHOSTNAME_H
#define OMBRELIA_PLUGIN_LOCALHOSTNAME_H

#include <wx/string.h>

namespace Halvex {

// This host's name, read from the system at every call; empty if the system gives none. Tests
// link another source of this function, except test_this_machine.
wxString LocalHostName();

}  // namespace Halvex

#endif
