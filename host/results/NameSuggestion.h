// Names that are nearly right.
#ifndef OMBRELIA_HOST_RESULTS_NAMESUGGESTION_H
#define OMBRELIA_HOST_RESULTS_NAMESUGGESTION_H

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace OmbreliaHost {

// The one of names that takes the fewest changes of characters, if these are few for its length; the first
// of several. Case does not count. Texts are UTF-8.
std::optional<std::string> NearestName(const std::string& name,
                                       const std::vector<std::string>& names);

struct NameSuggestion {
  std::string experiment;  // one of those given
  std::string wrong;       // what is wrong with the data file's name: a whole sentence
};

// What a data file whose experiment is unknown could have meant. Nothing if one of experiments is found
// under its name, or if none is near.
std::optional<NameSuggestion> SuggestExperiment(const std::filesystem::path& datafile,
                                                const std::vector<std::string>& experiments);

}  // namespace OmbreliaHost

#endif
