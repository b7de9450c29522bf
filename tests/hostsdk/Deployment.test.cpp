// What a deployment may set, and what stops the configuration.
#include "tests/Deployment.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "Tabulon/src/machine/MUMachine.h"
#include "tests/BuildPaths.h"
#include "tests/hostsdk/HostLibraryPaths.h"
#include "tests/support/Files.h"
#include "tests/support/Process.h"

namespace {

using Options = std::map<std::string, std::string>;

// The words that the configuration stops with; empty if it goes on.
std::string ComplaintOn(const Options& changed) {
  Options options = {{"BIG_MACOSX_SERVER", "big"},
                     {"SMALL_MACOSX_TESTBOX", "small"},
                     {"BUILD_NODE_HOST_PREFIX", "NODE"}};
  for (const auto& [name, value] : changed) options[name] = value;
  std::vector<std::string> command = {OMBRELIA_CMAKE_COMMAND};
  for (const auto& [name, value] : options) command.push_back("-D" + name + "=" + value);
  command.push_back("-P");
  command.push_back(std::string(OMBRELIA_SOURCE_DIR) + "/cmake/Deployment.cmake");
  const Tests::Finished finished = Tests::RunProgram(command);
  EXPECT_EQ(finished.status == 0, finished.err.empty()) << finished.err;
  return finished.err;
}

void ExpectComplaint(const std::string& part, const Options& changed) {
  // CMake breaks its messages into lines.
  std::string words;
  for (const char c : ComplaintOn(changed)) {
    const bool blank = c == ' ' || c == '\n';
    if (!blank) words += c;
    if (blank && !words.empty() && words.back() != ' ') words += ' ';
  }
  EXPECT_NE(words.find(part), std::string::npos) << words;
}

TEST(Deployment, TakesNamesOfMachines) {
  EXPECT_EQ(ComplaintOn({}), "");
  EXPECT_EQ(ComplaintOn({{"BIG_MACOSX_SERVER", "Big.server_1"},
                         {"SMALL_MACOSX_TESTBOX", "7*box"},
                         {"BUILD_NODE_HOST_PREFIX", "N-7"}}),
            "");
}

TEST(Deployment, WantsALetterOrADigitInEveryHostNameText) {
  for (const char* option :
       {"BIG_MACOSX_SERVER", "SMALL_MACOSX_TESTBOX", "BUILD_NODE_HOST_PREFIX"}) {
    for (const char* text : {"", " ", "*", "-?-"}) {
      ExpectComplaint(std::string(option) + " is \"" + text + "\". A text without a letter",
                      {{option, text}});
    }
  }
}

TEST(Deployment, WantsTwoNamesThatTellTheMachinesApart) {
  ExpectComplaint("One stands in the other", {{"BIG_MACOSX_SERVER", "the-SMALL-one"}});
  ExpectComplaint("One stands in the other", {{"SMALL_MACOSX_TESTBOX", "Bigger"}});
  ExpectComplaint("One stands in the other", {{"SMALL_MACOSX_TESTBOX", "BIG"}});
}

TEST(Deployment, WantsTheBuildNodesTextInCapitals) {
  ExpectComplaint("so it must be \"NODE-A\"", {{"BUILD_NODE_HOST_PREFIX", "NODE-a"}});
}

TEST(Deployment, WantsTheHostsLibraryWithItsHeadersOrNone) {
  const Tests::ScratchFolder folder;
  const std::string library = folder / "library.so";
  Tests::WriteFile(library, "");
  Tests::WriteFile(folder / "OMSdkBase.h", "");
  ExpectComplaint("Set both", {{"OMBRELIA_PLUGINCOMMON_LIBRARY", library}});
  ExpectComplaint("Set both", {{"OMBRELIA_PLUGINCOMMON_INCLUDE_DIR", folder.Path()}});
  const Options both = {{"OMBRELIA_PLUGINCOMMON_LIBRARY", library},
                        {"OMBRELIA_PLUGINCOMMON_INCLUDE_DIR", folder.Path()}};
  ExpectComplaint("there is no file \"" + folder.Path() + "/PostProcessingFacade.h\"", both);
  Tests::WriteFile(folder / "PostProcessingFacade.h", "");
  EXPECT_EQ(ComplaintOn(both), "");
  ExpectComplaint("Set both", {{"OMBRELIA_PLUGINCOMMON_LIBRARY", folder.Path()},
                               {"OMBRELIA_PLUGINCOMMON_INCLUDE_DIR", folder.Path()}});
}

// With the stand-in in the place of the host's own library.
TEST(Deployment, BuildsTheComparisonOfTheHostsLibraryAlsoWithoutOtherTests) {
  if (OMBRELIA_WITH_THE_HOSTS_LIBRARY)
    GTEST_SKIP() << "the folder of its headers is not known here";
  if (MU_HAS_ADDRESS_SANITIZER)
    GTEST_SKIP() << "no program without the sanitizer loads the stand-in";
  const Tests::ScratchFolder folder;
  const std::string build = folder / "build";
  const Tests::Finished configured = Tests::RunProgram(
      {OMBRELIA_CMAKE_COMMAND, "-S", OMBRELIA_SOURCE_DIR, "-B", build, "-D", "OMBRELIA_TESTS=OFF",
       "-D", "OMBRELIA_PLUGINCOMMON_LIBRARY=" OMBRELIA_HOST_LIBRARY, "-D",
       std::string("OMBRELIA_PLUGINCOMMON_INCLUDE_DIR=") + OMBRELIA_SOURCE_DIR + "/hostsdk"});
  ASSERT_EQ(configured.status, 0) << configured.err;
  const Tests::Finished built = Tests::RunProgram(
      {OMBRELIA_CMAKE_COMMAND, "--build", build, "--target", "test_host_library"});
  ASSERT_EQ(built.status, 0) << built.out << built.err;
  const Tests::Finished compared = Tests::RunProgram({build + "/bin/test_host_library"});
  EXPECT_EQ(compared.status, 0) << compared.out;
  EXPECT_NE(compared.out.find("[  PASSED  ] 4 tests."), std::string::npos) << compared.out;
}

}  // namespace
