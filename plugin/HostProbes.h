// Which machine and which build this is.
#ifndef OMBRELIA_PLUGIN_HOSTPROBES_H
#define OMBRELIA_PLUGIN_HOSTPROBES_H

#include <wx/string.h>

namespace Halvex {

// Case-insensitive: does name stand anywhere in this host's name? "*" and "?" in name are wildcards;
// an empty name matches every host.
bool CurrSystemMatchesLocalHostName(wxString name);

// Does the marker variable of the continuous-build job exist? Asked of the environment once per process.
bool CurrentlyRunningJenkinsOmbreliaProject();

// Does "HALVEX_BETA_STIMLIST_TESTING" exist? Asked of the environment once per process.
bool RunningWithOmbreliaSixPreviewEnabled();

bool ModernBuildForElCapitan_HardcodedOnWin32ToTrue();
bool WeHaveAtLeastThisMinimumMacVersion(int major, int minor);
bool RunningOnPowerPC(const wxString&);
bool DetectedPresenceOf_GDB_Debugger();

// "mac<major>_<minor>" of the running system.
wxString BriefOperatingSystemVersionString();

// Seam for tests: simulates a host of this name; an empty text goes back to the real name.
void SetLocalHostNameForTests(const wxString& name);

}  // namespace Halvex

#endif
