#include "host/commands/MergeCommand.h"

#include <fstream>
#include <nlohmann/json.hpp>

#include "host/commands/ResultsOutput.h"
#include "host/results/MergedResults.h"
#include "host/results/ResultsJson.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

NamedResults ReadResults(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw RunError(ExitStatus::WrongUse, path.string() + ": the file cannot be read");
  }
  try {
    return {path.string(), RunResultsFromJson(nlohmann::json::parse(file))};
  } catch (const std::exception& error) {
    throw RunError(ExitStatus::WrongUse,
                   path.string() + ": no results of format 1: " + error.what());
  }
}

}  // namespace

ExitStatus RunMergeCommand(const MergeArguments& arguments) {
  std::vector<NamedResults> parts;
  for (const fs::path& file : arguments.files) parts.push_back(ReadResults(file));
  RunResults merged = MergeResults(parts);
  // Each part has a time and a machine of its own.
  std::vector<HistoryLine> lines;
  for (const NamedResults& part : parts) {
    const std::vector<HistoryLine> its = HistoryLinesOf(part.results);
    lines.insert(lines.end(), its.begin(), its.end());
  }

  // Only now: a file that is written may be one of those that were read.
  ResultsOutput output(arguments.output, merged.machine);
  output.Terminal().PrintBeforeFirst(merged.beforeFirst);
  for (const DatafileResult& datafile : merged.datafiles) {
    output.Terminal().PrintDatafile(datafile);
  }
  return output.Finish(merged, lines);
}

}  // namespace OmbreliaHost
