#include "host/commands/ExplainCommand.h"

#include <iostream>

#include "host/commands/ExperimentNames.h"
#include "host/print/ExplanationPrinter.h"
#include "host/results/Explanation.h"
#include "host/run/DatafileList.h"
#include "host/run/StimulusAreaFile.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

ExitStatus RunExplainCommand(const ExplainArguments& arguments) {
  const VerifierEntry& verifier = RequireVerifier(arguments.name);
  const fs::path datafile =
      arguments.datafile.empty()
          ? SampleOf(verifier.experiment, "name a good data file with --datafile")
          : fs::absolute(arguments.datafile);
  RequireReadableFile(datafile);
  if (ExperimentOf(datafile) != verifier.experiment)
    throw RunError(ExitStatus::WrongUse,
                   datafile.string() + ": is no data file of " + verifier.experiment);
  const Explanation explanation = ExplainByDatafile(datafile, ReadStimulusAreas(datafile));
  ExplanationPrinter(std::cout).Print(explanation, verifier, datafile);
  return ExitStatus::NoFailingTest;
}

}  // namespace OmbreliaHost
