// The file in which a data file's stimulus areas stand.
#ifndef OMBRELIA_HOST_RUN_STIMULUSAREAFILE_H
#define OMBRELIA_HOST_RUN_STIMULUSAREAFILE_H

#include <filesystem>
#include <vector>

#include "framework/StimAreaData.h"

namespace OmbreliaHost {

// "X.stimareas.tsv" beside "X.txt".
std::filesystem::path StimulusAreaFileOf(const std::filesystem::path& datafile);

// The stimulus areas of a data file, none if it has no such file. The file is UTF-8 text: the heading
// line "x y width height response_id area_name" and one line per area, cells parted by a tab, all but
// the name whole numbers. Ends the run (WrongUse) with file and line at anything else.
std::vector<Ombrelia::StimAreaData> ReadStimulusAreas(const std::filesystem::path& datafile);

}  // namespace OmbreliaHost

#endif
