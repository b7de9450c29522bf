// Ten thousand to ten million rows: what a row costs to load and to sort. Each round is a fresh process.
// Two hundred files stand behind the names of as many as are needed. A size that the machine's memory
// does not allow is left out, and so are sorts that would take too long.
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
// Seconds for the sorts of one round. A pilot on a hundred thousand rows tells what more will take at least.
constexpr double LONGEST_SORTS = 15;

const ScratchFolder scratch;

std::uint64_t BytesOfMemory() {
  return static_cast<std::uint64_t>(sysconf(_SC_PHYS_PAGES)) *
         static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
}

const bool registered = [] {
  const auto files = WriteDataFiles(scratch.Path(), MANY_FILES, MANY_FILES_SIZE);
  const std::size_t rowsPerFile = RowsIn(MakeDataFile(MANY_FILES_SIZE, 1));
  const auto filesFor = [=](std::size_t rows) { return (rows + rowsPerFile - 1) / rowsPerFile; };
  const auto command = [=](const char* work, std::size_t rows) {
    return std::vector<std::string>{ProgramBeside("bench-work"), work, scratch.Path().string(),
                                    std::to_string(filesFor(rows))};
  };
  ChildResult pilot = RunChild(command("grow-and-sort", 100000));
  const double pilotSorts = pilot.figures["sort_few_seconds"] + pilot.figures["sort_many_seconds"];
  std::size_t names = files.size();
  std::size_t rows = 10000;
  for (const char* const size : {"1e4", "1e5", "1e6", "1e7"}) {
    if (rows > 1000000 && BytesOfMemory() < MEMORY_FOR_ALL) break;
    const bool sorts = pilotSorts * static_cast<double>(rows) / 100000 < LONGEST_SORTS;
    for (; names < filesFor(rows); ++names) {
      std::filesystem::create_hard_link(files[names % files.size()],
                                        scratch.Path() / ("more" + std::to_string(100000 + names)));
    }
    RegisterChild(std::string("grow/") + size, command(sorts ? "grow-and-sort" : "grow", rows),
                  "load_seconds");
    rows *= 10;
  }
  return true;
}();

}  // namespace
