// Which files the report writer makes, moves and leaves alone.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <wx/log.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "report/ConcreteFakeJUnitPrinter.h"
#include "tests/support/Files.h"

namespace {

using Ombrelia::ConcreteFakeJUnitPrinter;

class ReportFilesTest : public testing::Test {
 protected:
  ReportFilesTest() : m_directory(m_folder.Path()) { m_folder.MakeReportFolder(); }

  std::unique_ptr<ConcreteFakeJUnitPrinter> Made(bool renameUnconditionally) {
    return std::make_unique<ConcreteFakeJUnitPrinter>(wxT("Base"), wxT("auto_experiment_tests"),
                                                      renameUnconditionally);
  }
  std::string At(const std::string& name) const { return m_folder.ReportFolder() + "/" + name; }
  std::vector<std::string> Names() const { return Tests::NamesIn(m_folder.ReportFolder()); }

  Tests::ScratchFolder m_folder;
  Tests::WorkingDirectory m_directory;
  const std::string m_report = "Base_" + std::to_string(getpid()) + ".xml";
  const std::string m_flag = Tests::FlagFileName(getpid());
};

TEST_F(ReportFilesTest, ConstructionLeavesTheFlagFileOnly) {
  const auto printer = Made(true);
  printer->AddPassingTestResult(wxT("t"));
  printer->NewTestSuite(wxT("s"));
  EXPECT_EQ(Names(), std::vector<std::string>{m_flag});
  EXPECT_EQ(Tests::ReadFile(At(m_flag)), "\n");
}

TEST_F(ReportFilesTest, ReplacesAStaleFlagFileWhateverItHolds) {
  Tests::WriteFile(At(m_flag), "left by\na process that had this id\n");
  const auto printer = Made(true);
  EXPECT_EQ(Tests::ReadFile(At(m_flag)), "\n");
  EXPECT_EQ(Names(), std::vector<std::string>{m_flag});
}

// What this process has open, as far as it lies in the report's folder.
std::vector<std::string> OpenBelow(const std::string& folder) {
  std::vector<std::string> open;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code gone;
    const std::string path = std::filesystem::read_symlink(entry.path(), gone).string();
    if (path.compare(0, folder.size(), folder) == 0) open.push_back(path);
  }
  return open;
}

// wx closes a folder that a search left open at exit, within the library and too late to go wrong.
TEST_F(ReportFilesTest, LeavesNoFolderOpenAfterTheSearchForFlagFiles) {
  for (const char* name : {"special_flag_file_1.dat", "special_flag_file_2.dat"}) {
    Tests::WriteFile(At(name), "\n");
  }
  const std::string folder = std::filesystem::canonical(m_folder.ReportFolder()).string();
  {
    const std::filesystem::directory_iterator search(folder);
    EXPECT_EQ(OpenBelow(folder), std::vector<std::string>{folder}) << "the check sees nothing";
  }
  const auto printer = Made(true);
  EXPECT_EQ(OpenBelow(folder), std::vector<std::string>{});
}

TEST_F(ReportFilesTest, DestructionLeavesReportAndFlagFile) {
  Made(true).reset();
  EXPECT_EQ(Names(), (std::vector<std::string>{m_report, m_flag}));
}

TEST_F(ReportFilesTest, MovesAPreexistingReportIfToldToWhateverTheFlagFilesSay) {
  Tests::WriteFile(At("Base.xml"), "from before");
  Tests::WriteFile(At("special_flag_file_1.dat"), "\n");
  const auto printer = Made(true);
  EXPECT_FALSE(Tests::Exists(At("Base.xml")));
  EXPECT_EQ(Tests::ReadFile(At(m_report)), "from before");
}

TEST_F(ReportFilesTest, MovesAPreexistingReportIfItIsTheFirstProcess) {
  Tests::WriteFile(At("Base.xml"), "from before");
  const auto printer = Made(false);
  EXPECT_FALSE(Tests::Exists(At("Base.xml")));
  EXPECT_EQ(Tests::ReadFile(At(m_report)), "from before");
}

TEST_F(ReportFilesTest, LeavesAPreexistingReportToTheProcessThatCameFirst) {
  Tests::WriteFile(At("Base.xml"), "from before");
  Tests::WriteFile(At("special_flag_file_1.dat"), "\n");
  const auto printer = Made(false);
  EXPECT_EQ(Tests::ReadFile(At("Base.xml")), "from before");
  EXPECT_FALSE(Tests::Exists(At(m_report)));
}

TEST_F(ReportFilesTest, AFolderNamedLikeAFlagFileIsNone) {
  Tests::WriteFile(At("Base.xml"), "from before");
  ASSERT_EQ(mkdir(At("special_flag_file_1.dat").c_str(), 0700), 0);
  const auto printer = Made(false);
  EXPECT_FALSE(Tests::Exists(At("Base.xml")));
}

TEST_F(ReportFilesTest, DoesNotMoveAReportOverAnother) {
  Tests::WriteFile(At("Base.xml"), "from before");
  Tests::WriteFile(At(m_report), "of an earlier process with this id");
  const wxLogNull silence;
  auto printer = Made(true);
  EXPECT_EQ(Tests::ReadFile(At("Base.xml")), "from before");
  EXPECT_EQ(Tests::ReadFile(At(m_report)), "of an earlier process with this id");
  printer.reset();
  EXPECT_EQ(Tests::ReadFile(At(m_report)).compare(0, 5, "<?xml"), 0);
}

TEST_F(ReportFilesTest, NothingOfAMovedReportSurvivesANormalEnd) {
  Made(true).reset();
  const std::string expected = Tests::ReadFile(At(m_report));
  ASSERT_EQ(unlink(At(m_report).c_str()), 0);
  // Longer than the new report, in another encoding, and with other line ends.
  for (const std::string& former :
       {std::string(20000, 'x') + "\r\nlast", std::string("\xFF\xFE\x00\xD8", 4),
        std::string("\xE4\x80"), std::string("\xEF\xBB\xBF<a/>\r\n")}) {
    Tests::WriteFile(At("Base.xml"), former);
    const wxLogNull silence;
    Made(true).reset();
    EXPECT_EQ(Tests::ReadFile(At(m_report)), expected);
    ASSERT_EQ(unlink(At(m_report).c_str()), 0);
  }
}

TEST_F(ReportFilesTest, TheReportKeepsThePermissionsOfTheFileThatItReplaces) {
  const auto permissions = [this] {
    struct stat status = {};
    EXPECT_EQ(stat(At(m_report).c_str(), &status), 0);
    return status.st_mode & 0777;
  };
  const mode_t former = umask(027);
  Made(true).reset();
  umask(former);
  EXPECT_EQ(permissions(), 0640u);
  ASSERT_EQ(chmod(At(m_report).c_str(), 0604), 0);
  Made(true).reset();
  EXPECT_EQ(permissions(), 0604u);
  EXPECT_EQ(Names(), (std::vector<std::string>{m_report, m_flag}));
}

TEST_F(ReportFilesTest, WithoutTheFolderTheReportIsLostAndTheProcessGoesOn) {
  Tests::ScratchFolder empty;
  const Tests::WorkingDirectory directory(empty.Path());
  const wxLogNull silence;
  auto printer = Made(true);
  printer->AddFailingTestResult(wxT("n"), wxT("s"), wxT("l"), wxT("m"));
  printer.reset();
  EXPECT_TRUE(Tests::NamesIn(empty.Path()).empty());
}

// Collects what wx would log.
class LogCounter : public wxLog {
 public:
  LogCounter() : m_former(wxLog::SetActiveTarget(this)) {}
  ~LogCounter() override { wxLog::SetActiveTarget(m_former); }
  int m_count = 0;

 protected:
  void DoLogRecord(wxLogLevel, const wxString&, const wxLogRecordInfo&) override { ++m_count; }

 private:
  wxLog* m_former;
};

TEST_F(ReportFilesTest, AWorkingRunLogsNothing) {
  LogCounter log;
  Made(true).reset();
  EXPECT_EQ(log.m_count, 0);
}

TEST_F(ReportFilesTest, OfAReportThatDoesNotFitTheBeginningIsKeptAndTheLossLogged) {
  const auto fill = [](ConcreteFakeJUnitPrinter& printer) {
    for (int i = 0; i < 5000; ++i) printer.AddPassingTestResult(wxT("t"));
  };
  auto printer = Made(true);
  fill(*printer);
  printer.reset();
  const std::string whole = Tests::ReadFile(At(m_report));

  printer = Made(true);
  fill(*printer);
  LogCounter log;
  rlimit former = {};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &former), 0);
  const rlimit small = {100000, former.rlim_max};
  const auto onSignal = std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  printer.reset();
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &former), 0);
  std::signal(SIGXFSZ, onSignal);

  EXPECT_TRUE(Tests::ReadFile(At(m_report)) == whole.substr(0, 100000));  // too long to be shown
  EXPECT_GT(log.m_count, 0);
  EXPECT_EQ(Names(), (std::vector<std::string>{m_report, m_flag}));
}

// It is the run before a human's eyes that keeps silent; an unattended one leaves a trace in the log.
TEST_F(ReportFilesTest, ALostReportIsLoggedUnlessAHumanWatches) {
  Tests::ScratchFolder empty;
  const Tests::WorkingDirectory directory(empty.Path());
  LogCounter log;
  Made(true).reset();
  EXPECT_GT(log.m_count, 0);

  // The search for flag files comes before the switch is read.
  ASSERT_EQ(setenv("MAKE_TEST_FAILURES_POP_UP_FOR_INTERACTIVE_HUMAN", "", 1), 0);
  const int before = log.m_count;
  auto printer = Made(true);
  const int atConstruction = log.m_count - before;
  EXPECT_LE(atConstruction, 1);
  printer.reset();
  EXPECT_EQ(log.m_count - before, atConstruction);
  ASSERT_EQ(unsetenv("MAKE_TEST_FAILURES_POP_UP_FOR_INTERACTIVE_HUMAN"), 0);
}

}  // namespace
