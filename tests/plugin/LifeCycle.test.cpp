// The built library in processes of their own: when files appear, and what is left behind.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <csignal>
#include <memory>
#include <set>

#include "Tabulon/src/machine/MUMachine.h"
#include "tests/BuildPaths.h"
#include "tests/support/Files.h"
#include "tests/support/Process.h"

namespace {

using Tests::DrivePlugin;
using Tests::Finished;
using Cases = std::vector<std::string>;

class LifeCycleTest : public testing::Test {
 protected:
  LifeCycleTest() { m_folder.MakeReportFolder(); }

  Finished Drive(const std::vector<std::string>& steps) {
    return DrivePlugin(m_folder.Path(), steps);
  }
  Cases Names() const { return Tests::NamesIn(m_folder.ReportFolder()); }
  std::string Report(const Finished& finished) const {
    return Tests::ReadFile(m_folder.ReportFolder() + "/" + Tests::ReportName(finished.pid));
  }

  Tests::ScratchFolder m_folder;
};

const Cases UNKNOWN_FILE_CASES = {
    "test001SingleDummyPassingTest",
    "test002DataHookOutputTestingPlugin_PerformPostProcessing_was_called",
    "FAIL test003locating_verifier_for_unknown"};

TEST_F(LifeCycleTest, NothingIsOnDiskBeforeTheFlush) {
  const Finished finished = Drive({"load", "process", "unknown.txt", "report", "flush", "report"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_EQ(finished.out, "no report\nreport\n");
  EXPECT_EQ(Tests::TestCasesOf(Report(finished)), UNKNOWN_FILE_CASES);
}

TEST_F(LifeCycleTest, UnloadingWritesTheReportAndTheLibraryIsGone) {
  const Finished finished = Drive({"resident", "load", "resident", "process", "unknown.txt",
                                   "report", "unload", "report", "resident"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_EQ(finished.out, "gone\nresident\nno report\nreport\ngone\n");
  EXPECT_EQ(Tests::TestCasesOf(Report(finished)), UNKNOWN_FILE_CASES);
  EXPECT_EQ(Names(), (Cases{Tests::ReportName(finished.pid), Tests::FlagFileName(finished.pid)}));
}

TEST_F(LifeCycleTest, ANormalExitWritesTheReport) {
  // wx releases its memory only if it ends before the exit.
  const Finished finished =
      DrivePlugin(m_folder.Path(), {"load", "process", "unknown.txt", "report", "leave"},
                  {"ASAN_OPTIONS=detect_leaks=0"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_EQ(finished.out, "no report\n");
  EXPECT_EQ(Tests::TestCasesOf(Report(finished)), UNKNOWN_FILE_CASES);
}

TEST_F(LifeCycleTest, AnExitAfterWxHasEndedWritesTheReport) {
  const Finished finished = Drive({"load", "process", "unknown.txt"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_EQ(Tests::TestCasesOf(Report(finished)), UNKNOWN_FILE_CASES);
}

TEST_F(LifeCycleTest, ACrashLeavesTheFlagFileOnly) {
  for (const char* end : {"abort", "kill", "quick-exit"}) {
    Tests::ScratchFolder folder;
    folder.MakeReportFolder();
    const Finished finished = DrivePlugin(folder.Path(), {"load", "process", "unknown.txt", end});
    EXPECT_NE(finished.status, 0) << end;
    EXPECT_EQ(Tests::NamesIn(folder.ReportFolder()), Cases{Tests::FlagFileName(finished.pid)})
        << end;
  }
}

TEST_F(LifeCycleTest, AReportPlacedInAdvanceSpeaksForAProcessThatDied) {
  const std::string inAdvance =
      m_folder.ReportFolder() + "/FakeUnitTestsDataHookExperimentRunning.xml";
  Tests::WriteFile(inAdvance, "the host died");
  const Finished finished = Drive({"load", "process", "unknown.txt", "kill"});
  EXPECT_EQ(finished.signal, SIGKILL);
  EXPECT_EQ(Names(), (Cases{Tests::ReportName(finished.pid), Tests::FlagFileName(finished.pid)}));
  EXPECT_EQ(Report(finished), "the host died");
}

// The flag file of a process that crashed does not keep the report where it is.
TEST_F(LifeCycleTest, LoadingMovesAForeignReportBesideTheFlagFileOfACrash) {
  Tests::WriteFile(m_folder.ReportFolder() + "/FakeUnitTestsDataHookExperimentRunning.xml",
                   "another process died");
  Tests::WriteFile(m_folder.ReportFolder() + "/special_flag_file_1.dat", "\n");
  const Finished finished = Drive({"load", "kill"});
  EXPECT_EQ(finished.signal, SIGKILL);
  EXPECT_EQ(Names(), (Cases{Tests::ReportName(finished.pid), "special_flag_file_1.dat",
                            Tests::FlagFileName(finished.pid)}));
  EXPECT_EQ(Report(finished), "another process died");
}

TEST_F(LifeCycleTest, AProcessThatEndsNormallyOverwritesTheReportPlacedInAdvance) {
  const std::string inAdvance =
      m_folder.ReportFolder() + "/FakeUnitTestsDataHookExperimentRunning.xml";
  Tests::WriteFile(inAdvance, "the host died");
  const Finished finished = Drive({"load", "flush"});
  EXPECT_EQ(Names(), (Cases{Tests::ReportName(finished.pid), Tests::FlagFileName(finished.pid)}));
  EXPECT_EQ(Tests::TestCasesOf(Report(finished)), Cases{"test001SingleDummyPassingTest"});
}

TEST_F(LifeCycleTest, AssertionFailuresAreNumberedAcrossFlushes) {
  const Finished finished = Drive({"load", "assertion", "first", "assertion", "second", "flush"});
  const std::string report = Report(finished);
  EXPECT_EQ(
      Tests::TestCasesOf(report),
      (Cases{"test001SingleDummyPassingTest", "FAIL test002TestingPluginDH_AssertionFailure_00001",
             "FAIL test003TestingPluginDH_AssertionFailure_00002"}));
  EXPECT_NE(
      report.find("        <failure message=\"actual file and line number shown in DETAILED TEXT\" "
                  "type=\"\">\n\n <![CDATA[Whichever/File/Focuses/On/Verifying/"
                  "DataHookOutputTestingPlugin:182\nsecond]]>\n\n</failure>\n</testcase>\n"),
      std::string::npos);
  const Finished again =
      Drive({"load", "assertion", "first", "flush", "assertion", "after", "flush"});
  EXPECT_EQ(Tests::TestCasesOf(Report(again)),
            (Cases{"test001SingleDummyPassingTest",
                   "FAIL test002TestingPluginDH_AssertionFailure_00002"}));
}

TEST_F(LifeCycleTest, TheSwitchForAHumanChangesNeitherReportNorFiles) {
  const std::vector<std::string> steps = {"load",      "process", "unknown.txt",
                                          "assertion", "a",       "flush"};
  const Finished plain = Drive(steps);
  const std::string expected = Tests::PidBlanked(Report(plain), plain.pid);
  Tests::ScratchFolder folder;
  folder.MakeReportFolder();
  const Finished switched =
      DrivePlugin(folder.Path(), steps, {"MAKE_TEST_FAILURES_POP_UP_FOR_INTERACTIVE_HUMAN=0"});
  EXPECT_EQ(Tests::NamesIn(folder.ReportFolder()),
            (Cases{Tests::ReportName(switched.pid), Tests::FlagFileName(switched.pid)}));
  EXPECT_EQ(Tests::PidBlanked(
                Tests::ReadFile(folder.ReportFolder() + "/" + Tests::ReportName(switched.pid)),
                switched.pid),
            expected);
}

TEST_F(LifeCycleTest, WithoutTheReportFolderTheRunGoesOn) {
  Tests::ScratchFolder folder;
  const Finished finished =
      DrivePlugin(folder.Path(), {"load", "process", "unknown.txt", "flush", "unload", "resident"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_EQ(finished.out, "gone\n");
  EXPECT_TRUE(Tests::NamesIn(folder.Path()).empty());
}

TEST_F(LifeCycleTest, TwoHundredLoadsAndUnloadsLeaveNothingBehind) {
  const Finished finished = Drive({"cycles", "200"});
  ASSERT_EQ(finished.status, 0) << finished.err;
  long kib = -1;
  long descriptors = -1;
  ASSERT_EQ(std::sscanf(finished.out.c_str(), "%ld KiB %ld descriptors", &kib, &descriptors), 2);
  EXPECT_EQ(descriptors, 0);
  // The last 150 of them; one instance of the plug-in takes far more than this. The sanitizer keeps what it knows of
  // each.
  if (!MU_HAS_ADDRESS_SANITIZER) {
    EXPECT_LT(kib, 1024) << finished.out;
  }
}

TEST_F(LifeCycleTest, SixteenProcessesShareOneFolder) {
  std::vector<std::unique_ptr<Tests::Process>> processes;
  Tests::ProcessSetup setup;
  setup.workingDirectory = m_folder.Path();
  for (int i = 0; i < 16; ++i) {
    processes.push_back(std::make_unique<Tests::Process>(
        std::vector<std::string>{std::string(OMBRELIA_BIN_DIR) + "/drive-plugin",
                                 OMBRELIA_PLUGIN_FILE, "load", "process",
                                 "number " + std::to_string(i) + ".txt", "flush"},
        setup));
  }
  std::set<std::string> expected;
  for (int i = 0; i < 16; ++i) {
    const Finished finished = processes[static_cast<std::size_t>(i)]->Wait();
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_EQ(finished.err, "");
    expected.insert(Tests::ReportName(finished.pid));
    expected.insert(Tests::FlagFileName(finished.pid));
    EXPECT_EQ(Tests::TestCasesOf(Report(finished)),
              (Cases{"test001SingleDummyPassingTest",
                     "test002DataHookOutputTestingPlugin_PerformPostProcessing_was_called",
                     "FAIL test003locating_verifier_for_number " + std::to_string(i)}));
  }
  const Cases names = Names();
  EXPECT_EQ(std::set<std::string>(names.begin(), names.end()), expected);
}

// Only one of them can have found the report that was placed in advance.
TEST_F(LifeCycleTest, OfManyProcessesOneTakesTheReportPlacedInAdvance) {
  const std::string inAdvance =
      m_folder.ReportFolder() + "/FakeUnitTestsDataHookExperimentRunning.xml";
  Tests::WriteFile(inAdvance, "placed in advance");
  std::vector<std::unique_ptr<Tests::Process>> processes;
  Tests::ProcessSetup setup;
  setup.workingDirectory = m_folder.Path();
  for (int i = 0; i < 8; ++i) {
    processes.push_back(std::make_unique<Tests::Process>(
        std::vector<std::string>{std::string(OMBRELIA_BIN_DIR) + "/drive-plugin",
                                 OMBRELIA_PLUGIN_FILE, "load", "kill"},
        setup));
  }
  int taken = 0;
  for (const auto& process : processes) {
    const Finished finished = process->Wait();
    const std::string path = m_folder.ReportFolder() + "/" + Tests::ReportName(finished.pid);
    if (Tests::Exists(path)) {
      ++taken;
      EXPECT_EQ(Tests::ReadFile(path), "placed in advance");
    }
  }
  EXPECT_EQ(taken, 1);
  EXPECT_FALSE(Tests::Exists(inAdvance));
}

}  // namespace
