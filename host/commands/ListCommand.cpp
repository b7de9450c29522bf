#include "host/commands/ListCommand.h"

#include <fnmatch.h>

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>

#include "host/results/Manifest.h"
#include "host/results/ResultsJson.h"

namespace OmbreliaHost {

namespace {

bool Matches(const std::string& experiment, const std::vector<std::string>& globs) {
  return globs.empty() || std::any_of(globs.begin(), globs.end(), [&](const std::string& glob) {
           return fnmatch(glob.c_str(), experiment.c_str(), 0) == 0;
         });
}

nlohmann::json ToJson(const VerifierEntry& verifier) {
  return {{"experiment", verifier.experiment},
          {"proves", verifier.proves},
          {"verifier", verifier.className},
          {"expect_empty_datafile", verifier.expectEmptyDatafile},
          {"tolerated_failures", verifier.toleratedFailures}};
}

void Print(const VerifierEntry& verifier) {
  std::cout << verifier.experiment << "\n    " << verifier.proves << "\n";
  if (verifier.expectEmptyDatafile) std::cout << "    Its data file cannot be read.\n";
  for (const std::string& test : verifier.toleratedFailures)
    std::cout << "    May fail now and then: " << test << "\n";
}

}  // namespace

ExitStatus RunListCommand(const ListArguments& arguments) {
  std::vector<VerifierEntry> listed;
  std::copy_if(Verifiers().begin(), Verifiers().end(), std::back_inserter(listed),
               [&](const VerifierEntry& one) { return Matches(one.experiment, arguments.only); });
  if (listed.empty()) throw RunError(ExitStatus::WrongUse, "no experiment matches");
  if (arguments.json) {
    nlohmann::json experiments = nlohmann::json::array();
    for (const VerifierEntry& verifier : listed) experiments.push_back(ToJson(verifier));
    std::cout << JsonText({{"format", 1}, {"experiments", experiments}}) << "\n";
  } else {
    for (const VerifierEntry& verifier : listed) Print(verifier);
  }
  return ExitStatus::NoFailingTest;
}

}  // namespace OmbreliaHost
