// What the start costs: of processes that only load libraries, and of the plug-in inside a process that
// has loaded wxWidgets already.
#include <filesystem>

#include "benchmarks/ChildBenchmark.h"
#include "benchmarks/ScratchFolder.h"

namespace {

using namespace Bench;

const ScratchFolder scratch;

const bool registered = [] {
  for (const char* const program : {"start-nothing", "start-wx-base", "start-wx-core"}) {
    RegisterChild(program, {ProgramBeside(program)});
  }
  RegisterChild("start-plugin",
                {ProgramBeside("start-plugin"), OMBRELIA_PLUGIN_FILE,
                 OMBRELIA_SOURCE_DIR "/samples/datafiles", scratch.Path().string()},
                "seconds");
  return true;
}();

}  // namespace
