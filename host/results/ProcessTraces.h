// What processes of the plug-in have left on disk: a flag file each when it was loaded, and a report if it came to its
// end.
#ifndef OMBRELIA_HOST_RESULTS_PROCESSTRACES_H
#define OMBRELIA_HOST_RESULTS_PROCESSTRACES_H

#include <filesystem>
#include <string>
#include <vector>

namespace OmbreliaHost {

struct ProcessTraces {
  unsigned long process = 0;  // its id, on the machine that it ran on
  std::filesystem::path
      folder;  // where the files stand, below the folder that was searched; may be empty
  std::filesystem::path flagFile;  // empty if there is none
  std::filesystem::path report;  // a repaired copy where there is no other; empty if there is none
};

// The traces in a folder and in all folders below it, by folder and number. Links to folders are not followed. Ends the
// run (WrongUse) if the folder, or one below it, cannot be read.
std::vector<ProcessTraces> FindProcessTraces(const std::filesystem::path& folder);

// As in "process 4711" and "process 4711 in machine-2", for the words of an error.
std::string NameOf(const ProcessTraces& traces);

}  // namespace OmbreliaHost

#endif
