// Which data files a run is about.
#ifndef OMBRELIA_HOST_RUN_DATAFILELIST_H
#define OMBRELIA_HOST_RUN_DATAFILELIST_H

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "framework/StimAreaData.h"
#include "host/results/RunResults.h"

namespace OmbreliaHost {

struct Datafile {
  std::filesystem::path given;  // as the user gave it, or below the folder that he gave
  std::filesystem::path path;   // absolute
  std::size_t position;         // from 1, in the list that shards divide
  std::vector<Ombrelia::StimAreaData> areas;  // not filled by the list
};

// Ends the run (WrongUse) unless path is an ordinary file that can be opened for reading. The content
// does not matter: to judge a broken data file is the plug-in's affair.
void RequireReadableFile(const std::filesystem::path& path);

// Whether a file of this name is taken as a data file of its folder.
bool HasDatafileName(const std::filesystem::path& path);

// Whether the name of the file, or its part before the first blank, matches one of the globs.
bool MatchesOneOf(const std::vector<std::string>& globs, const std::filesystem::path& path);

// The inputs in their order; in place of a folder its *.txt files in name order, not those of folders
// below it and not hidden ones, which some systems leave beside a file. Of these only the ones that match
// one of the globs, if there are any globs, and of those only the ones of the share. Every file can be
// read. Ends the run (WrongUse) at the first input that is missing or unreadable, at a folder without a
// data file, and if no data file matches; a share may be empty.
std::vector<Datafile> ListDatafiles(const std::vector<std::filesystem::path>& inputs,
                                    const std::vector<std::string>& globs,
                                    const std::optional<Shard>& shard);

}  // namespace OmbreliaHost

#endif
