// Whatever becomes of the plug-in's process, no more is lost than the data file that it had in hand.
#include <signal.h>

#include <chrono>
#include <functional>
#include <thread>

#include "tests/BuildPaths.h"
#include "tests/host/VerifyDatafiles.h"

namespace Tests {
namespace {

class SurvivalTest : public VerifyDatafilesTest {
 protected:
  // The name of each data file that the plug-in was handed, in order.
  std::string Processed() const {
    std::string names;
    std::istringstream lines(Calls());
    const std::string start = "process " + m_folder.Path() + "/";
    for (std::string line; std::getline(lines, line);) {
      if (line.compare(0, start.size(), start) == 0) names += line.substr(start.size()) + " ";
    }
    return names;
  }
  Arguments Files(const Arguments& names) {
    for (const std::string& name : names) File(name);
    return names;
  }
  bool HasBegun(const std::string& name) const {
    return Exists(m_folder / "calls") && Calls().find(name) != std::string::npos;
  }
  // Waits some seconds for it; tests fail if it does not come.
  static bool Eventually(const std::function<bool()>& condition) {
    for (int i = 0; i < 1000; ++i) {
      if (condition()) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return false;
  }
  // Does no process of the run remain? One that nobody has reaped yet is none.
  static bool IsGone(pid_t process) {
    if (kill(process, 0) != 0) return true;
    const std::string status = ReadFile("/proc/" + std::to_string(process) + "/stat");
    const std::size_t state = status.rfind(") ");
    return state != std::string::npos && status[state + 2] == 'Z';
  }
  void ExpectNoProcessRemains() const {
    for (const pid_t process : Processes()) {
      EXPECT_TRUE(Eventually([process] { return IsGone(process); })) << process;
    }
  }
  // What is said of the data file. Where a process takes long, another verdict may have stood before: these
  // files mean something to the fake plug-in only.
  static std::string Verdict(const Finished& finished, const std::string& name) {
    std::string verdict;
    std::istringstream lines(finished.out);
    for (std::string line; std::getline(lines, line);) {
      if (line.size() > 6 && line.substr(6, name.size() + 2) == name + ": ") verdict = line;
    }
    return verdict;
  }
  // The data files in the order in which they are first spoken of.
  static std::string Order(const Finished& finished) {
    std::string order;
    std::istringstream lines(finished.out);
    for (std::string line; std::getline(lines, line) && !line.empty();) {
      const bool isHead = line.substr(0, 6) == "ok    " || line.substr(0, 6) == "FAIL  ";
      const std::size_t end = line.find(".txt: ");
      if (!isHead || end == std::string::npos) continue;
      const std::string name = line.substr(6, end + 4 - 6) + " ";
      if (order.find(name) == std::string::npos) order += name;
    }
    return order;
  }
  static std::string Ok(const std::string& name) {
    return "ok    " + name + ": 2 passed, 0 failed";
  }
};

TEST_F(SurvivalTest, ACrashInTheThirdDataFileLosesThatOneAlone) {
  const Finished finished =
      VerifyWithOwnReport(Files({"1.txt", "2.txt", "3-crash-.txt", "4.txt", "5.txt"}));
  EXPECT_EQ(finished.status, 1) << finished.err;
  EXPECT_EQ(Order(finished), "1.txt 2.txt 3-crash-.txt 4.txt 5.txt ");
  EXPECT_EQ(Verdict(finished, "3-crash-.txt"), "FAIL  3-crash-.txt: crashed: signal 6 (Aborted)");
  for (const char* name : {"1.txt", "2.txt", "4.txt", "5.txt"}) {
    EXPECT_EQ(Verdict(finished, name), Ok(name));
  }
  // The remaining data files are verified before those of the lost process are verified again.
  EXPECT_EQ(Processed(), "1.txt 2.txt 3-crash-.txt 4.txt 5.txt 1.txt 2.txt ");
  EXPECT_EQ(Reports().size(), 1u);
  EXPECT_NE(finished.out.find("Data files: 5, 1 crashed; tests: 9, 9 passed, 0 failed\n"),
            std::string::npos)
      << finished.out;
}

// A process that ends in the middle of its work leaves memory behind. In a sanitizer build that would become
// its status.
const std::string NO_SEARCH_FOR_LEAKS = "ASAN_OPTIONS=detect_leaks=0";

TEST_F(SurvivalTest, EveryDataFileMayBeLost) {
  const Finished finished =
      VerifyWithOwnReport(Files({"1-crash-.txt", "2-exit-.txt"}), {NO_SEARCH_FOR_LEAKS});
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(Verdict(finished, "1-crash-.txt"), "FAIL  1-crash-.txt: crashed: signal 6 (Aborted)");
  EXPECT_EQ(Verdict(finished, "2-exit-.txt"),
            "FAIL  2-exit-.txt: lost: its process ended with status 3");
}

TEST_F(SurvivalTest, AnExitLosesTheDataFileAlone) {
  const Finished finished =
      VerifyWithOwnReport(Files({"1.txt", "2-exit-.txt", "3.txt"}), {NO_SEARCH_FOR_LEAKS});
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(Verdict(finished, "1.txt"), Ok("1.txt"));
  EXPECT_EQ(Verdict(finished, "2-exit-.txt"),
            "FAIL  2-exit-.txt: lost: its process ended with status 3");
  EXPECT_EQ(Verdict(finished, "3.txt"), Ok("3.txt"));
}

TEST_F(SurvivalTest, AnExceptionLosesTheDataFileAlone) {
  const Finished finished = VerifyWithOwnReport(Files({"1.txt", "2-throw-.txt", "3.txt"}));
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.err, "verify-datafiles: thrown by the plug-in\n");
  EXPECT_EQ(Verdict(finished, "1.txt"), Ok("1.txt"));
  EXPECT_NE(finished.out.find("2-throw-.txt: lost: its process ended with status 1\n"
                              "  The last lines on its standard error:\n"
                              "    verify-datafiles: thrown by the plug-in\n"),
            std::string::npos)
      << finished.out;
  EXPECT_EQ(Verdict(finished, "3.txt"), Ok("3.txt"));
}

TEST_F(SurvivalTest, ADataFileThatTakesTooLongIsGivenUp) {
  Arguments arguments = {"--timeout", "3"};
  for (const std::string& name : Files({"1.txt", "2-hang-.txt", "3.txt"})) {
    arguments.push_back(name);
  }
  const Finished finished = VerifyWithOwnReport(arguments);
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(Verdict(finished, "1.txt"), Ok("1.txt"));
  EXPECT_EQ(Verdict(finished, "2-hang-.txt").substr(0, 29), "FAIL  2-hang-.txt: timed out");
  EXPECT_EQ(Verdict(finished, "3.txt"), Ok("3.txt"));
  ExpectNoProcessRemains();
}

// The time is for each data file, not for all.
TEST_F(SurvivalTest, ManyDataFilesMayTakeLongerThanOneMay) {
  Arguments arguments = {"--timeout", "3"};
  for (int i = 0; i < 12; ++i) arguments.push_back(File(std::to_string(i) + "-sleep-.txt"));
  const Finished finished = VerifyWithOwnReport(arguments);
  EXPECT_EQ(finished.status, 0) << finished.out << finished.err;
}

TEST_F(SurvivalTest, ADataFileThatSuppressesTheReportIsFoundAndLostAlone) {
  const Finished finished =
      VerifyWithOwnReport(Files({"1.txt", "2.txt", "3.txt", "4-nothing-.txt", "5.txt"}));
  EXPECT_EQ(finished.status, 1) << finished.err;
  EXPECT_EQ(Verdict(finished, "4-nothing-.txt"),
            "FAIL  4-nothing-.txt: lost: its process ended with status 0");
  for (const char* name : {"1.txt", "2.txt", "3.txt", "5.txt"}) {
    EXPECT_EQ(Verdict(finished, name), Ok(name));
  }
}

TEST_F(SurvivalTest, ADataFileThatCrashesTheReportIsFoundAndLostAlone) {
  const Finished finished =
      VerifyWithOwnReport(Files({"1.txt", "2-flush-crash-.txt", "3.txt", "4.txt"}));
  EXPECT_EQ(finished.status, 1) << finished.err;
  EXPECT_EQ(Verdict(finished, "2-flush-crash-.txt"),
            "FAIL  2-flush-crash-.txt: crashed: signal 6 (Aborted)");
  for (const char* name : {"1.txt", "3.txt", "4.txt"}) {
    EXPECT_EQ(Verdict(finished, name), Ok(name));
  }
}

TEST_F(SurvivalTest, HalfAReportIsMalformedAndEveryDataFileHasResultsAllTheSame) {
  const Finished finished = VerifyWithOwnReport(Files({"1.txt", "2-half-.txt", "3.txt"}));
  EXPECT_EQ(finished.status, 3);
  EXPECT_NE(finished.err.find("the report is not well-formed XML"), std::string::npos)
      << finished.err;
  // These are the second verification's own.
  for (const char* name : {"1.txt", "2-half-.txt", "3.txt"}) {
    EXPECT_EQ(Verdict(finished, name), std::string("FAIL  ") + name + ": 1 passed, 1 failed");
  }
}

TEST_F(SurvivalTest, ACrashAtLoadIsStatusFour) {
  const Finished finished = VerifyWithOwnReport(Files({"1.txt"}), {"FAKE_LOAD=crash"});
  EXPECT_EQ(finished.status, 4);
  EXPECT_EQ(finished.signal, 0);
  EXPECT_NE(finished.err.find("the plug-in does not load: its process was ended by signal 6"),
            std::string::npos)
      << finished.err;
  EXPECT_FALSE(Exists(m_folder / "calls"));
}

TEST_F(SurvivalTest, ALoadThatNeverEndsIsStatusFour) {
  Arguments arguments = {"--timeout", "3"};
  arguments.push_back(File("1.txt"));
  const Finished finished = VerifyWithOwnReport(arguments, {"FAKE_LOAD=hang"});
  EXPECT_EQ(finished.status, 4);
  EXPECT_NE(finished.err.find("the plug-in does not load: it takes too long"), std::string::npos)
      << finished.err;
  ExpectNoProcessRemains();
}

// The report stands, so its results count; but the fault does not go unsaid.
TEST_F(SurvivalTest, ACrashAtUnloadLosesNoResult) {
  const Finished finished = VerifyWithOwnReport(Files({"1.txt"}), {"FAKE_UNLOAD=crash"});
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(Verdict(finished, "1.txt"), Ok("1.txt"));
  EXPECT_NE(finished.err.find("the report is written, but then the process of the plug-in was "
                              "ended by signal 6"),
            std::string::npos)
      << finished.err;
}

TEST_F(SurvivalTest, AMegabyteOnStandardErrorIsPassedOn) {
  const Finished finished = VerifyWithOwnReport(Files({"1-megabyte-.txt", "2.txt"}));
  EXPECT_EQ(finished.status, 0) << finished.out;
  EXPECT_EQ(finished.err.size(), 16384u * 64 + std::string("the last line\n").size());
}

TEST_F(SurvivalTest, TheLastLinesOfALostProcessAreTold) {
  const Finished finished = VerifyWithOwnReport(Files({"1-megabyte-crash-.txt", "2.txt"}));
  EXPECT_EQ(finished.status, 1);
  EXPECT_NE(finished.out.find("\n    the last line\n"), std::string::npos) << finished.out;
  EXPECT_EQ(Verdict(finished, "2.txt"), Ok("2.txt"));
  EXPECT_LT(finished.out.size(), 4096u) << "a few lines, not all of them";
}

TEST_F(SurvivalTest, SeveralProcessesKeepTheOrderAndTheLosses) {
  Arguments arguments = {"--jobs", "3", "--timeout", "3"};
  std::string expected;
  for (int i = 0; i < 2; ++i) {
    const std::string number = std::to_string(i);
    for (const char* deed : {"fine", "crash", "exit", "sleep", "hang", "megabyte", "throw"}) {
      const std::string name = number + "-" + deed + "-.txt";
      arguments.push_back(File(name));
      expected += name + " ";
    }
  }
  const Finished finished = VerifyWithOwnReport(arguments);
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(Order(finished), expected) << finished.out;
  for (const char* number : {"0", "1"}) {
    const std::string start = number + std::string("-");
    for (const char* deed : {"fine", "sleep", "megabyte"}) {
      const std::string name = start + deed + "-.txt";
      EXPECT_EQ(Verdict(finished, name), Ok(name));
    }
    for (const auto& [deed, outcome] : std::vector<std::pair<std::string, std::string>>{
             {"crash", "crashed"}, {"exit", "lost"}, {"hang", "timed out"}, {"throw", "lost"}}) {
      const std::string head = "FAIL  " + start + deed + "-.txt: " + outcome;
      EXPECT_EQ(Verdict(finished, start + deed + "-.txt").substr(0, head.size()), head);
    }
  }
  EXPECT_NE(finished.out.find("Data files: 14, 2 crashed, 2 timed out, 4 lost; "),
            std::string::npos)
      << finished.out;
  ExpectNoProcessRemains();
}

TEST_F(SurvivalTest, SeveralProcessesVerifyEachDataFileOnce) {
  Arguments arguments = {"--jobs", "4"};
  for (int i = 0; i < 30; ++i) arguments.push_back(File(std::to_string(100 + i) + ".txt"));
  const Finished finished = VerifyWithOwnReport(arguments);
  EXPECT_EQ(finished.status, 0) << finished.err;
  for (int i = 0; i < 30; ++i) {
    const std::string name = std::to_string(100 + i) + ".txt ";
    const std::string processed = Processed();
    EXPECT_NE(processed.find(name), std::string::npos) << name;
    EXPECT_EQ(processed.find(name), processed.rfind(name)) << name;
  }
  EXPECT_NE(finished.out.find("Data files: 30; tests: 61, 61 passed, 0 failed\n"),
            std::string::npos)
      << finished.out;
}

TEST_F(SurvivalTest, AProcessThatThePluginLeavesBehindIsEnded) {
  const Finished finished = VerifyWithOwnReport(Files({"1-leave-.txt", "2.txt"}));
  EXPECT_EQ(finished.status, 0) << finished.err;
  ASSERT_EQ(Processes().size(), 2u);
  ExpectNoProcessRemains();
}

TEST_F(SurvivalTest, ControlCEndsAtOnceWithWhatIsKnown) {
  const std::unique_ptr<Process> process =
      StartWithOwnReport(Files({"1-crash-.txt", "2-leave-.txt", "3-hang-.txt", "4.txt"}));
  ASSERT_TRUE(Eventually([this] { return HasBegun("3-hang-.txt"); }));
  ASSERT_EQ(kill(process->Pid(), SIGINT), 0);
  const Finished finished = process->Wait();
  EXPECT_EQ(finished.signal, SIGINT);
  EXPECT_EQ(Verdict(finished, "1-crash-.txt"), "FAIL  1-crash-.txt: crashed: signal 6 (Aborted)");
  EXPECT_EQ(Verdict(finished, "4.txt"), "") << "nothing is known of it";
  EXPECT_NE(finished.out.find("\n  4.txt: lost\n"), std::string::npos) << finished.out;
  EXPECT_NE(finished.out.find("Data files: 4, 1 crashed, "), std::string::npos) << finished.out;
  EXPECT_EQ(Processes().size(), 3u);
  ExpectNoProcessRemains();
}

#ifdef __linux__
TEST_F(SurvivalTest, NoProcessOutlivesAProgramThatIsKilled) {
  const std::unique_ptr<Process> process = StartWithOwnReport(Files({"1.txt", "2-hang-.txt"}));
  ASSERT_TRUE(Eventually([this] { return HasBegun("2-hang-.txt"); }));
  ASSERT_EQ(kill(process->Pid(), SIGKILL), 0);
  EXPECT_EQ(process->Wait().signal, SIGKILL);
  EXPECT_EQ(Processes().size(), 1u);
  ExpectNoProcessRemains();
}
#endif

TEST_F(SurvivalTest, AProcessKilledFromOutsideLosesTheDataFileInHandAlone) {
  const std::unique_ptr<Process> process =
      StartWithOwnReport(Files({"1.txt", "2.txt", "3-hang-.txt", "4.txt"}));
  ASSERT_TRUE(Eventually([this] { return HasBegun("3-hang-.txt"); }));
  ASSERT_EQ(Processes().size(), 1u);
  ASSERT_EQ(kill(Processes()[0], SIGKILL), 0);
  const Finished finished = process->Wait();
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(Verdict(finished, "3-hang-.txt"), "FAIL  3-hang-.txt: crashed: signal 9 (Killed)");
  for (const char* name : {"1.txt", "2.txt", "4.txt"}) {
    EXPECT_EQ(Verdict(finished, name), Ok(name));
  }
}

TEST_F(SurvivalTest, AVerdictStandsWhileALaterDataFileIsStillInHand) {
  const std::string name = "2012_3_9_tolmey_2668_macro_exit_experiment.om4 1.txt";
  File(name,
       "Robot\nMacro exit\nMon Apr 02 2012 10:41:07\nOmbrelia data file\n"
       "Event\tCumulative\tExpansion Time(ms): 23\nName\tTime\t\nevent 1\t812\t-\n");
  const std::unique_ptr<Process> process = StartWithOwnReport({name, File("2-hang-.txt")});
  EXPECT_TRUE(Eventually([&] {
    return process->OutSoFar().find("ok    " + name + ": 7 passed, 0 failed\n") !=
           std::string::npos;
  })) << process->OutSoFar();
  EXPECT_EQ(Processes().size(), 1u) << "the plug-in's process is still the first one";
  ASSERT_EQ(kill(process->Pid(), SIGTERM), 0);
  const Finished finished = process->Wait();
  EXPECT_EQ(finished.signal, SIGTERM);
  ExpectNoProcessRemains();
}

// The plug-in's report comes later, and it is what counts.
TEST_F(SurvivalTest, AVerdictThatThePluginDoesNotShareIsShownAnew) {
  File("1.txt");
  const Finished finished =
      VerifyWithOwnReport({"1.txt", File("2-sleep-.txt"), File("3-sleep-.txt"),
                           File("4-sleep-.txt"), File("5-sleep-.txt")});
  EXPECT_EQ(finished.status, 0) << finished.out;
  const std::size_t first = finished.out.find("FAIL  1.txt: 1 passed, 1 failed\n");
  ASSERT_NE(first, std::string::npos) << finished.out;
  EXPECT_LT(first, finished.out.find(Ok("1.txt"))) << finished.out;
  EXPECT_NE(finished.out.find("these are the plug-in's"), std::string::npos) << finished.out;
  EXPECT_NE(finished.out.find("Data files: 5; tests: 11, 11 passed, 0 failed\n"), std::string::npos)
      << finished.out;
}

}  // namespace
}  // namespace Tests
