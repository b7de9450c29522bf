// verify-datafiles watch.
#include <signal.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <nlohmann/json.hpp>
#include <thread>

#include "tests/BuildPaths.h"
#include "tests/host/ReadXml.h"
#include "tests/host/VerifyDatafiles.h"
#include "tests/support/DataFile.h"

namespace Tests {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

const std::string TAGGING = "two_sublists_tagging.om5";

class WatchTest : public VerifyDatafilesTest {
 protected:
  WatchTest() { fs::create_directory(m_folder / "run"); }

  static bool Eventually(const std::function<bool()>& condition) {
    for (int i = 0; i < 3000; ++i) {
      if (condition()) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return false;
  }
  // Watches the folder "run" and writes "results.json".
  void Start(const Arguments& arguments = {}) {
    Arguments all = {"watch", "run", "--json", "results.json"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    m_process = std::make_unique<Process>(
        Command(all), SetupWith({"FAKE_REPORT=own", "FAKE_CALLS=" + (m_folder / "calls"),
                                 "ASAN_OPTIONS=detect_leaks=0"}));
  }
  void StartWithFake(Arguments arguments = {}) {
    arguments.insert(arguments.end(), {"--plugin", OMBRELIA_FAKE_PLUGIN});
    Start(arguments);
  }
  void Write(const std::string& name, const std::string& content = "x\n") {
    WriteFile(m_folder / "run/" + name, content);
  }
  bool HasSaid(const std::string& words) const {
    return m_process->OutSoFar().find(words) != std::string::npos;
  }
  void WaitFor(const std::string& words) {
    ASSERT_TRUE(Eventually([&] { return HasSaid(words); })) << words << "\n"
                                                            << m_process->OutSoFar();
  }
  // As a person at the keyboard.
  Finished Stop(int signal = SIGINT) {
    kill(m_process->Pid(), signal);
    const Finished finished = m_process->Wait();
    EXPECT_EQ(finished.signal, 0);
    return finished;
  }
  json Results() const { return json::parse(ReadFile(m_folder / "results.json")); }
  // "name outcome" of each data file.
  std::vector<std::string> Outcomes() const {
    std::vector<std::string> outcomes;
    const json results = Results();
    for (const json& datafile : results.at("datafiles"))
      outcomes.push_back(datafile.at("path").get<std::string>() + " " +
                         datafile.at("outcome").get<std::string>());
    return outcomes;
  }

  std::unique_ptr<Process> m_process;
};

using Lines = std::vector<std::string>;

TEST_F(WatchTest, VerifiesWhatIsThereAndWhatComes) {
  const DataFile sample = DataFile::Sample(TAGGING);
  Write(TAGGING + " 1.txt", sample.Text());
  Start({"--html", "results.html", "--junit", "results.xml"});
  WaitFor("ok    " + TAGGING + " 1.txt: 8 passed, 0 failed\n");
  Write(TAGGING + " 2.txt", DataFile(sample).Set(0, "color", "x").Text());
  WaitFor("FAIL  " + TAGGING + " 2.txt: 7 passed, 1 failed\n");
  const Finished finished = Stop();
  EXPECT_EQ(finished.status, 1) << finished.err;
  EXPECT_EQ(finished.err, "verify-datafiles: watching run; Control-C ends it\n");
  EXPECT_EQ(Outcomes(),
            (Lines{"run/" + TAGGING + " 1.txt passed", "run/" + TAGGING + " 2.txt failed"}));
  EXPECT_EQ(Results().at("datafiles").at(1).at("tests").at(2).at("evidence").at(0).at("actual"),
            "x");
  EXPECT_EQ(ReadXml(ReadFile(m_folder / "results.xml"))["failures"], "1");
  EXPECT_EQ(ReadXml(ReadFile(m_folder / "results.html")).name, "html");
  // The plug-in was loaded twice.
  EXPECT_EQ(Results().at("reports").size(), 2u);
  EXPECT_EQ(finished.out.find("(plug-in loaded)"), finished.out.rfind("(plug-in loaded)"));
}

TEST_F(WatchTest, EndsWithStatusZeroIfNothingFailed) {
  StartWithFake();
  Write("a.txt");
  WaitFor("ok    a.txt");
  EXPECT_EQ(Stop(SIGTERM).status, 0);
  EXPECT_EQ(Outcomes(), Lines{"run/a.txt passed"});
}

TEST_F(WatchTest, PassesOverWhatIsThereIfAsked) {
  Write("old.txt");
  StartWithFake({"--new-only"});
  // By then the look at the start is over.
  for (int i = 0; !HasSaid("ok    new") && i < 3000; ++i) {
    Write("new" + std::to_string(i / 100) + ".txt");
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  Write("old.txt", "longer\n");
  WaitFor("ok    old.txt");
  const std::string out = m_process->OutSoFar();
  EXPECT_LT(out.find("ok    new"), out.find("ok    old.txt"));
  Stop();
}

TEST_F(WatchTest, TheLastVerdictOnADatafileThatIsWrittenAgainCounts) {
  const DataFile sample = DataFile::Sample(TAGGING);
  const std::string name = TAGGING + " 1.txt";
  Start();
  // Half of it, for longer than a second.
  Write(name, sample.Text().substr(0, 300));
  WaitFor("FAIL  " + name);
  std::ofstream(m_folder / "run/" + name, std::ios::app) << sample.Text().substr(300);
  WaitFor("ok    " + name);
  EXPECT_EQ(Stop().status, 0);
  const json results = Results();
  ASSERT_EQ(results.at("datafiles").size(), 1u);
  EXPECT_EQ(results.at("datafiles").at(0).at("outcome"), "passed");
  EXPECT_EQ(results.at("datafiles").at(0).at("remarks").at(0),
            "It was verified before, and has changed since.");
}

TEST_F(WatchTest, VerifiesWhatIsMovedIntoTheFolderAndRenamed) {
  StartWithFake();
  File("a.part");
  fs::rename(m_folder / "a.part", m_folder / "run/a.txt");
  WaitFor("ok    a.txt");
  fs::rename(m_folder / "run/a.txt", m_folder / "run/b.txt");
  WaitFor("ok    b.txt");
  EXPECT_EQ(Stop().status, 0);
  EXPECT_EQ(Outcomes(), (Lines{"run/a.txt passed", "run/b.txt passed"}));
}

TEST_F(WatchTest, GoesOnWhenDatafilesVanish) {
  StartWithFake();
  for (int i = 0; i < 50; ++i) {
    Write("gone.txt");
    fs::remove(m_folder / "run/gone.txt");
  }
  Write("a.txt");
  WaitFor("ok    a.txt");
  fs::remove(m_folder / "run/a.txt");
  Write("b.txt");
  WaitFor("ok    b.txt");
  EXPECT_EQ(Stop().status, 0);
  EXPECT_EQ(Outcomes(), (Lines{"run/a.txt passed", "run/b.txt passed"}));
}

TEST_F(WatchTest, GoesOnWhenTheFolderIsMadeAnew) {
  StartWithFake();
  Write("a.txt");
  WaitFor("ok    a.txt");
  fs::remove_all(m_folder / "run");
  fs::create_directory(m_folder / "run");
  Write("b.txt");
  WaitFor("ok    b.txt");
  EXPECT_EQ(Stop().status, 0);
}

TEST_F(WatchTest, TakesABurstOfAThousand) {
  StartWithFake();
  for (int i = 0; i < 1000; ++i) Write("e.om5 " + std::to_string(i) + ".txt");
  ASSERT_TRUE(Eventually([this] {
    const std::string out = m_process->OutSoFar();
    std::size_t count = 0;
    for (std::size_t at = 0; (at = out.find("ok    e.om5", at)) != std::string::npos; ++at) ++count;
    return count >= 1000;
  }));
  EXPECT_EQ(Stop().status, 0);
  const json results = Results();
  EXPECT_EQ(results.at("datafiles").size(), 1000u);
  for (const json& datafile : results.at("datafiles")) EXPECT_EQ(datafile.at("outcome"), "passed");
}

TEST_F(WatchTest, ACrashCostsOneDatafile) {
  StartWithFake();
  for (const char* name : {"1.txt", "2-crash-.txt", "3.txt"}) Write(name);
  WaitFor("FAIL  2-crash-.txt: crashed: signal 6 (Aborted)\n");
  WaitFor("ok    3.txt");
  Write("4.txt");
  WaitFor("ok    4.txt");
  EXPECT_EQ(Stop().status, 1);
  EXPECT_EQ(Outcomes(), (Lines{"run/1.txt passed", "run/2-crash-.txt crashed", "run/3.txt passed",
                               "run/4.txt passed"}));
}

TEST_F(WatchTest, ControlCEndsItInTheMiddleOfADatafile) {
  StartWithFake();
  Write("1.txt");
  WaitFor("ok    1.txt");
  Write("2-hang-.txt");
  ASSERT_TRUE(Eventually([this] { return Calls().find("2-hang-") != std::string::npos; }));
  EXPECT_EQ(Stop().status, 1);  // the plug-in would hang for ever
  EXPECT_EQ(Outcomes(), (Lines{"run/1.txt passed", "run/2-hang-.txt lost"}));
}

TEST_F(WatchTest, TellsWhatCameAndWasNotVerified) {
  StartWithFake();
  Write("1.txt");
  WaitFor("ok    1.txt");
  kill(m_process->Pid(), SIGSTOP);
  Write("2.txt");
  kill(m_process->Pid(), SIGINT);
  EXPECT_EQ(Stop(SIGCONT).status, 1);
  EXPECT_EQ(Outcomes(), (Lines{"run/1.txt passed", "run/2.txt lost"}));
  EXPECT_EQ(Results().at("datafiles").at(1).at("remarks").at(0),
            "Not verified: the watch ended before it was complete.");
}

TEST_F(WatchTest, SaysWhatIsWrongWithStimulusAreasAndGoesOn) {
  Write("a.stimareas.tsv", "nonsense\n");
  StartWithFake();
  Write("a.txt");
  WaitFor("FAIL  a.txt: 0 passed, 0 failed\n    Not verified: ");
  Write("b.txt");
  WaitFor("ok    b.txt");
  EXPECT_EQ(Stop().status, 1);
  const std::string remark = Results().at("datafiles").at(0).at("remarks").at(0);
  EXPECT_EQ(remark.find("Not verified: run/a.stimareas.tsv:1: the heading line must be"), 0u)
      << remark;
}

TEST_F(WatchTest, TakesOnlyWhatMatches) {
  StartWithFake({"--only", "bells*"});
  Write("rings.om5 1.txt");
  Write("bells.om5 1.txt");
  WaitFor("ok    bells.om5 1.txt");
  EXPECT_EQ(Stop().status, 0);
  EXPECT_EQ(Outcomes(), Lines{"run/bells.om5 1.txt passed"});
}

TEST_F(WatchTest, LeavesTheFolderAlone) {
  StartWithFake();
  Write("a.txt");
  WaitFor("ok    a.txt");
  Stop();
  EXPECT_EQ(NamesIn(m_folder / "run"), Lines{"a.txt"});
}

TEST_F(WatchTest, RefusesWhatIsNoFolder) {
  File("a.txt");
  for (const char* folder : {"missing", "a.txt"}) {
    const Finished finished = Verify({"watch", folder, "--json", "results.json"});
    EXPECT_EQ(finished.status, 2);
    EXPECT_EQ(finished.err, std::string("verify-datafiles: ") + folder + ": no such folder\n");
    EXPECT_FALSE(Exists(m_folder / "results.json"));
  }
  EXPECT_EQ(Verify({"watch"}).status, 2);
}

TEST_F(WatchTest, APluginThatDoesNotLoadIsNoReport) {
  Write("a.txt");
  const Finished finished = Verify({"watch", "run", "--plugin", OMBRELIA_NO_PLUGIN});
  EXPECT_EQ(finished.status, 4) << finished.err;
}

TEST_F(WatchTest, ADatafileOfThisNameIsReachable) {
  EXPECT_NE(Verify({"./" + File("watch")}).out.find("FAIL  watch: "), std::string::npos);
}

TEST_F(WatchTest, HelpHasAnExample) {
  EXPECT_NE(Verify({"watch", "--help"}).out.find("Example:\n  verify-datafiles watch "),
            std::string::npos);
}

}  // namespace
}  // namespace Tests
