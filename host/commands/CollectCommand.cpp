#include "host/commands/CollectCommand.h"

#include <vector>

#include "host/commands/ResultsOutput.h"
#include "host/results/CollectedReports.h"
#include "host/results/ProcessTraces.h"
#include "host/results/ThisMachine.h"

namespace OmbreliaHost {

ExitStatus RunCollectCommand(const CollectArguments& arguments) {
  const std::vector<ProcessTraces> processes = FindProcessTraces(arguments.folder);
  if (processes.empty()) {
    throw RunError(ExitStatus::WrongUse,
                   arguments.folder.string() +
                       ": no process has left a report or a flag file here; name the working "
                       "directory of the host, or a folder that its files were copied to");
  }
  RunResults results = CollectReports(processes, arguments.machine.value_or(ThisMachine()));

  // Only now: a file that is written may be one of those that were read.
  ResultsOutput output(arguments.output, results.machine);
  output.Terminal().PrintBeforeFirst(results.beforeFirst);
  for (const DatafileResult& datafile : results.datafiles) {
    output.Terminal().PrintDatafile(datafile);
  }
  return output.Finish(results, HistoryLinesOf(results));
}

}  // namespace OmbreliaHost
