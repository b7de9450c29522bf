#include "plugin/HostProbes.h"

#include <wx/utils.h>

#include <cstdlib>
#include <fstream>
#include <string>

#ifdef __APPLE__
#include <sys/sysctl.h>
#include <unistd.h>
#endif

#include "plugin/LocalHostName.h"

namespace Halvex {

namespace {

const wxChar* const MARKER_OF_CONTINUOUS_BUILD = wxT("OMBRELIA_CONTINUOUS_BUILD");

}  // namespace

bool CurrSystemMatchesLocalHostName(wxString name) {
  const wxString host = LocalHostName().Upper();
  return host.Matches(wxT("*") + name.Upper() + wxT("*"));
}

bool CurrentlyRunningJenkinsOmbreliaProject() {
  static const bool exists = wxGetEnv(MARKER_OF_CONTINUOUS_BUILD, nullptr);
  return exists;
}

bool RunningWithOmbreliaSixPreviewEnabled() {
  static const bool exists = wxGetEnv(wxT("HALVEX_BETA_STIMLIST_TESTING"), nullptr);
  return exists;
}

bool ModernBuildForElCapitan_HardcodedOnWin32ToTrue() { return false; }

bool WeHaveAtLeastThisMinimumMacVersion(int major, int minor) {
  int systemMajor = -1;
  int systemMinor = -1;
  wxGetOsVersion(&systemMajor, &systemMinor);
  return systemMajor > major || (systemMajor == major && systemMinor >= minor);
}

bool RunningOnPowerPC(const wxString&) { return false; }

bool DetectedPresenceOf_GDB_Debugger() {
#ifdef __APPLE__
  int query[] = {CTL_KERN, KERN_PROC, KERN_PROC_PID, getpid()};
  kinfo_proc info{};
  std::size_t size = sizeof info;
  return sysctl(query, 4, &info, &size, nullptr, 0) == 0 && (info.kp_proc.p_flag & P_TRACED) != 0;
#else
  std::ifstream status("/proc/self/status");
  const std::string key = "TracerPid:";
  for (std::string line; std::getline(status, line);) {
    if (line.compare(0, key.size(), key) == 0) {
      return std::strtol(line.c_str() + key.size(), nullptr, 10) != 0;
    }
  }
  return false;
#endif
}

wxString BriefOperatingSystemVersionString() {
  int major = -1;
  int minor = -1;
  wxGetOsVersion(&major, &minor);
  return wxString::Format(wxT("mac%d_%d"), major, minor);
}

}  // namespace Halvex
