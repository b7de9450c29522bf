#include "host/results/ThisMachine.h"

#include <unistd.h>

#include <array>

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

std::string NameOfThisHost() {
  std::array<char, 256> name{};
  return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

}  // namespace OmbreliaHost
