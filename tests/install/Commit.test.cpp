// The commit that the programs say they were built from.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/BuildPaths.h"
#include "tests/support/Files.h"
#include "tests/support/Process.h"

namespace Tests {
namespace {

namespace fs = std::filesystem;

class CommitTest : public testing::Test {
 protected:
  void SetUp() override {
    if (RunProgram({"sh", "-c", "command -v git"}).status != 0) GTEST_SKIP() << "no git here";
    WriteFile(m_folder / "template", "@COMMIT@");
  }
  void Git(const std::string& folder, const std::string& arguments) {
    const Finished finished = RunProgram(
        {"sh", "-c", "git -C '" + folder + "' -c user.name=n -c user.email=e " + arguments});
    ASSERT_EQ(finished.status, 0) << finished.err;
  }
  void MakeRepository(const std::string& folder) {
    fs::create_directories(folder);
    WriteFile(folder + "/file", "1\n");
    Git(folder, "init -q");
    Git(folder, "add file");
    Git(folder, "commit -q -m first");
  }
  std::string CommitOf(const std::string& folder) {
    const Finished finished =
        RunProgram({OMBRELIA_CMAKE_COMMAND, "-D", "SOURCE=" + folder, "-D",
                    "TEMPLATE=" + (m_folder / "template"), "-D", "OUTPUT=" + (m_folder / "output"),
                    "-P", std::string(OMBRELIA_SOURCE_DIR) + "/cmake/Commit.cmake"});
    EXPECT_EQ(finished.status, 0) << finished.err;
    const std::string output = ReadFile(m_folder / "output");
    return output.substr(0, output.find('\n'));
  }
  std::string Head(const std::string& folder) {
    return RunProgram({"git", "-C", folder, "rev-parse", "HEAD"}).out.substr(0, 40);
  }

  ScratchFolder m_folder;
};

TEST_F(CommitTest, IsThatOfTheSources) {
  const std::string sources = m_folder / "a folder";
  MakeRepository(sources);
  EXPECT_EQ(CommitOf(sources), Head(sources));
  Git(sources, "tag -a -m t v1");
  EXPECT_EQ(CommitOf(sources), Head(sources)) << "a tag is no commit";
  WriteFile(sources + "/file", "2\n");
  EXPECT_EQ(CommitOf(sources), Head(sources) + " with changes");
}

TEST_F(CommitTest, IsUnknownWithoutARepositoryOfTheirOwn) {
  const std::string outer = m_folder / "outer";
  MakeRepository(outer);
  fs::create_directories(outer + "/sources");
  EXPECT_EQ(CommitOf(outer + "/sources"), "");
}

TEST_F(CommitTest, LeavesTheSourceAloneWhileItStaysTheSame) {
  const std::string sources = m_folder / "sources";
  MakeRepository(sources);
  CommitOf(sources);
  const fs::file_time_type old = fs::file_time_type::clock::now() - std::chrono::hours(1);
  fs::last_write_time(m_folder / "output", old);
  CommitOf(sources);
  EXPECT_EQ(fs::last_write_time(m_folder / "output"), old);
  Git(sources, "commit -q --allow-empty -m second");
  CommitOf(sources);
  EXPECT_NE(fs::last_write_time(m_folder / "output"), old);
}

TEST_F(CommitTest, StandsOnTheSecondLineOfTheVersion) {
  const bool known = CommitOf(OMBRELIA_SOURCE_DIR) != "";
  for (const char* program : {"verify-datafiles", "tabulon-cli"}) {
    const Finished finished =
        RunProgram({std::string(OMBRELIA_BIN_DIR) + "/" + program, "--version"});
    EXPECT_EQ(finished.status, 0);
    const std::string first = std::string(program) + " " OMBRELIA_VERSION "\n";
    ASSERT_EQ(finished.out.substr(0, first.size()), first);
    const std::string second = finished.out.substr(first.size());
    if (!known) {
      EXPECT_EQ(second, "");
      continue;
    }
    const std::string commit = "commit ";
    ASSERT_EQ(second.substr(0, commit.size()), commit);
    EXPECT_EQ(second.find_first_not_of("0123456789abcdef", commit.size()), commit.size() + 40);
    EXPECT_EQ(second.back(), '\n');
  }
}

}  // namespace
}  // namespace Tests
