#include "host/run/WholeFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "host/results/ExitStatus.h"
#include "tests/support/Files.h"

namespace Tests {
namespace {

using OmbreliaHost::RunError;
using OmbreliaHost::WholeFile;

class WholeFileTest : public testing::Test {
 protected:
  ScratchFolder m_folder;
};

TEST_F(WholeFileTest, IsThereOnceItIsClosed) {
  WriteFile(m_folder / "page.html", "an older one");
  WholeFile file(m_folder / "page.html");
  file.Stream() << "all of it";
  EXPECT_FALSE(Exists(m_folder / "page.html")) << "neither an older one nor a part";
  file.Close();
  EXPECT_EQ(ReadFile(m_folder / "page.html"), "all of it");
  EXPECT_EQ(NamesIn(m_folder.Path()), std::vector<std::string>{"page.html"});
}

TEST_F(WholeFileTest, LeavesNothingIfItIsNotClosed) {
  { WholeFile(m_folder / "page.html").Stream() << "a part"; }
  EXPECT_TRUE(NamesIn(m_folder.Path()).empty());
}

TEST_F(WholeFileTest, IsReadableAsAnyNewFile) {
  const mode_t mask = umask(022);
  WholeFile file(m_folder / "page.html");
  file.Close();
  umask(mask);
  struct stat state {};
  ASSERT_EQ(stat((m_folder / "page.html").c_str(), &state), 0);
  EXPECT_EQ(state.st_mode & 0777, 0644u);
}

TEST_F(WholeFileTest, KeepsItsPlaceWhenTheWorkingDirectoryChanges) {
  WorkingDirectory here(m_folder.Path());
  WholeFile file("page.html");
  const ScratchFolder other;
  WorkingDirectory there(other.Path());
  file.Stream() << "x";
  file.Close();
  EXPECT_TRUE(Exists(m_folder / "page.html"));
}

TEST_F(WholeFileTest, ALinkStaysALink) {
  WriteFile(m_folder / "target", "");
  std::filesystem::create_symlink(m_folder / "target", m_folder / "link");
  WholeFile file(m_folder / "link");
  file.Stream() << "x";
  file.Close();
  EXPECT_TRUE(std::filesystem::is_symlink(m_folder / "link"));
  EXPECT_EQ(ReadFile(m_folder / "target"), "x");
}

TEST_F(WholeFileTest, SaysWhichFileCannotBeWritten) {
  try {
    WholeFile file(m_folder / "missing/page.html");
    FAIL();
  } catch (const RunError& error) {
    EXPECT_EQ(error.Status(), OmbreliaHost::ExitStatus::WrongUse);
    EXPECT_EQ(error.what(), m_folder / "missing/page.html" + ": the file cannot be written");
  }
  EXPECT_THROW(WholeFile(m_folder.Path()), RunError) << "a folder";
}

TEST_F(WholeFileTest, SaysThatTheDiskIsFull) {
  if (!Exists("/dev/full")) GTEST_SKIP() << "no /dev/full";
  WholeFile file("/dev/full");
  file.Stream() << "x";
  try {
    file.Close();
    FAIL();
  } catch (const RunError& error) {
    EXPECT_EQ(error.Status(), OmbreliaHost::ExitStatus::NoReport);
  }
}

}  // namespace
}  // namespace Tests
