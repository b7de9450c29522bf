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

std::string MakeFiles(const char* name, Spelling spelling) {
  const std::filesystem::path folder = scratch.Path() / name;
  std::filesystem::create_directory(folder);
  WriteDataFiles(folder, MANY_FILES, MANY_FILES_SIZE, spelling);
  return folder.string();
}

const bool registered = [] {
  const std::string folder = MakeFiles("ascii", Spelling::Ascii);
  const std::string accents = MakeFiles("utf8", Spelling::Utf8Accents);
  for (const char* const work :
       {"open-files", "load-batch", "load-notified", "load-notified-viewer"}) {
    RegisterChild(work, {ProgramBeside("bench-work"), work, folder}, "seconds");
  }
  RegisterChild("load-batch-utf8", {ProgramBeside("bench-work"), "load-batch", accents}, "seconds");
  if (DuckDb::Library() != nullptr) {
    RegisterChild("load-duckdb-utf8", {ProgramBeside("bench-work"), "load-duckdb", accents},
                  "seconds");
    RegisterChild("load-duckdb", {ProgramBeside("bench-work"), "load-duckdb", folder}, "seconds");
  }
  if (const char* const script = std::getenv("OMBRELIA_PANDAS_SCRIPT")) {
    RegisterChild("load-pandas", {"/usr/bin/python3", script, folder}, "seconds");
  }
  return true;
}();

}  // namespace
