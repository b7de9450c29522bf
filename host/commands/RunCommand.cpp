#include "host/commands/RunCommand.h"

#include <iostream>
#include <vector>

#include "host/commands/ResultsOutput.h"
#include "host/commands/RunSetup.h"
#include "host/results/Digest.h"
#include "host/results/ThisMachine.h"
#include "host/run/DatafileList.h"
#include "host/run/PluginLibrary.h"
#include "host/run/Progress.h"
#include "host/run/Shards.h"
#include "host/run/SignalWatch.h"
#include "host/run/StimulusAreaFile.h"
#include "host/run/Supervisor.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

// Does anybody ask what the data files and the verifiers were? The answer takes a look at every byte.
bool AsksForDigests(const OutputArguments& output) {
  return !output.json.empty() || !output.junit.empty() || !output.html.empty() ||
         !output.history.empty() || output.tolerate;
}

Supervisor::Plan PlanOf(const RunArguments& arguments, const std::optional<Shard>& shard) {
  Supervisor::Plan plan;
  plan.library = arguments.plugin.empty() ? DefaultPluginLibrary() : fs::absolute(arguments.plugin);
  plan.datafiles = ListDatafiles(arguments.inputs, arguments.only, shard);
  for (Datafile& datafile : plan.datafiles) datafile.areas = ReadStimulusAreas(datafile.path);
  plan.timeout = arguments.timeout.count();
  plan.jobs = static_cast<std::size_t>(arguments.jobs);
  plan.machine = arguments.machine;
  plan.verifyAgain = &VerifyAgain;
  plan.askForAll = [&output = arguments.output](const std::string& experiment) {
    return AsksForAll(output, experiment);
  };
  return plan;
}

RunResults ResultsOf(const Supervisor::Plan& plan, const std::optional<Shard>& shard,
                     bool digests) {
  RunResults results;
  results.machine = ThisMachine();
  results.started = UtcNow();
  results.host = NameOfThisHost();
  if (digests) results.verifiers = VersionOfVerifiers(plan.library);
  results.shard = shard;
  results.datafiles.reserve(plan.datafiles.size());
  for (const Datafile& datafile : plan.datafiles) {
    results.datafiles.emplace_back();
    results.datafiles.back().path = datafile.given;
    results.datafiles.back().position = datafile.position;
    if (digests) results.datafiles.back().digest = DigestOf(datafile.path);
  }
  return results;
}

}  // namespace

ExitStatus RunRunCommand(const RunArguments& arguments) {
  // Everything that names a file is looked up before the working directory changes, and every input is
  // read before anything runs.
  const std::optional<Shard> shard =
      arguments.partition ? arguments.partition : ShardOfEnvironment();
  const Supervisor::Plan plan = PlanOf(arguments, shard);
  RunResults results = ResultsOf(plan, shard, AsksForDigests(arguments.output));
  ResultsOutput output(arguments.output, results.machine);
  ConfirmShards();
  EnterWorkingDirectory(arguments.workDir);

  const double start = ChildProcess::Now();
  Progress progress(arguments.progress, plan.datafiles.size());
  VerdictsOnTheScreen screen(output.Terminal());
  Supervisor supervisor(plan, progress, screen, results);
  const int signal = supervisor.Run();
  results.seconds = ChildProcess::Now() - start;

  const ExitStatus status = output.Finish(results, HistoryLinesOf(results));
  for (const std::string& text : supervisor.BadUnloads()) {
    std::cerr << "verify-datafiles: " << text << std::endl;
  }
  if (signal != 0) SignalWatch::EndBy(signal);
  const bool onlyTheUnloadWasBad =
      status == ExitStatus::NoFailingTest && !supervisor.BadUnloads().empty();
  return onlyTheUnloadWasBad ? ExitStatus::SomeFailingTest : status;
}

}  // namespace OmbreliaHost
