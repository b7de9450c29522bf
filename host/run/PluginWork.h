// What a child process does with the plug-in.
#ifndef OMBRELIA_HOST_RUN_PLUGINWORK_H
#define OMBRELIA_HOST_RUN_PLUGINWORK_H

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
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

// A step of the work, as one line: the event, the seconds of the common clock, and two numbers.
struct PluginStep {
  std::string event;
  double at = 0;
  std::size_t number = 0;
  std::size_t assertions = 0;  // that failed since the last step and went to the plug-in
  std::string why;

  std::string Line() const;
  // Absent if the line is none of these: the plug-in may have written anywhere.
  static std::optional<PluginStep> OfLine(const std::string& line);
};

// Loads the plug-in, hands it the data files, has it write its report and unloads it, and tells each step:
//
//   "loaded", "begin" and "end" with the data file's index as number, "flush", "report" or "no-report";
//   "fault", with the exit status as number and the reason: nothing can be verified
void VerifyWithPlugin(const PluginWork& work, const ChildProcess::Tell& tell);

}  // namespace OmbreliaHost

#endif
