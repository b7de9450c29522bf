#include "host/results/NameSuggestion.h"

#include <wx/filename.h>
#include <wx/string.h>

#include <algorithm>
#include <limits>

#include "host/results/WideText.h"
#include "plugin/DataHookOutputTestingPluginImpl.h"

namespace OmbreliaHost {

namespace {

// How many characters must be put in, taken out, replaced or changed with their neighbour to make one text
// of the other.
std::size_t Distance(const std::wstring& from, const std::wstring& to) {
  std::vector<std::size_t> beforeLast;
  std::vector<std::size_t> last(to.size() + 1);
  for (std::size_t j = 0; j <= to.size(); ++j) last[j] = j;
  for (std::size_t i = 1; i <= from.size(); ++i) {
    std::vector<std::size_t> current(to.size() + 1);
    current[0] = i;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
      current[j] = std::min({last[j] + 1, current[j - 1] + 1, replaced});
      if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1])
        current[j] = std::min(current[j], beforeLast[j - 2] + 1);
    }
    beforeLast = std::move(last);
    last = std::move(current);
  }
  return last.back();
}

// A longer text is no name that anybody mistyped, and takes long to compare.
constexpr std::size_t LONGEST_NAME = 300;

bool IsNear(std::size_t distance, std::size_t length) {
  return distance <= std::max<std::size_t>(1, length / 5);
}

struct Nearest {
  std::size_t index = 0;
  std::size_t distance = std::numeric_limits<std::size_t>::max();
};

// The name nearest to any of the texts; both in capitals.
Nearest FindNearest(const std::vector<wxString>& texts, const std::vector<wxString>& names) {
  Nearest nearest;
  for (const wxString& text : texts) {
    if (text.length() > LONGEST_NAME) continue;
    for (std::size_t i = 0; i < names.size(); ++i) {
      const std::size_t distance = Distance(text.ToStdWstring(), names[i].ToStdWstring());
      if (distance < nearest.distance && IsNear(distance, names[i].length()))
        nearest = {i, distance};
    }
  }
  return nearest;
}

std::vector<wxString> InCapitals(const std::vector<std::string>& names) {
  std::vector<wxString> capitals;
  capitals.reserve(names.size());
  for (const std::string& name : names) capitals.push_back(wxString::FromUTF8(name).Upper());
  return capitals;
}

std::string Quoted(const wxString& text) { return "\"" + Utf8OfText(text) + "\""; }

// What is wrong with the stem of a data file's name, which is all of it but the last extension, if it was
// to be experiment, a blank and the participant.
std::string WhatIsWrong(const wxString& stem, const wxString& fullName,
                        const wxString& experiment) {
  const wxString wanted = experiment.Upper();
  const wxString capitals = stem.Upper();
  if (stem.StartsWith(wxT(" "))) return "It begins with a blank.";
  if (fullName.Upper().BeforeFirst(wxT(' ')) == wanted)
    return "Its ending " + Quoted(wxT(".") + fullName.AfterLast(wxT('.'))) +
           " is that of the experiment; a data file's own, as in \".txt\", must follow.";
  if (capitals.StartsWith(wanted))
    return "A blank must follow the experiment's name, not " +
           Quoted(stem.Mid(wanted.length(), 1)) + ".";
  const wxString key = stem.BeforeFirst(wxT(' '));
  const wxString ending = wxT(".") + experiment.AfterLast(wxT('.'));
  const wxString bare = wanted.BeforeLast(wxT('.'));
  if (key.Upper() == bare) return "The experiment's ending " + Quoted(ending) + " is missing.";
  if (key.Upper().BeforeLast(wxT('.')) == bare)
    return "The experiment ends in " + Quoted(ending) + ", not in " +
           Quoted(wxT(".") + key.AfterLast(wxT('.'))) + ".";
  if (key.length() < experiment.length() && key.length() < stem.length() &&
      Distance(capitals.Left(wanted.length()).ToStdWstring(), wanted.ToStdWstring()) <
          Distance(key.Upper().ToStdWstring(), wanted.ToStdWstring()))
    return "The experiment's name ends at the first blank, so " + Quoted(key) + " was looked for.";
  return Quoted(key) + " is not quite the experiment's name.";
}

}  // namespace

std::optional<std::string> NearestName(const std::string& name,
                                       const std::vector<std::string>& names) {
  const Nearest nearest = FindNearest({wxString::FromUTF8(name).Upper()}, InCapitals(names));
  if (nearest.distance > LONGEST_NAME) return std::nullopt;
  return names[nearest.index];
}

std::optional<NameSuggestion> SuggestExperiment(const std::filesystem::path& datafile,
                                                const std::vector<std::string>& experiments) {
  const wxString path = TextOfPath(datafile);
  const wxFileName file(path);
  const wxString stem = file.GetName();
  const wxString key = Ombrelia::LookupKeyOfDatafile(path);
  const std::vector<wxString> names = InCapitals(experiments);
  if (std::find(names.begin(), names.end(), key) != names.end()) return std::nullopt;

  const auto suggest = [&](std::size_t index) {
    const std::string& experiment = experiments[index];
    return NameSuggestion{experiment,
                          WhatIsWrong(stem, file.GetFullName(), wxString::FromUTF8(experiment))};
  };
  // One experiment's name may be another's with some letters more.
  const auto bare = std::find_if(names.begin(), names.end(), [&key](const wxString& name) {
    return key == name.BeforeLast(wxT('.'));
  });
  if (bare != names.end()) return suggest(static_cast<std::size_t>(bare - names.begin()));

  // What a person may have taken for the place of the experiment's name.
  const wxString unblanked = wxString(stem).Trim(false).Upper();
  std::vector<wxString> texts = {key, unblanked.BeforeFirst(wxT(' ')),
                                 file.GetFullName().Upper().BeforeFirst(wxT(' '))};
  Nearest nearest = FindNearest(texts, names);
  for (std::size_t i = 0; i < names.size(); ++i) {
    const wxString start = unblanked.Left(names[i].length());
    const Nearest atStart = FindNearest({start}, {names[i]});
    if (atStart.distance < nearest.distance) nearest = {i, atStart.distance};
  }
  if (nearest.distance > LONGEST_NAME) return std::nullopt;
  return suggest(nearest.index);
}

}  // namespace OmbreliaHost
