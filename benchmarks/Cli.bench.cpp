// tabulon-cli beside its peers, on two hundred files, from the start of each process to its end: the whole table sorted,
// the rows with one text, the different texts of a column with their counts, and the mean of a column per group. All
// write tab-separated rows, which nobody reads.
#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "benchmarks/ChildBenchmark.h"
#include "benchmarks/DataFileMaker.h"
#include "benchmarks/ScratchFolder.h"
#include "benchmarks/peers/DuckDb.h"

namespace {

using namespace Bench;

const ScratchFolder scratch;

std::string InShell(const std::string& text) { return "'" + text + "'"; }

void RegisterShell(const std::string& name, const std::string& command) {
  RegisterChild(name, {"/bin/sh", "-c", command + " > /dev/null"});
}

void RegisterCli(const std::string& work, const std::string& arguments) {
  RegisterShell("cli/" + work, InShell(ProgramBeside("tabulon-cli")) + " " + arguments + " " +
                                   InShell(scratch.Path().string()));
}

void RegisterPeers(const std::string& work, const std::string& millerVerb) {
  const std::string folder = scratch.Path().string();
  if (const char* const miller = std::getenv("OMBRELIA_MILLER")) {
    // One stream for all files: the line of names from the first one, and the rows of all.
    const std::string files = InShell(folder) + "/*.txt";
    RegisterShell("cli/" + work + "/miller", "(sed -n 6p " + InShell(folder) +
                                                 "/data0000.txt; tail -q -n +7 " + files + ") | " +
                                                 miller + " --tsv " + millerVerb);
  }
  if (DuckDb::Library() != nullptr)
    RegisterChild("cli/" + work + "/duckdb",
                  {ProgramBeside("bench-work"), "answer-duckdb", folder, work});
  if (const char* const script = std::getenv("OMBRELIA_PANDAS_ANSWERS"))
    RegisterShell("cli/" + work + "/pandas",
                  "/usr/bin/python3 " + InShell(script) + " " + work + " " + InShell(folder));
}

const bool registered = [] {
  WriteDataFiles(scratch.Path(), MANY_FILES, MANY_FILES_SIZE);
  RegisterCli("sort", "show --sort Stimulus --no-origin --format tsv");
  RegisterPeers("sort", "sort -f Stimulus");
  RegisterCli("where", "show --where Condition=condition_07 --no-origin --format tsv");
  RegisterPeers("where", "filter '$Condition == \"condition_07\"'");
  RegisterCli("distinct", "distinct Condition --counts --format tsv");
  RegisterPeers("distinct", "count-distinct -f Condition");
  RegisterCli("mean", "group --by Condition --agg 'mean:Reaction Time' --format tsv 2> /dev/null");
  RegisterCli(
      "mean-sql",
      "sql 'SELECT Condition, avg(\"Reaction Time\") FROM rows GROUP BY Condition' --format "
      "tsv");
  RegisterPeers("mean", "stats1 -a mean -f Time -g Condition");
  return true;
}();

}  // namespace
