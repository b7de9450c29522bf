// The program's arguments.
#ifndef OMBRELIA_HOST_RUN_COMMANDLINE_H
#define OMBRELIA_HOST_RUN_COMMANDLINE_H

#include <filesystem>
#include <optional>
#include <vector>

#include "host/results/ExitStatus.h"

namespace OmbreliaHost {

enum class ProgressMode { Auto, Always, Never };

struct CommandLine {
  std::filesystem::path plugin;   // empty: the library that was built with this program
  std::filesystem::path workDir;  // empty: the present working directory
  ProgressMode progress = ProgressMode::Auto;
  std::vector<std::filesystem::path> inputs;  // files and folders, in the order given
};

// Fills commandLine. An exit status comes back when the program is to end at once: after the help and
// the version, which it prints, and after wrong use, which it names on standard error.
std::optional<ExitStatus> ParseCommandLine(int argc, char** argv, CommandLine& commandLine);

}  // namespace OmbreliaHost

#endif
