// All samples through the built plug-in, from the start of the process to its end, and the same
// comparisons as a pytest run.
#include <cstdlib>
#include <filesystem>
#include <string>

#include "benchmarks/ChildBenchmark.h"
#include "benchmarks/ScratchFolder.h"

namespace {

using namespace Bench;

const ScratchFolder scratch;

const bool registered = [] {
  const std::filesystem::path work = scratch.Path() / "run";
  std::filesystem::create_directories(work);
  RegisterChild("samples/plugin",
                {ProgramBeside("verify-datafiles"), "--progress", "never", "--work-dir",
                 work.string(), OMBRELIA_SOURCE_DIR "/samples/datafiles"});
  if (const char* const file = std::getenv("OMBRELIA_PYTEST_FILE")) {
    RegisterChild("samples/pytest",
                  {"/usr/bin/python3", "-m", "pytest", "-q",
                   "--junitxml=" + (scratch.Path() / "pytest.xml").string(), file});
  }
  return true;
}();

}  // namespace
