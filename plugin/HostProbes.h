// Which machine and which build this is. Called from the host's thread only.
#ifndef OMBRELIA_PLUGIN_HOSTPROBES_H
#define OMBRELIA_PLUGIN_HOSTPROBES_H

#include <wx/string.h>

namespace Halvex {

// True if name stands anywhere in this host's name, in upper or lower case. "*" and "?" in name match
// any characters and any one character; an empty name matches every host. The host's name is read at
// each call.
bool CurrSystemMatchesLocalHostName(wxString name);

// True if the marker variable of the continuous-build job exists, whatever its value. The environment is
// read at the first call only.
bool CurrentlyRunningJenkinsOmbreliaProject();

// True if the variable "HALVEX_BETA_STIMLIST_TESTING" exists, whatever its value. The environment is
// read at the first call only.
bool RunningWithOmbreliaSixPreviewEnabled();

// Always false on this platform.
bool ModernBuildForElCapitan_HardcodedOnWin32ToTrue();

// True if the running system's version is major.minor or later.
bool WeHaveAtLeastThisMinimumMacVersion(int major, int minor);

// Always false; the argument is ignored.
bool RunningOnPowerPC(const wxString&);

// True if a debugger is attached to this process now; false if the system does not say.
bool DetectedPresenceOf_GDB_Debugger();

// "mac<major>_<minor>" of the running system.
wxString BriefOperatingSystemVersionString();

}  // namespace Halvex

#endif
