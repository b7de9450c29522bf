#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "tests/BuildPaths.h"
#include "tests/host/VerifyDatafiles.h"

namespace Tests {
namespace {

class CommandLineTest : public VerifyDatafilesTest {};

TEST_F(CommandLineTest, HelpNamesEveryOptionAndStatus) {
  const Finished finished = Verify({"--help"});
  EXPECT_EQ(finished.status, 0);
  for (const char* word : {"--plugin", "--work-dir", "--progress", "--version", "FILE|FOLDER",
                           "stimareas.tsv", "Exit status"}) {
    EXPECT_NE(finished.out.find(word), std::string::npos) << word << "\n" << finished.out;
  }
  EXPECT_EQ(finished.err, "");
}

TEST_F(CommandLineTest, VersionIsTheProjects) {
  const Finished finished = Verify({"--version"});
  EXPECT_EQ(finished.status, 0);
  EXPECT_EQ(finished.out.substr(0, finished.out.find('\n')), "verify-datafiles " OMBRELIA_VERSION);
}

TEST_F(CommandLineTest, WrongUseIsStatusTwoAndRunsNothing) {
  File("a.txt");
  const std::vector<Arguments> wrong = {{},
                                        {"--no-such-option", "a.txt"},
                                        {"--progress", "sometimes", "a.txt"},
                                        {"a.txt", "--plugin"}};
  for (const Arguments& arguments : wrong) {
    const Finished finished = Verify(arguments);
    EXPECT_EQ(finished.status, 2);
    EXPECT_NE(finished.err, "");
    EXPECT_EQ(finished.out, "");
    EXPECT_FALSE(AnythingRan());
  }
}

// By default the plug-in is the one beside the program, wherever that stands.
TEST_F(CommandLineTest, ThePluginIsFoundBelowAFolderWhoseNameIsNoUtf8) {
  namespace fs = std::filesystem;
  const fs::path folder = m_folder / "installed \xE4";
  fs::create_directories(folder / "bin");
  fs::create_directories(folder / "lib");
  fs::copy(std::string(OMBRELIA_BIN_DIR) + "/verify-datafiles", folder / "bin");
  for (const char* library : {OMBRELIA_PLUGIN_FILE, OMBRELIA_NO_PLUGIN}) {
    fs::copy(library, folder / "lib");
  }
  File("a.txt");
  ProcessSetup setup;
  setup.workingDirectory = m_folder.Path();
  for (const char* locale : {"LC_ALL=C", "LC_ALL=C.UTF-8"}) {
    setup.environment = {locale};
    const Finished finished = RunProgram({folder / "bin/verify-datafiles", "a.txt"}, setup);
    EXPECT_EQ(finished.status, 1) << finished.err;
    EXPECT_NE(finished.out.find("FAIL  a.txt: 1 passed, 1 failed\n"), std::string::npos)
        << finished.out;
  }
}

TEST_F(CommandLineTest, ProgressGoesToStandardErrorIfAskedFor) {
  File("a.txt");
  File("b.txt");
  EXPECT_EQ(Verify({"--progress", "always", "b.txt", "a.txt"}).err, "[1/2] b.txt\n[2/2] a.txt\n");
  EXPECT_EQ(Verify({"--progress", "never", "b.txt", "a.txt"}).err, "");
  EXPECT_EQ(Verify({"b.txt", "a.txt"}).err, "") << "standard error is a file here";
  EXPECT_EQ(Verify({"--progress", "auto", "b.txt", "a.txt"}).err, "");
}

TEST_F(CommandLineTest, ProgressIsShownOnATerminalUnlessForbidden) {
  File("a.txt");
  for (const auto& [mode, expected] : std::vector<std::pair<std::string, std::string>>{
           {"auto", "[1/1] a.txt\r\n"}, {"never", ""}}) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (terminal < 0) GTEST_SKIP() << "no pseudo-terminal here";
    ASSERT_EQ(grantpt(terminal), 0);
    ASSERT_EQ(unlockpt(terminal), 0);
    // Kept open here too: what the program wrote would be lost with the last one that has it open.
    const int other = open(ptsname(terminal), O_RDWR | O_NOCTTY);
    ASSERT_GE(other, 0);
    ProcessSetup setup;
    setup.workingDirectory = m_folder.Path();
    setup.beforeStart = [other] { return dup2(other, STDERR_FILENO) < 0 ? 99 : 0; };
    const Finished finished = RunProgram(
        {std::string(OMBRELIA_BIN_DIR) + "/verify-datafiles", "--progress", mode, "a.txt"}, setup);
    EXPECT_EQ(finished.status, 1);
    char text[256] = {};
    const ssize_t length = read(terminal, text, sizeof text);
    EXPECT_EQ(std::string(text, length > 0 ? static_cast<std::size_t>(length) : 0), expected)
        << mode;
    close(other);
    close(terminal);
  }
}

TEST_F(CommandLineTest, TheReportGoesBelowTheWorkDirAndInputsStayRelativeToTheCaller) {
  File("a.txt");
  ScratchFolder work;
  const Finished finished = Verify({"--work-dir", work.Path(), "a.txt"});
  EXPECT_EQ(finished.status, 1) << finished.err;
  EXPECT_FALSE(AnythingRan());
  EXPECT_NE(finished.out.find("\nReport: " + ReportPath(work) + "\n"), std::string::npos)
      << finished.out;
  ASSERT_EQ(Reports(work).size(), 1u);
  EXPECT_EQ(TestCasesOf(Reports(work)[0]),
            (std::vector<std::string>{
                "test001SingleDummyPassingTest",
                "test002DataHookOutputTestingPlugin_PerformPostProcessing_was_called",
                "FAIL test003locating_verifier_for_a"}));
}

TEST_F(CommandLineTest, RelativeWorkDirAndPluginWork) {
  File("a.txt");
  WriteFile(m_folder / "report", ReportWith(2, 0, FirstResults()));
  ASSERT_EQ(mkdir((m_folder / "below").c_str(), 0700), 0);
  ASSERT_EQ(symlink(OMBRELIA_FAKE_PLUGIN, (m_folder / "plugin.so").c_str()), 0);
  const Finished finished =
      Verify({"--work-dir", "below", "--plugin", "plugin.so", "a.txt"},
             {"FAKE_CALLS=" + (m_folder / "calls"), "FAKE_REPORT=" + (m_folder / "report")});
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_EQ(Calls(), "process " + (m_folder / "a.txt") + "\nflush\n");
  EXPECT_NE(finished.out.find("\nReport: " + m_folder.Path() + "/below/scons-out/"),
            std::string::npos)
      << finished.out;
}

TEST_F(CommandLineTest, AWorkDirThatIsNoneIsWrongUse) {
  File("a.txt");
  for (const char* directory : {"missing", "a.txt"}) {
    const Finished finished = Verify({"--work-dir", directory, "a.txt"});
    EXPECT_EQ(finished.status, 2);
    EXPECT_EQ(finished.err.find(std::string("verify-datafiles: ") + directory + ": "), 0u)
        << finished.err;
  }
}

}  // namespace
}  // namespace Tests
