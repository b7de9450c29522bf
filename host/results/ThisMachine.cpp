#include "host/results/ThisMachine.h"

#include "framework/HostNames.h"
#include "plugin/HostProbes.h"

namespace OmbreliaHost {

MachineKind ThisMachine() {
  using Halvex::CurrSystemMatchesLocalHostName;
  if (CurrSystemMatchesLocalHostName(Ombrelia::BIG_MACOSX_SERVER)) return MachineKind::Large;
  if (CurrSystemMatchesLocalHostName(Ombrelia::SMALL_MACOSX_TESTBOX)) return MachineKind::Small;
  return MachineKind::Ordinary;
}

bool IsKnownBy(MachineKind machine, const wxString& hostNameText) {
  // One machine may be of both kinds that have bounds of their own.
  if (machine == ThisMachine()) return Halvex::CurrSystemMatchesLocalHostName(hostNameText);
  return (machine == MachineKind::Small && hostNameText == Ombrelia::SMALL_MACOSX_TESTBOX) ||
         (machine == MachineKind::Large && hostNameText == Ombrelia::BIG_MACOSX_SERVER);
}

}  // namespace OmbreliaHost
