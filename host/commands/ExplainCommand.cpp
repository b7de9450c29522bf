#include "host/commands/ExplainCommand.h"

#include <algorithm>
#include <iostream>
#include <system_error>

#include "host/print/ExplanationPrinter.h"
#include "host/results/Explanation.h"
#include "host/results/Manifest.h"
#include "host/results/NameSuggestion.h"
#include "host/results/WideText.h"
#include "host/run/DatafileList.h"
#include "host/run/PluginLibrary.h"
#include "host/run/StimulusAreaFile.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

std::string Capitals(const std::string& text) {
  return Utf8OfText(wxString::FromUTF8(text).Upper());
}

const VerifierEntry& VerifierOf(const std::string& name) {
  const auto found =
      std::find_if(Verifiers().begin(), Verifiers().end(), [&](const VerifierEntry& verifier) {
        return Capitals(verifier.experiment) == Capitals(name);
      });
  if (found != Verifiers().end()) return *found;
  std::vector<std::string> experiments;
  for (const VerifierEntry& verifier : Verifiers()) experiments.push_back(verifier.experiment);
  std::string words = name + ": no experiment with a verifier has this name";
  if (const auto nearest = NearestName(name, experiments))
    words += "; did you mean " + *nearest + "?";
  throw RunError(ExitStatus::WrongUse, words);
}

fs::path SampleOf(const std::string& experiment) {
  const fs::path sample = SamplesFolder() / (experiment + " 1.txt");
  std::error_code error;
  if (!fs::exists(sample, error))
    throw RunError(ExitStatus::WrongUse, "there is no sample of " + experiment +
                                             " here; name a good data file with --datafile");
  return sample;
}

}  // namespace

ExitStatus RunExplainCommand(const ExplainArguments& arguments) {
  const VerifierEntry& verifier = VerifierOf(arguments.name);
  const fs::path datafile =
      arguments.datafile.empty() ? SampleOf(verifier.experiment) : fs::absolute(arguments.datafile);
  RequireReadableFile(datafile);
  if (ExperimentOf(datafile) != verifier.experiment)
    throw RunError(ExitStatus::WrongUse,
                   datafile.string() + ": is no data file of " + verifier.experiment);
  const Explanation explanation = ExplainByDatafile(datafile, ReadStimulusAreas(datafile));
  ExplanationPrinter(std::cout).Print(explanation, verifier, datafile);
  return ExitStatus::NoFailingTest;
}

}  // namespace OmbreliaHost
