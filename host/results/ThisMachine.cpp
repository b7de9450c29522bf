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

}  // namespace OmbreliaHost
