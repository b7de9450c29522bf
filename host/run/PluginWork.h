// What a child process does with the plug-in.
#ifndef OMBRELIA_HOST_RUN_PLUGINWORK_H
#define OMBRELIA_HOST_RUN_PLUGINWORK_H

#include <cstddef>
#include <filesystem>
#include <vector>

#include "host/run/ChildProcess.h"
#include "host/run/DatafileList.h"
#include "host/run/SharedCounter.h"

namespace OmbreliaHost {

// Borrowed pointers are valid as long as the child is to be started.
struct PluginWork {
  std::filesystem::path library;  // absolute
  const std::vector<Datafile>* datafiles = nullptr;
  SharedCounter* queue =
      nullptr;  // gives indices of data files; null: only the further ones are verified
  std::vector<std::size_t> further;  // to be verified after those of the queue
};

// Loads the plug-in, hands it the data files, has it write its report and unloads it, and tells each step:
//
//   {"event": "loaded", "assertions": N}
//   {"event": "begin", "datafile": INDEX}, {"event": "end", "datafile": INDEX, "assertions": N}
//   {"event": "flush"}, {"event": "report"} or {"event": "no report"}
//   {"event": "fault", "status": NUMBER, "why": TEXT}: nothing can be verified
//
// Each has "at", the seconds of the common clock; "assertions" counts those that failed since the last
// step and went to the plug-in.
void VerifyWithPlugin(const PluginWork& work, const ChildProcess::Tell& tell);

}  // namespace OmbreliaHost

#endif
