#include "plugin/HostProbes.h"

#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>
#include <wx/utils.h>

#include <csignal>
#include <cstdlib>

#include "tests/support/HostNameIs.h"
#include "tests/support/Process.h"

namespace {

TEST(HostNameMatch, StandsAnywhereInTheNameInAnyCase) {
  const Tests::HostNameIs here("The-Om-TestBox.local");
  EXPECT_TRUE(Halvex::CurrSystemMatchesLocalHostName(wxT("om-testbox")));
  EXPECT_TRUE(Halvex::CurrSystemMatchesLocalHostName(wxT("THE-OM")));
  EXPECT_TRUE(Halvex::CurrSystemMatchesLocalHostName(wxT(".LOCAL")));
  EXPECT_TRUE(Halvex::CurrSystemMatchesLocalHostName(wxT("the-om-testbox.local")));
  EXPECT_FALSE(Halvex::CurrSystemMatchesLocalHostName(wxT("om-testboxes")));
  EXPECT_FALSE(Halvex::CurrSystemMatchesLocalHostName(wxT("the-om-testbox.local.")));
}

TEST(HostNameMatch, TakesWildcardsOfTheGivenText) {
  const Tests::HostNameIs here("node-17-big");
  EXPECT_TRUE(Halvex::CurrSystemMatchesLocalHostName(wxT("node*big")));
  EXPECT_TRUE(Halvex::CurrSystemMatchesLocalHostName(wxT("node-1?-")));
  EXPECT_FALSE(Halvex::CurrSystemMatchesLocalHostName(wxT("node-1?big")));
}

TEST(HostNameMatch, OfAnEmptyTextIsEveryHost) {
  for (const char* name : {"any", ""}) {
    const Tests::HostNameIs here(name);
    EXPECT_TRUE(Halvex::CurrSystemMatchesLocalHostName(wxString()));
  }
}

TEST(HostProbes, ComparesTheSystemsVersionMajorFirst) {
  int major = -1;
  int minor = -1;
  wxGetOsVersion(&major, &minor);
  ASSERT_GE(major, 1);
  EXPECT_TRUE(Halvex::WeHaveAtLeastThisMinimumMacVersion(major, minor));
  EXPECT_TRUE(Halvex::WeHaveAtLeastThisMinimumMacVersion(major, minor - 1));
  EXPECT_FALSE(Halvex::WeHaveAtLeastThisMinimumMacVersion(major, minor + 1));
  EXPECT_TRUE(Halvex::WeHaveAtLeastThisMinimumMacVersion(major - 1, minor + 1));
  EXPECT_FALSE(Halvex::WeHaveAtLeastThisMinimumMacVersion(major + 1, minor - 1));
}

TEST(HostProbes, TellsTheSystemsVersionBriefly) {
  int major = -1;
  int minor = -1;
  wxGetOsVersion(&major, &minor);
  EXPECT_EQ(Halvex::BriefOperatingSystemVersionString().ToStdString(),
            "mac" + std::to_string(major) + "_" + std::to_string(minor));
}

TEST(HostProbes, AnswersTheConstantsOfThisPlatform) {
  EXPECT_FALSE(Halvex::ModernBuildForElCapitan_HardcodedOnWin32ToTrue());
  EXPECT_FALSE(Halvex::RunningOnPowerPC(wxString()));
  EXPECT_FALSE(Halvex::RunningOnPowerPC(wxT("anything")));
}

// The environment is read once per process, so each question is asked by a separate process: the
// tests below run again in a process whose environment is set up for them.
Tests::Finished Ask(const char* test, const std::string& variable) {
  Tests::ProcessSetup setup;
  setup.environment = {variable, "OMBRELIA_TEST_ASKED=1"};
  return Tests::RunProgram({"/proc/self/exe", std::string("--gtest_filter=") + test}, setup);
}

TEST(HostProbesAsked, MarkerExistsAndTheAnswerStays) {
  if (!std::getenv("OMBRELIA_TEST_ASKED")) GTEST_SKIP() << "asked by another test";
  EXPECT_TRUE(Halvex::CurrentlyRunningJenkinsOmbreliaProject());
  unsetenv("OMBRELIA_CONTINUOUS_BUILD");
  EXPECT_TRUE(Halvex::CurrentlyRunningJenkinsOmbreliaProject());
}

TEST(HostProbesAsked, NoMarkerAndTheAnswerStays) {
  if (!std::getenv("OMBRELIA_TEST_ASKED")) GTEST_SKIP() << "asked by another test";
  EXPECT_FALSE(Halvex::CurrentlyRunningJenkinsOmbreliaProject());
  setenv("OMBRELIA_CONTINUOUS_BUILD", "1", 1);
  EXPECT_FALSE(Halvex::CurrentlyRunningJenkinsOmbreliaProject());
}

TEST(HostProbesAsked, PreviewEnabledAndTheAnswerStays) {
  if (!std::getenv("OMBRELIA_TEST_ASKED")) GTEST_SKIP() << "asked by another test";
  EXPECT_TRUE(Halvex::RunningWithOmbreliaSixPreviewEnabled());
  unsetenv("HALVEX_BETA_STIMLIST_TESTING");
  EXPECT_TRUE(Halvex::RunningWithOmbreliaSixPreviewEnabled());
}

TEST(HostProbesAsked, NoPreviewAndTheAnswerStays) {
  if (!std::getenv("OMBRELIA_TEST_ASKED")) GTEST_SKIP() << "asked by another test";
  EXPECT_FALSE(Halvex::RunningWithOmbreliaSixPreviewEnabled());
  setenv("HALVEX_BETA_STIMLIST_TESTING", "1", 1);
  EXPECT_FALSE(Halvex::RunningWithOmbreliaSixPreviewEnabled());
}

TEST(HostProbes, CountTheMereExistenceOfAVariable) {
  const std::vector<std::pair<const char*, std::string>> questions = {
      {"HostProbesAsked.MarkerExistsAndTheAnswerStays", "OMBRELIA_CONTINUOUS_BUILD="},
      {"HostProbesAsked.MarkerExistsAndTheAnswerStays", "OMBRELIA_CONTINUOUS_BUILD=0"},
      {"HostProbesAsked.NoMarkerAndTheAnswerStays", "OMBRELIA_CONTINUOUS_BUILD"},
      {"HostProbesAsked.PreviewEnabledAndTheAnswerStays", "HALVEX_BETA_STIMLIST_TESTING="},
      {"HostProbesAsked.PreviewEnabledAndTheAnswerStays", "HALVEX_BETA_STIMLIST_TESTING=no"},
      {"HostProbesAsked.NoPreviewAndTheAnswerStays", "HALVEX_BETA_STIMLIST_TESTING"}};
  for (const auto& [test, variable] : questions) {
    const Tests::Finished finished = Ask(test, variable);
    EXPECT_EQ(finished.status, 0) << variable << "\n" << finished.out << finished.err;
    EXPECT_NE(finished.out.find("[  PASSED  ] 1 test"), std::string::npos) << finished.out;
    EXPECT_EQ(finished.out.find("SKIPPED"), std::string::npos) << finished.out;
  }
}

TEST(HostProbes, SeesNoDebuggerWhereNoneIsAttached) {
  if (std::getenv("OMBRELIA_TEST_UNDER_DEBUGGER")) GTEST_SKIP() << "a debugger may be attached";
  EXPECT_FALSE(Halvex::DetectedPresenceOf_GDB_Debugger());
}

// The parent attaches itself as a debugger would; the child then looks.
TEST(HostProbes, SeesADebuggerThatIsAttached) {
#ifdef __linux__
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    raise(SIGSTOP);  // until the parent is attached
    _exit(Halvex::DetectedPresenceOf_GDB_Debugger() ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, WUNTRACED), child);
  if (ptrace(PTRACE_SEIZE, child, nullptr, nullptr) != 0) {
    kill(child, SIGKILL);
    waitpid(child, &status, 0);
    GTEST_SKIP() << "no debugger may be attached here";
  }
  kill(child, SIGCONT);
  while (waitpid(child, &status, 0) == child && WIFSTOPPED(status)) {
    ptrace(PTRACE_CONT, child, nullptr, nullptr);
  }
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
#else
  GTEST_SKIP() << "attaches itself by ptrace as Linux has it";
#endif
}

}  // namespace
