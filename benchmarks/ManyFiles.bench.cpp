// Two hundred files into one table, each round in a fresh process; the peers read the same files.
#include <cstdlib>
#include <string>

#include "benchmarks/ChildBenchmark.h"
#include "benchmarks/DataFileMaker.h"
#include "benchmarks/ScratchFolder.h"
#include "benchmarks/peers/DuckDb.h"

namespace {

using namespace Bench;

const ScratchFolder scratch;

const bool registered = [] {
  WriteDataFiles(scratch.Path(), MANY_FILES, MANY_FILES_SIZE);
  const std::string folder = scratch.Path().string();
  for (const char* const work :
       {"open-files", "load-batch", "load-notified", "load-notified-viewer"}) {
    RegisterChild(work, {ProgramBeside("bench-work"), work, folder}, "seconds");
  }
  if (DuckDb::Library() != nullptr) {
    RegisterChild("load-duckdb", {ProgramBeside("bench-work"), "load-duckdb", folder}, "seconds");
  }
  if (const char* const script = std::getenv("OMBRELIA_PANDAS_SCRIPT")) {
    RegisterChild("load-pandas", {"/usr/bin/python3", script, folder}, "seconds");
  }
  return true;
}();

}  // namespace
