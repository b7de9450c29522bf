// What the built library shows to the dynamic linker.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "tests/BuildPaths.h"
#include "tests/support/Process.h"

namespace {

struct Symbol {
  std::string type;
  std::string name;
};

std::vector<Symbol> DefinedSymbols() {
  const Tests::Finished nm = Tests::RunProgram(
      {"nm", "--dynamic", "--defined-only", "--format=posix", OMBRELIA_PLUGIN_FILE});
  EXPECT_EQ(nm.status, 0) << nm.err;
  std::vector<Symbol> symbols;
  std::istringstream lines(nm.out);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    Symbol symbol;
    words >> symbol.name >> symbol.type;
    symbols.push_back(symbol);
  }
  return symbols;
}

TEST(Exports, AreTheEntryAndTheTwoEventIdentifiers) {
  std::set<std::string> names;
  for (const Symbol& symbol : DefinedSymbols()) names.insert(symbol.name);
  EXPECT_EQ(names, (std::set<std::string>{"OMSdkGetObjectPtr", "wxEVT_COMMAND_REFRESH_REQUEST",
                                          "wxEVT_FLAGGED_ROW_COUNT_CHANGED"}));
}

TEST(Exports, AreOneFunctionAndTwoData) {
  for (const Symbol& symbol : DefinedSymbols()) {
    if (symbol.name == "OMSdkGetObjectPtr") {
      EXPECT_EQ(symbol.type, "T");
    } else {
      EXPECT_TRUE(symbol.type == "B" || symbol.type == "D" || symbol.type == "R") << symbol.type;
    }
  }
}

// Tests simulate the machine and the day by separate sources, and none of them is linked here.
TEST(Exports, AndAllOtherSymbolsHoldNothingOfTheTests) {
  const Tests::Finished nm = Tests::RunProgram({"nm", "--demangle", OMBRELIA_PLUGIN_FILE});
  EXPECT_EQ(nm.status, 0) << nm.err;
  EXPECT_NE(nm.out.find("Halvex::LocalHostName()"), std::string::npos) << "no symbols to look at";
  for (const char* part : {"Tests::", "ForTests", "Simulated"}) {
    EXPECT_EQ(nm.out.find(part), std::string::npos) << part;
  }
}

// A unique symbol would pin the library in the process.
TEST(Exports, HoldNoUniqueSymbol) {
  const Tests::Finished nm = Tests::RunProgram({"nm", "--format=posix", OMBRELIA_PLUGIN_FILE});
  std::istringstream lines(nm.out);
  int count = 0;
  for (std::string line; std::getline(lines, line); ++count) {
    std::istringstream words(line);
    std::string name;
    std::string type;
    words >> name >> type;
    EXPECT_NE(type, "u") << name;
  }
  EXPECT_GT(count, 100) << "the symbol table was not read";
}

TEST(Exports, LeaveTheHostsLibraryOutside) {
  const Tests::Finished readelf =
      Tests::RunProgram({"readelf", "--dynamic", "--wide", OMBRELIA_PLUGIN_FILE});
  EXPECT_EQ(readelf.status, 0) << readelf.err;
  EXPECT_NE(readelf.out.find("libOMPlugInCommon.so"), std::string::npos);
}

}  // namespace
