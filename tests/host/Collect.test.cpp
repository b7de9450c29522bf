// The subcommand that joins the reports that processes of the host have left.
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "host/results/ResultsJson.h"
#include "tests/BuildPaths.h"
#include "tests/host/ReadXml.h"
#include "tests/host/VerifyDatafiles.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

class CollectTest : public VerifyDatafilesTest {
 protected:
  void SetUp() override { std::filesystem::create_directories(m_folder / "left/m2"); }

  // What a process leaves, with its report if one is given. folder: below the one that is collected.
  void Leave(pid_t process, const std::string& report, const std::string& folder = ".") {
    const std::string where = "left/" + folder + "/";
    File(where + FlagFileName(process), "\n");
    if (report.empty()) return;
    const std::string suite = "name=\"s\"";
    std::string text = report;
    const std::size_t at = text.find(suite);
    if (at != std::string::npos) {
      text.replace(at, suite.size(), "name=\"s_pid_" + std::to_string(process) + "\"");
    }
    File(where + ReportName(process), text);
  }
  static std::string GoodReport() {
    return ReportWith(3, 0,
                      FirstResults() + Passing("test003VerifyDatafile_was_called_for_bells.om5"));
  }
  static std::string FailingReport(const std::string& message = "m") {
    return ReportWith(4, 1,
                      FirstResults() + Passing("test003VerifyDatafile_was_called_for_drums.om5") +
                          Failing("test004drums_roll", "s", "Whichever/File:7", message));
  }
  // As Verify, but what it says keeps the numbers of processes.
  Finished Collect(const Arguments& more = {}) {
    Arguments all = {"collect", "left"};
    all.insert(all.end(), more.begin(), more.end());
    return RunProgram(Command(all), SetupWith({}));
  }
  RunResults Json() {
    return RunResultsFromJson(nlohmann::json::parse(ReadFile(m_folder / "all.json")));
  }
};

TEST_F(CollectTest, ReportsOfManyProcessesAreOneRun) {
  Leave(30, GoodReport());
  Leave(4, FailingReport(), "m2");
  const Finished finished = Collect();
  EXPECT_EQ(finished.status, 1) << finished.err;
  EXPECT_EQ(finished.err, "");
  EXPECT_EQ(finished.out,
            "ok    (plug-in loaded): 1 passed, 0 failed\n"
            "ok    bells.om5 (process 30, data file 1): 2 passed, 0 failed\n"
            "FAIL  drums.om5 (process 4, data file 1): 2 passed, 1 failed\n"
            "  m2/drums.om5 (process 4, data file 1): drums_roll\n"
            "    s\n"
            "    m\n"
            "    Whichever/File:7\n"
            "\n"
            "Not passed:\n"
            "  m2/drums.om5 (process 4, data file 1): 1 failed\n"
            "\n"
            "Data files: 2; tests: 6, 5 passed, 1 failed\n"
            "Machine: ordinary\n"
            "Report: left/FakeUnitTestsDataHookExperimentRunning_30.xml\n"
            "Report: left/m2/FakeUnitTestsDataHookExperimentRunning_4.xml\n");
}

TEST_F(CollectTest, WritesJsonAndJUnit) {
  Leave(30, GoodReport());
  Leave(31, FailingReport());
  EXPECT_EQ(Collect({"--json", "all.json", "--junit", "all.xml", "-q"}).status, 1);
  const RunResults results = Json();
  ASSERT_EQ(results.datafiles.size(), 2u);
  EXPECT_EQ(results.datafiles[0].experiment, "bells.om5");
  EXPECT_EQ(results.datafiles[1].outcome, Outcome::Failed);
  EXPECT_EQ(results.datafiles[1].tests.at(2).subject, "s");
  EXPECT_EQ(results.datafiles[1].digest, "");
  EXPECT_EQ(results.started.size(), std::string("2026-03-01T12:00:00Z").size());
  const XmlElement junit = ReadXml(ReadFile(m_folder / "all.xml"));
  EXPECT_EQ(junit["tests"], "7");
  EXPECT_EQ(junit["failures"], "1");
  // Two of one experiment are two.
  Leave(32, GoodReport());
  EXPECT_EQ(Collect({"--json", "all.json"}).status, 1);
  EXPECT_EQ(Verify({"merge", "all.json", "-q", "--json", "merged.json"}).status, 1);
  EXPECT_EQ(nlohmann::json::parse(ReadFile(m_folder / "merged.json")).at("datafiles").size(), 3u);
}

TEST_F(CollectTest, AProcessThatDiedIsNamed) {
  Leave(30, GoodReport());
  Leave(31, "", "m2");
  const Finished finished = Collect({"--json", "all.json", "--junit", "all.xml"});
  EXPECT_EQ(finished.status, 3);
  EXPECT_EQ(finished.err,
            "verify-datafiles: left/m2/special_flag_file_31.dat: process 31 in m2 died, or has not "
            "ended yet: it left this flag file and no report\n");
  EXPECT_NE(finished.out.find("ok    bells.om5"), std::string::npos) << finished.out;
  EXPECT_EQ(Json().faults.size(), 1u);
  // A server that reads the JUnit file alone sees it, too.
  const XmlElement junit = ReadXml(ReadFile(m_folder / "all.xml"));
  EXPECT_EQ(junit["failures"], "1");
  EXPECT_NE(ElementsOf(junit, "failure").at(0).text.find("process 31 in m2 died"),
            std::string::npos);
}

TEST_F(CollectTest, FlagFilesWithoutAnyReportAreEnough) {
  Leave(31, "");
  Leave(7, "");
  const Finished finished = Collect();
  EXPECT_EQ(finished.status, 3);
  EXPECT_LT(finished.err.find("process 7 "), finished.err.find("process 31 ")) << finished.err;
}

// A report that was placed there in advance is moved to the name of the process that loads the plug-in.
TEST_F(CollectTest, AReportThatTheProcessDidNotWriteIsNoReportOfIt) {
  Leave(30, GoodReport());
  std::filesystem::rename(m_folder / ("left/" + ReportName(30)),
                          m_folder / ("left/" + ReportName(31)));
  File("left/" + FlagFileName(31), "\n");
  Leave(30, GoodReport());
  const Finished finished = Collect();
  EXPECT_EQ(finished.status, 3);
  EXPECT_NE(finished.err.find("process 31 died, or has not ended yet: the report of this name was "
                              "not written by it"),
            std::string::npos)
      << finished.err;
  EXPECT_NE(finished.out.find("\nData files: 1;"), std::string::npos) << finished.out;
}

TEST_F(CollectTest, AReportWithoutItsFlagFileCounts) {
  Leave(30, GoodReport());
  std::filesystem::remove(m_folder / ("left/" + FlagFileName(30)));
  EXPECT_EQ(Collect().status, 0);
}

TEST_F(CollectTest, AMalformedReportIsRepairedAndNamed) {
  Leave(30, FailingReport("a]]>b"));
  const Finished finished = Collect({"--json", "all.json", "-q"});
  EXPECT_EQ(finished.status, 3);
  EXPECT_NE(finished.err.find("broken by ]]> in the message of test test004drums_roll"),
            std::string::npos)
      << finished.err;
  EXPECT_EQ(Json().datafiles.at(0).tests.at(2).message, "a]]>b");
  EXPECT_EQ(NamesIn(m_folder / "left").size(), 3u) << "nothing is written beside the reports";
}

TEST_F(CollectTest, AFormerRepairedCopyCountsOnlyWhereTheReportIsGone) {
  Leave(30, FailingReport("a]]>b"));
  EXPECT_EQ(Verify({"repair", "left/" + ReportName(30)}).status, 0);
  const Finished both = Collect();
  EXPECT_EQ(both.status, 3);
  EXPECT_NE(both.out.find("\nData files: 1;"), std::string::npos) << both.out;
  std::filesystem::remove(m_folder / ("left/" + ReportName(30)));
  const Finished copyAlone = Collect();
  EXPECT_EQ(copyAlone.status, 1) << copyAlone.err;
  EXPECT_NE(copyAlone.out.find("\nData files: 1;"), std::string::npos) << copyAlone.out;
}

TEST_F(CollectTest, ATruncatedReportGivesWhatItHolds) {
  const std::string report = GoodReport();
  Leave(30, report.substr(0, report.find("    </testsuite>")));
  const Finished finished = Collect({"--json", "all.json"});
  EXPECT_EQ(finished.status, 3);
  EXPECT_NE(finished.out.find("ok    (plug-in loaded)"), std::string::npos) << finished.out;
  ASSERT_EQ(Json().datafiles.size(), 1u);
  EXPECT_EQ(Json().datafiles[0].outcome, Outcome::Passed) << "all that the head counts is there";

  Leave(30, report.substr(0, report.find("        <testcase name=\"test003")));
  const Finished cut = Collect({"--json", "all.json", "--junit", "all.xml"});
  EXPECT_EQ(cut.status, 3);
  EXPECT_NE(cut.err.find("the report's head counts 3 tests, 0 failing, its entries are 2 tests"),
            std::string::npos)
      << cut.err;
  EXPECT_EQ(Json().datafiles.at(0).outcome, Outcome::Lost);
  EXPECT_EQ(ReadXml(ReadFile(m_folder / "all.xml"))["failures"], "1");
}

// The plug-in makes an empty report and fills it then.
TEST_F(CollectTest, HostileReportsEndWithAWord) {
  const std::string much(1000000, '<');
  for (const std::string& report :
       {std::string("\n"), std::string("<?xml"), std::string("\xFF\xFE\x00", 3), much,
        std::string("<testsuite name=\"s_pid_30\">") + much, FailingReport(much),
        FailingReport("\xFF\xC0\x80"), FailingReport("]]></failure></testcase></testsuite>")}) {
    Leave(30, report);
    const Finished finished = Collect({"--json", "all.json", "--junit", "all.xml", "-q"});
    // A megabyte of markup characters is no fault in the text of a message.
    EXPECT_EQ(finished.status, report == FailingReport(much) ? 1 : 3) << report.substr(0, 99);
    ReadXml(ReadFile(m_folder / "all.xml"));
    Json();
  }
}

TEST_F(CollectTest, DatafilesWithoutVerifierAndUnreadableOnesKeepTheirNames) {
  Leave(30,
        ReportWith(6, 2,
                   FirstResults() + Failing("test003locating_verifier_for_who 3", "s", "l", "m") +
                       Passing("test004DataHookOutputTestingPlugin_PerformPostProcessing_was_"
                               "called") +
                       Passing("test005VerifyDatafile_was_called_for_bells.om5") +
                       Failing("test006open_and_parse_bells.om5 4", "s", "l", "m")));
  const Finished finished = Collect({"--json", "all.json"});
  EXPECT_EQ(finished.status, 1) << finished.err;
  const RunResults results = Json();
  ASSERT_EQ(results.datafiles.size(), 2u);
  EXPECT_EQ(results.datafiles[0].experiment, "who");
  EXPECT_EQ(results.datafiles[0].path, "who 3 (process 30, data file 1)");
  EXPECT_EQ(results.datafiles[0].outcome, Outcome::Unknown);
  EXPECT_EQ(results.datafiles[1].experiment, "bells.om5");
  EXPECT_EQ(results.datafiles[1].path, "bells.om5 4 (process 30, data file 2)");
  EXPECT_EQ(results.datafiles[1].outcome, Outcome::Unreadable);
}

TEST_F(CollectTest, OtherFilesAreNotTakenForTraces) {
  for (const char* name :
       {"special_flag_file_.dat", "special_flag_file_12x.dat", "special_flag_file_-1.dat",
        "special_flag_file_99999999999999999999999.dat", "special_flag_file_012.dat",
        "FakeUnitTestsDataHookExperimentRunning.xml"}) {
    File("left/" + std::string(name));
  }
  std::filesystem::create_directories(m_folder / ("left/" + ReportName(8)));
  ASSERT_EQ(mkfifo((m_folder / ("left/" + ReportName(9))).c_str(), 0600), 0);
  ASSERT_EQ(symlink(".", (m_folder / "left/again").c_str()), 0);
  EXPECT_EQ(Collect().status, 2);
  Leave(30, GoodReport());
  const Finished finished = Collect();
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_NE(finished.out.find("\nData files: 1;"), std::string::npos) << finished.out;
}

TEST_F(CollectTest, AFolderWithNothingIsWrongUse) {
  const Finished finished = Collect({"--json", "all.json"});
  EXPECT_EQ(finished.status, 2);
  EXPECT_EQ(finished.err.find("verify-datafiles: left: no process has left a report"), 0u)
      << finished.err;
  EXPECT_FALSE(Exists(m_folder / "all.json"));
  EXPECT_EQ(Verify({"collect", "missing"}).status, 2);
  EXPECT_EQ(Verify({"collect", File("file")}).status, 2);
  EXPECT_EQ(Verify({"collect"}).status, 2);
}

// Reports of the real plug-in, as two hosts leave them.
TEST_F(CollectTest, CollectsWhatRunsHaveLeft) {
  const std::string sample =
      std::string(OMBRELIA_SOURCE_DIR) + "/samples/datafiles/two_sublists_tagging.om5 1.txt";
  EXPECT_EQ(Verify({"--work-dir", "left", sample, "--json", "one.json"}).status, 0);
  EXPECT_EQ(Verify({"--work-dir", "left", sample, sample}).status, 0);
  const Finished finished = Collect({"--json", "all.json"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  const RunResults one = RunResultsFromJson(nlohmann::json::parse(ReadFile(m_folder / "one.json")));
  const RunResults all = Json();
  ASSERT_EQ(all.datafiles.size(), 3u);
  for (const DatafileResult& datafile : all.datafiles) {
    EXPECT_EQ(datafile.experiment, "two_sublists_tagging.om5");
    EXPECT_EQ(datafile.durationMs, one.datafiles[0].durationMs);
    EXPECT_EQ(datafile.expansionMs, one.datafiles[0].expansionMs);
    EXPECT_EQ(datafile.tests.size(), one.datafiles[0].tests.size());
  }
}

}  // namespace
}  // namespace Tests
