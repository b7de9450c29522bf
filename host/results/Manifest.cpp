#include "host/results/Manifest.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "host/results/ManifestText.h"

namespace OmbreliaHost {

namespace {

// "a, b" are two names.
std::vector<std::string> SplitNames(const std::string& names) {
  const std::string separator = ", ";
  std::vector<std::string> split;
  for (std::size_t begin = 0; begin < names.size();) {
    const std::size_t end = std::min(names.find(separator, begin), names.size());
    split.push_back(names.substr(begin, end - begin));
    begin = end + separator.size();
  }
  return split;
}

std::vector<VerifierEntry> ParseManifest() {
  std::vector<VerifierEntry> entries;
  const nlohmann::json manifest = nlohmann::json::parse(MANIFEST_TEXT);
  for (const nlohmann::json& entry : manifest.at("verifiers")) {
    entries.push_back({entry.at("class"), entry.at("experiment"), entry.at("proves"),
                       entry.at("expect_empty_datafile"),
                       SplitNames(entry.at("tolerated_failures").get<std::string>())});
  }
  return entries;
}

}  // namespace

const std::vector<VerifierEntry>& Verifiers() {
  static const std::vector<VerifierEntry> verifiers = ParseManifest();
  return verifiers;
}

const VerifierEntry* FindVerifier(const std::string& experiment) {
  const auto found =
      std::find_if(Verifiers().begin(), Verifiers().end(),
                   [&](const VerifierEntry& entry) { return entry.experiment == experiment; });
  return found == Verifiers().end() ? nullptr : &*found;
}

bool IsTolerated(const std::string& experiment, const std::string& testName) {
  const VerifierEntry* const entry = FindVerifier(experiment);
  return entry != nullptr &&
         std::find(entry->toleratedFailures.begin(), entry->toleratedFailures.end(), testName) !=
             entry->toleratedFailures.end();
}

}  // namespace OmbreliaHost
