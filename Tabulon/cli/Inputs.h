// The files that a run is about.
#ifndef OMBRELIA_TABULON_CLI_INPUTS_H
#define OMBRELIA_TABULON_CLI_INPUTS_H

#include <filesystem>
#include <vector>

namespace TabulonCli {

// The files in their order as absolute paths, each once. Ends the run (WrongUse) at the first that is
// missing, a folder or unreadable; whether it is a data file is for its reader to say.
std::vector<std::filesystem::path> ListFiles(const std::vector<std::filesystem::path>& files);

}  // namespace TabulonCli

#endif
