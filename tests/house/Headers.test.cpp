// The headers of the table's rooms state their contracts under the same labels and in one order.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/BuildPaths.h"
#include "tests/support/Files.h"

namespace {

namespace fs = std::filesystem;

using Strings = std::vector<std::string>;

const Strings LABELS = {"Effect:", "Cost:", "Lifetime:", "Threads:", "Failure:"};

// Records, flags and constants, which nothing can be said about under these labels.
const std::set<std::string> PLAIN_DATA = {
    "queries/MUQueryWords.h",          "rows/MUColumnNamePlusProperties.h",
    "rows/MUDataFileLines.h",          "rows/MUFlagTests.h",
    "rows/MUPropertyFlags.h",          "rows/MURowOverlays.h",
    "table/CompactColumnInfoStruct.h", "table/DichotomousFileRequest.h",
    "table/MUTableEvents.h",           "table/TriStateTrueFalseUnknown.h",
};

// The labels in the comments of a header, in their order.
Strings LabelsIn(const std::string& header) {
  Strings found;
  std::istringstream lines(header);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t comment = line.find("//");
    if (comment == std::string::npos) continue;
    std::istringstream words(line.substr(comment));
    for (std::string word; words >> word;)
      if (std::count(LABELS.begin(), LABELS.end(), word) != 0) found.push_back(word);
  }
  return found;
}

// Whether the labels are one contract or several, each with all labels in order. Where the first line of the
// header says the effect, its label may be missing.
bool AreContracts(const Strings& labels) {
  const Strings all = LABELS;
  const Strings rest(all.begin() + 1, all.end());
  auto at = labels.begin();
  while (at != labels.end()) {
    if (*at == all.front()) ++at;
    if (static_cast<std::size_t>(labels.end() - at) < rest.size() ||
        !std::equal(rest.begin(), rest.end(), at))
      return false;
    at += static_cast<std::ptrdiff_t>(rest.size());
  }
  return !labels.empty();
}

TEST(Headers, OfTheTableAreContracts) {
  const fs::path rooms = fs::path(OMBRELIA_SOURCE_DIR) / "Tabulon/src";
  std::set<std::string> plainData;
  Strings wrong;
  for (const auto& entry : fs::recursive_directory_iterator(rooms)) {
    if (entry.path().extension() != ".h") continue;
    const std::string name = entry.path().lexically_relative(rooms).generic_string();
    if (PLAIN_DATA.count(name) != 0)
      plainData.insert(name);
    else if (!AreContracts(LabelsIn(Tests::ReadFile(entry.path().string()))))
      wrong.push_back(name);
  }
  EXPECT_EQ(wrong, Strings());
  EXPECT_EQ(plainData, PLAIN_DATA);
}

TEST(HeaderRule, ALabelThatIsMissingOrOutOfOrderIsSeen) {
  const std::string whole = "// Cost: x\n// Lifetime: x\n  // Threads: x Failure: x\n";
  EXPECT_TRUE(AreContracts(LabelsIn(whole)));
  EXPECT_TRUE(AreContracts(LabelsIn("// Effect: x\n" + whole + "int a;\n" + whole)));
  EXPECT_FALSE(AreContracts(LabelsIn("// A class.\n")));
  EXPECT_FALSE(AreContracts(LabelsIn("// Cost: x\n// Lifetime: x\n// Threads: x\n")));
  EXPECT_FALSE(
      AreContracts(LabelsIn("// Cost: x\n// Threads: x\n// Lifetime: x\n// Failure: x\n")));
  EXPECT_FALSE(AreContracts(LabelsIn(whole + "// Threads: x\n")));
  EXPECT_FALSE(AreContracts(LabelsIn("Cost: Lifetime: Threads: Failure:\n")));
}

}  // namespace
