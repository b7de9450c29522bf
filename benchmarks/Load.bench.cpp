// One file of the largest size, warm, in one process: the table against the stock opening of the same
// file. Peak memory is taken from processes of their own.
#include <benchmark/benchmark.h>
#include <wx/file.h>

#include <string>
#include <utility>

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "benchmarks/ChildBenchmark.h"
#include "benchmarks/DataFileMaker.h"
#include "benchmarks/ScratchFolder.h"
#include "benchmarks/TableWork.h"

namespace {

using namespace Bench;

const ScratchFolder scratch;

void RegisterPair(const std::string& kind, const std::filesystem::path& file) {
  benchmark::RegisterBenchmark(("open/" + kind).c_str(), [=](benchmark::State& state) {
    for (auto round : state) OpenAlone({file});
  })->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark(("load/" + kind).c_str(), [=](benchmark::State& state) {
    for (auto round : state) benchmark::DoNotOptimize(LoadOne(file));
  })->Unit(benchmark::kMillisecond);
}

const bool registered = [] {
  const std::pair<const char*, Spelling> kinds[] = {{"ascii", Spelling::Ascii},
                                                    {"utf8", Spelling::Utf8Accents},
                                                    {"latin1", Spelling::Latin1Accents},
                                                    {"utf16", Spelling::Utf16},
                                                    {"control", Spelling::ControlCharacters}};
  for (const auto& [kind, spelling] : kinds) {
    const std::filesystem::path file = scratch.Path() / (std::string(kind) + ".txt");
    WriteDataFile(file, MakeDataFile(LARGEST_FILE, 1, spelling));
    RegisterPair(kind, file);
  }
  const std::filesystem::path ascii = scratch.Path() / "ascii.txt";
  benchmark::RegisterBenchmark("load/in_memory", [=](benchmark::State& state) {
    for (auto round : state) {
      wxFile file(TextOf(ascii));
      benchmark::DoNotOptimize(LoadOne(ascii, &file));
    }
  })->Unit(benchmark::kMillisecond);
  for (const char* const work : {"peak-memory-open", "peak-memory-load"}) {
    RegisterChild(work, {ProgramBeside("bench-work"), work, ascii.string()});
  }
  return true;
}();

}  // namespace
