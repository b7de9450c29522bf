#include "host/commands/WatchedCommand.h"

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>
#include <thread>
#include <vector>

#include "host/commands/ExperimentNames.h"
#include "host/print/WatchedPage.h"
#include "host/print/WatchedPrinter.h"
#include "host/results/Explanation.h"
#include "host/results/ResultsJson.h"
#include "host/results/WatchedJson.h"
#include "host/run/DatafileList.h"
#include "host/run/SignalWatch.h"
#include "host/run/StimulusAreaFile.h"
#include "host/run/WatchedRun.h"
#include "host/run/WholeFile.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

WatchedRun::Input InputOf(const VerifierEntry& verifier, const fs::path& datafile) {
  RequireReadableFile(datafile);
  WatchedRun::Input input;
  input.experiment = verifier.experiment;
  input.className = verifier.className;
  input.given = datafile;
  input.path = fs::absolute(datafile);
  input.areas = ReadStimulusAreas(input.path);
  return input;
}

WatchedRun::Input InputOfSample(const VerifierEntry& verifier) {
  return InputOf(verifier, SampleOf(verifier.experiment, "name a good data file of it"));
}

// NAME means the experiment; a file of that name can be given as ./NAME.
WatchedRun::Input InputNamed(const std::string& name) {
  if (const VerifierEntry* const verifier = VerifierNamed(name)) return InputOfSample(*verifier);
  const fs::path path(name);
  std::error_code error;
  if (!fs::exists(path, error) && !path.has_parent_path() && path.extension() != ".txt")
    RequireVerifier(name);
  RequireReadableFile(path);
  const VerifierEntry* const verifier = FindVerifier(ExperimentOf(fs::absolute(path)));
  if (verifier == nullptr)
    throw RunError(ExitStatus::WrongUse,
                   name + ": is no data file of an experiment with a verifier");
  return InputOf(*verifier, path);
}

std::vector<WatchedRun::Input> InputsOf(const WatchedArguments& arguments) {
  std::vector<WatchedRun::Input> inputs;
  for (const std::string& name : arguments.names) inputs.push_back(InputNamed(name));
  if (!inputs.empty()) return inputs;
  for (const VerifierEntry& verifier : Verifiers()) inputs.push_back(InputOfSample(verifier));
  return inputs;
}

std::size_t JobsOf(const WatchedArguments& arguments) {
  if (arguments.jobs) return static_cast<std::size_t>(*arguments.jobs);
  return std::max(1U, std::thread::hardware_concurrency());
}

// 0, or the signal that ended it.
int Watch(const WatchedArguments& arguments) {
  WatchedRun::Plan plan;
  plan.inputs = InputsOf(arguments);
  plan.jobs = JobsOf(arguments);
  plan.timeout = arguments.timeout.count();
  std::optional<WholeFile> json;
  if (!arguments.json.empty()) json.emplace(arguments.json);
  std::optional<WholeFile> html;
  if (!arguments.html.empty()) html.emplace(arguments.html);

  std::vector<WatchedDatafile> results;
  WatchedPrinter printer(std::cout);
  plan.take = [&](const WatchedDatafile& datafile) {
    printer.Print(datafile);
    std::cout.flush();
    results.push_back(datafile);
  };
  if (const int signal = WatchedRun::Do(plan)) return signal;
  if (results.size() > 1) {
    std::cout << "\n";
    printer.PrintTotals(results);
  }
  if (json) {
    json->Stream() << JsonText(ToJson(results)) << "\n";
    json->Close();
  }
  if (html) {
    WatchedPage(html->Stream()).Print(results);
    html->Close();
  }
  return 0;
}

}  // namespace

ExitStatus RunWatchedCommand(const WatchedArguments& arguments) {
  if (const int signal = Watch(arguments)) SignalWatch::EndBy(signal);
  return ExitStatus::NoFailingTest;
}

}  // namespace OmbreliaHost
