#include "host/results/Families.h"

#include <algorithm>

namespace OmbreliaHost {

namespace {

struct Family {
  const char* name;
  std::vector<std::string> words;  // in small letters
};

// The more special families first: most names have words of several.
const std::vector<Family>& Rules() {
  static const std::vector<Family> rules = {
      {"Macros", {"macr"}},
      {"When to run, and loops", {"wtp", "wtr", "loop"}},
      {"Responses, feedback and input", {"feedback", "fb", "resp", "rstep", "input"}},
      {"Lists and sublists", {"list", "sublist", "stimlist"}},
      {"Subsets", {"subset"}},
      {"Randomisation", {"random"}},
      {"Trial variables", {"vars", "tvars", "level", "number"}},
      {"Expressions, codes and tags", {"expr", "code", "tag"}},
      {"Parameters and time", {"param", "time", "isi", "sync"}},
      {"Media, columns and blocks", {"audio", "movie", "col", "block"}},
      {"Others", {}}};
  return rules;
}

bool IsSmall(char c) { return c >= 'a' && c <= 'z'; }
bool IsCapital(char c) { return c >= 'A' && c <= 'Z'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// In small letters.
std::vector<std::string> WordsOf(const std::string& name) {
  std::vector<std::string> words = {""};
  char before = ' ';
  for (const char c : name) {
    const bool inAWord = IsSmall(c) || IsCapital(c) || IsDigit(c);
    if (!inAWord || (IsCapital(c) && IsSmall(before))) words.emplace_back();
    if (inAWord) words.back() += IsCapital(c) ? static_cast<char>(c - 'A' + 'a') : c;
    before = c;
  }
  return words;
}

}  // namespace

std::vector<std::string> Families() {
  std::vector<std::string> names;
  for (const Family& family : Rules()) names.emplace_back(family.name);
  return names;
}

std::string FamilyOf(const std::string& experiment) {
  const std::vector<std::string> words = WordsOf(experiment);
  const auto begins = [&words](const std::string& start) {
    return std::any_of(words.begin(), words.end(), [&start](const std::string& word) {
      return word.compare(0, start.size(), start) == 0;
    });
  };
  const auto found = std::find_if(Rules().begin(), Rules().end(), [&](const Family& family) {
    return std::any_of(family.words.begin(), family.words.end(), begins);
  });
  return found == Rules().end() ? Rules().back().name : found->name;
}

}  // namespace OmbreliaHost
