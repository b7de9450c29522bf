#include "host/commands/RunSetup.h"

#include <wx/datetime.h>
#include <wx/debug.h>

#include <algorithm>
#include <system_error>
#include <utility>

#include "host/results/Digest.h"
#include "host/results/ExitStatus.h"
#include "host/results/Manifest.h"
#include "host/results/SecondVerification.h"
#include "host/results/WideText.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

void EnterWorkingDirectory(const fs::path& directory) {
  if (directory.empty()) return;
  std::error_code error;
  fs::current_path(directory, error);
  if (error) {
    throw RunError(ExitStatus::WrongUse,
                   directory.string() + ": not usable as working directory: " + error.message());
  }
}

std::string UtcNow() { return Utf8OfText(wxDateTime::Now().ToUTC().FormatISOCombined()) + "Z"; }

DatafileResult VerifyAgain(const Datafile& datafile, std::optional<MachineKind> machine) {
  // A failed assertion is the plug-in's to tell.
  wxDisableAsserts();
  OwnVerdict verdict =
      VerifyInThisProcess(datafile.path, datafile.areas, machine.value_or(ThisMachine()));
  DatafileResult result;
  result.tests = std::move(verdict.tests);
  result.rows = verdict.rows;
  return result;
}

bool AsksForAll(const OutputArguments& output, const std::string& experiment) {
  if (!output.history.empty() || !output.html.empty()) return true;
  const VerifierEntry* const verifier = FindVerifier(experiment);
  return !output.json.empty() && verifier != nullptr &&
         std::any_of(
             verifier->chanceFailures.begin(), verifier->chanceFailures.end(),
             [](const ChanceFailure& chance) { return chance.law != ChanceFailure::Law::Fixed; });
}

std::string VersionOfVerifiers(const fs::path& library) {
  return std::string(OMBRELIA_VERSION) + "+" + DigestOf(library).substr(0, 8);
}

}  // namespace OmbreliaHost
