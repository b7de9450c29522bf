// The rooms are in the program as they are in the plug-in library: neither may see the other's.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "tests/BuildPaths.h"
#include "tests/support/Process.h"

namespace {

TEST(ProgramSymbols, ShowNothingOfTheRoomsToThePlugin) {
  const Tests::Finished nm =
      Tests::RunProgram({"nm", "--dynamic", "--defined-only", "--format=posix",
                         std::string(OMBRELIA_BIN_DIR) + "/verify-datafiles"});
  ASSERT_EQ(nm.status, 0) << nm.err;
  std::istringstream lines(nm.out);
  for (std::string line; std::getline(lines, line);) {
    const std::string name = line.substr(0, line.find(' '));
    for (const char* const part :
         {"Ombrelia", "Halvex", "MU", "OMSdkGetObjectPtr", "wxEVT_FLAGGED_ROW_COUNT_CHANGED",
          "wxEVT_COMMAND_REFRESH_REQUEST"}) {
      EXPECT_EQ(name.find(part), std::string::npos) << name;
    }
  }
}

}  // namespace
