// What cmake --install puts into a folder, used from there after the folder has moved.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/BuildPaths.h"
#include "tests/support/Files.h"
#include "tests/support/Process.h"

namespace Tests {
namespace {

namespace fs = std::filesystem;

class Installed : public testing::Test {
 protected:
  void SetUp() override {
    const std::string first = m_folder / "first";
    const Finished finished =
        RunProgram({OMBRELIA_CMAKE_COMMAND, "--install", OMBRELIA_BINARY_DIR, "--prefix", first});
    ASSERT_EQ(finished.status, 0) << finished.err;
    fs::rename(first, Prefix());
    fs::create_directories(m_folder / "work");
  }
  std::string Prefix() const { return m_folder / "moved here"; }
  Finished Run(std::vector<std::string> command) {
    command[0] = Prefix() + "/bin/" + command[0];
    ProcessSetup setup;
    setup.workingDirectory = m_folder / "work";
    setup.environment = {"LD_LIBRARY_PATH", "GITHUB_ACTIONS",   "TEST_TOTAL_SHARDS",
                         "DISPLAY",         "TEST_SHARD_INDEX", "GTEST_TOTAL_SHARDS"};
    return RunProgram(command, setup);
  }
  // The paths below the prefix, without samples.
  std::vector<std::string> Files() const {
    std::vector<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(Prefix())) {
      const std::string path = entry.path().lexically_relative(Prefix()).string();
      if (entry.is_regular_file() && path.find("/samples/") == std::string::npos) {
        files.push_back(path);
      }
    }
    std::sort(files.begin(), files.end());
    return files;
  }

  ScratchFolder m_folder;
};

TEST_F(Installed, ProgramVerifiesTheInstalledSamples) {
  const Finished finished =
      Run({"verify-datafiles", "--quiet", Prefix() + "/share/ombrelia-data-hook/samples"});
  EXPECT_EQ(finished.status, 0) << finished.out << finished.err;
  const std::vector<std::string> names =
      NamesIn(std::string(OMBRELIA_SOURCE_DIR) + "/samples/datafiles");
  const auto dataFiles = std::count_if(names.begin(), names.end(), [](const std::string& name) {
    return fs::path(name).extension() == ".txt";
  });
  EXPECT_NE(finished.out.find("Data files: " + std::to_string(dataFiles) + "; tests: "),
            std::string::npos)
      << finished.out;
}

TEST_F(Installed, ProgramLoadsTheInstalledPlugin) {
  const std::string plugin =
      Prefix() + "/lib/ombrelia-data-hook/" + fs::path(OMBRELIA_PLUGIN_FILE).filename().string();
  fs::remove(plugin);
  WriteFile(m_folder / "work/a.txt", "");
  const Finished finished = Run({"verify-datafiles", "a.txt"});
  EXPECT_EQ(finished.status, 4);
  EXPECT_NE(finished.err.find(Prefix() + "/lib/"), std::string::npos) << finished.err;
}

TEST_F(Installed, ProgramExplainsTheInstalledSamples) {
  const Finished finished = Run({"verify-datafiles", "explain", "two_sublists_tagging.om5"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  fs::remove(Prefix() + "/share/ombrelia-data-hook/samples/two_sublists_tagging.om5 1.txt");
  EXPECT_EQ(Run({"verify-datafiles", "explain", "two_sublists_tagging.om5"}).status, 2);
}

TEST_F(Installed, ViewerStartsWithoutAnyOtherFile) {
  fs::remove_all(Prefix() + "/lib");
  const Finished finished =
      Run({"tabulon-cli", "info", "--short",
           Prefix() + "/share/ombrelia-data-hook/samples/two_sublists_tagging.om5 1.txt"});
  EXPECT_EQ(finished.status, 0) << finished.err;
}

TEST_F(Installed, FilesAreAllThere) {
  const std::vector<std::string> files = Files();
  for (const char* file :
       {"bin/tabulon-cli", "bin/verify-datafiles", "share/bash-completion/completions/tabulon-cli",
        "share/bash-completion/completions/verify-datafiles",
        "share/doc/ombrelia-data-hook/copyright", "share/doc/ombrelia-data-hook/deploy.md",
        "share/doc/ombrelia-data-hook/verifiers.md", "share/man/man1/tabulon-cli.1",
        "share/man/man1/verify-datafiles.1", "share/ombrelia-data-hook/verifiers.json",
        "share/zsh/site-functions/_tabulon-cli", "share/zsh/site-functions/_verify-datafiles"}) {
    EXPECT_EQ(std::count(files.begin(), files.end(), file), 1) << file;
  }
  EXPECT_EQ(NamesIn(Prefix() + "/share/ombrelia-data-hook/samples"),
            NamesIn(std::string(OMBRELIA_SOURCE_DIR) + "/samples/datafiles"));
}

// Nothing is put where the loader looks for the libraries of other programs, nor knows the folders of the build.
TEST_F(Installed, LibrariesStandOutOfTheLoadersWay) {
  EXPECT_EQ(NamesIn(Prefix() + "/lib"), std::vector<std::string>{"ombrelia-data-hook"});
  if (RunProgram({"sh", "-c", "command -v readelf"}).status != 0) GTEST_SKIP() << "no readelf here";
  for (const std::string& file : Files()) {
    if (file.rfind("bin/", 0) != 0 && file.rfind("lib/", 0) != 0) continue;
    const std::string dynamic = RunProgram({"readelf", "-dW", Prefix() + "/" + file}).out;
    EXPECT_EQ(dynamic.find(OMBRELIA_SOURCE_DIR), std::string::npos) << dynamic;
    EXPECT_EQ(dynamic.find(":]"), std::string::npos) << dynamic;
    EXPECT_EQ(dynamic.find("::"), std::string::npos) << dynamic;
  }
}

}  // namespace
}  // namespace Tests
