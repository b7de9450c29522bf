#include "host/results/Manifest.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "host/results/ManifestText.h"
#include "host/results/NamedValues.h"

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

// "1/14" as a number.
double FractionOf(const std::string& text) {
  const std::size_t slash = text.find('/');
  return std::stod(text.substr(0, slash)) / std::stod(text.substr(slash + 1));
}

const std::vector<NamedValue<ChanceFailure::Law>>& Laws() {
  static const std::vector<NamedValue<ChanceFailure::Law>> laws = {
      {ChanceFailure::Law::CoinOutsideBand, "fair coin outside 43 to 57 per cent"},
      {ChanceFailure::Law::LevelMissing, "one of three levels missing"}};
  return laws;
}

std::vector<ChanceFailure> ChanceFailuresOf(const nlohmann::json& entry) {
  std::vector<ChanceFailure> failures;
  for (const nlohmann::json& one : entry.value("chance_failures", nlohmann::json::array())) {
    ChanceFailure failure;
    failure.test = one.at("test");
    failure.derivation = one.at("derivation");
    if (one.contains("by_rows")) {
      failure.law = ValueIn(Laws(), one.at("by_rows").get<std::string>(), "law of chance");
    } else {
      failure.probability = FractionOf(one.at("probability").get<std::string>());
    }
    failures.push_back(failure);
  }
  return failures;
}

std::vector<VerifierEntry> ParseManifest() {
  std::vector<VerifierEntry> entries;
  const nlohmann::json manifest = nlohmann::json::parse(MANIFEST_TEXT);
  for (const nlohmann::json& entry : manifest.at("verifiers")) {
    entries.push_back({entry.at("class"), entry.at("experiment"), entry.at("proves"),
                       entry.at("expect_empty_datafile"),
                       SplitNames(entry.at("tolerated_failures").get<std::string>()),
                       ChanceFailuresOf(entry)});
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

const ChanceFailure* FindChance(const std::string& experiment, const std::string& testName) {
  const VerifierEntry* const entry = FindVerifier(experiment);
  if (entry == nullptr) return nullptr;
  const auto found =
      std::find_if(entry->chanceFailures.begin(), entry->chanceFailures.end(),
                   [&](const ChanceFailure& chance) { return chance.test == testName; });
  return found == entry->chanceFailures.end() ? nullptr : &*found;
}

}  // namespace OmbreliaHost
