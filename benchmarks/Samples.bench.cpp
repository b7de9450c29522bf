// All samples through the built plug-in, from the start of the process to its end: with the program as it is,
// with a former one that had the plug-in in its own process, and the same comparisons as a pytest run. And ten
// thousand data files, in one process of the plug-in and in two side by side.
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "benchmarks/ChildBenchmark.h"
#include "benchmarks/ScratchFolder.h"

namespace {

using namespace Bench;
namespace fs = std::filesystem;

constexpr int MANY = 10000;
const char* const SAMPLES = OMBRELIA_SOURCE_DIR "/samples/datafiles";
const char* const AREAS = ".stimareas.tsv";

const ScratchFolder scratch;

// Links to the samples, each with another participant's number, and to the stimulus areas beside them.
void LinkManyDatafiles(const fs::path& folder) {
  fs::create_directories(folder);
  std::vector<fs::path> samples;
  for (const fs::directory_entry& entry : fs::directory_iterator(SAMPLES)) {
    if (entry.path().extension() == ".txt") samples.push_back(entry.path());
  }
  for (int i = 0; i < MANY; ++i) {
    const fs::path& sample = samples[static_cast<std::size_t>(i) % samples.size()];
    const std::string stem = sample.stem().string();
    const std::string link = stem.substr(0, stem.find(' ')) + " " + std::to_string(i);
    fs::create_symlink(sample, folder / (link + ".txt"));
    const fs::path areas = sample.parent_path() / (stem + AREAS);
    if (fs::exists(areas)) fs::create_symlink(areas, folder / (link + AREAS));
  }
}

std::vector<std::string> Command(const std::string& program, const std::vector<std::string>& more) {
  const fs::path work = scratch.Path() / "run";
  fs::create_directories(work);
  std::vector<std::string> command = {program, "--progress", "never", "--work-dir", work.string()};
  command.insert(command.end(), more.begin(), more.end());
  return command;
}

const bool registered = [] {
  const std::string program = ProgramBeside("verify-datafiles");
  RegisterChild("samples/plugin", Command(program, {SAMPLES}));
  if (const char* const former = std::getenv("OMBRELIA_FORMER_PROGRAM")) {
    RegisterChild("samples/former", Command(former, {SAMPLES}));
  }
  if (const char* const file = std::getenv("OMBRELIA_PYTEST_FILE")) {
    RegisterChild("samples/pytest",
                  {"/usr/bin/python3", "-m", "pytest", "-q",
                   "--junitxml=" + (scratch.Path() / "pytest.xml").string(), file});
  }
  const std::string many = (scratch.Path() / "many").string();
  LinkManyDatafiles(many);
  RegisterChild("many-samples/jobs-1", Command(program, {many}));
  RegisterChild("many-samples/jobs-2", Command(program, {"--jobs", "2", many}));
  return true;
}();

}  // namespace
