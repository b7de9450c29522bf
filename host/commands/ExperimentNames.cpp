#include "host/commands/ExperimentNames.h"

#include <algorithm>
#include <system_error>
#include <vector>

#include "host/results/ExitStatus.h"
#include "host/results/NameSuggestion.h"
#include "host/results/WideText.h"
#include "host/run/PluginLibrary.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

std::string Capitals(const std::string& text) {
  return Utf8OfText(wxString::FromUTF8(text).Upper());
}

}  // namespace

const VerifierEntry* VerifierNamed(const std::string& name) {
  const auto found =
      std::find_if(Verifiers().begin(), Verifiers().end(), [&](const VerifierEntry& verifier) {
        return Capitals(verifier.experiment) == Capitals(name);
      });
  return found == Verifiers().end() ? nullptr : &*found;
}

const VerifierEntry& RequireVerifier(const std::string& name) {
  if (const VerifierEntry* const found = VerifierNamed(name)) return *found;
  std::vector<std::string> experiments;
  for (const VerifierEntry& verifier : Verifiers()) experiments.push_back(verifier.experiment);
  std::string words = name + ": no experiment with a verifier has this name";
  if (const auto nearest = NearestName(name, experiments))
    words += "; did you mean " + *nearest + "?";
  throw RunError(ExitStatus::WrongUse, words);
}

fs::path SampleOf(const std::string& experiment, const std::string& instead) {
  const fs::path sample = SamplesFolder() / (experiment + " 1.txt");
  std::error_code error;
  if (!fs::exists(sample, error))
    throw RunError(ExitStatus::WrongUse,
                   "there is no sample of " + experiment + " here; " + instead);
  return sample;
}

}  // namespace OmbreliaHost
