// Ten thousand to ten million rows: what a row costs to load and to sort. Each round is a fresh process.
// Two hundred files stand behind the names of as many as are needed. Sizes that the machine's memory or a
// round's time do not allow are left out.
#include <unistd.h>

#include <cstdint>
#include <string>
#include <vector>

#include "benchmarks/ChildBenchmark.h"
#include "benchmarks/DataFileMaker.h"
#include "benchmarks/ScratchFolder.h"

namespace {

using namespace Bench;

// The largest table takes some gigabytes.
constexpr std::uint64_t MEMORY_FOR_ALL = 8ull << 30;
// Of one round. A pilot on a hundred thousand rows tells what more rows will take at the least.
constexpr double LONGEST_ROUND = 20;

const ScratchFolder scratch;

std::uint64_t BytesOfMemory() {
  return static_cast<std::uint64_t>(sysconf(_SC_PHYS_PAGES)) *
         static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
}

const bool registered = [] {
  const auto files = WriteDataFiles(scratch.Path(), MANY_FILES, MANY_FILES_SIZE);
  const std::size_t rowsPerFile = RowsIn(MakeDataFile(MANY_FILES_SIZE, 1));
  const auto filesFor = [=](std::size_t rows) { return (rows + rowsPerFile - 1) / rowsPerFile; };
  const auto command = [&](std::size_t rows) {
    return std::vector<std::string>{ProgramBeside("bench-work"), "grow", scratch.Path().string(),
                                    std::to_string(filesFor(rows))};
  };
  const double pilot = RunChild(command(100000)).seconds;
  std::size_t names = files.size();
  std::size_t rows = 10000;
  for (const char* const size : {"1e4", "1e5", "1e6", "1e7"}) {
    if (rows > 1000000 && BytesOfMemory() < MEMORY_FOR_ALL) break;
    if (pilot * static_cast<double>(rows) / 100000 > LONGEST_ROUND) break;
    for (; names < filesFor(rows); ++names) {
      std::filesystem::create_hard_link(files[names % files.size()],
                                        scratch.Path() / ("more" + std::to_string(100000 + names)));
    }
    RegisterChild(std::string("grow/") + size, command(rows), "load_seconds");
    rows *= 10;
  }
  return true;
}();

}  // namespace
