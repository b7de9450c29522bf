// Which data files a run is about.
#ifndef OMBRELIA_HOST_RUN_DATAFILELIST_H
#define OMBRELIA_HOST_RUN_DATAFILELIST_H

#include <filesystem>
#include <vector>

namespace OmbreliaHost {

// Ends the run (WrongUse) unless path is an ordinary file that can be opened for reading. The content
// does not matter: to judge a broken data file is the plug-in's affair.
void RequireReadableFile(const std::filesystem::path& path);

// The inputs in their order, as absolute paths; in place of a folder its *.txt files in name order, not
// those of folders below it and not hidden ones, which some systems leave beside a file. Every file can
// be read. Ends the run (WrongUse) at the first input that is missing or unreadable, and at a folder
// without a data file.
std::vector<std::filesystem::path> ListDatafiles(const std::vector<std::filesystem::path>& inputs);

}  // namespace OmbreliaHost

#endif
