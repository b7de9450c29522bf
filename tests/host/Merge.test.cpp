// The subcommand that joins the results of shards.
#include <nlohmann/json.hpp>

#include "host/results/ResultsJson.h"
#include "tests/BuildPaths.h"
#include "tests/host/ReadXml.h"
#include "tests/host/VerifyDatafiles.h"
#include "tests/host/WholeResults.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

class MergeTest : public VerifyDatafilesTest {
 protected:
  // Writes a shard of a run of two data files, of which the first fails, and gives its file's name.
  std::string ShardFile(std::size_t index) {
    RunResults results;
    results.started = "2026-03-01T12:00:00Z";
    results.seconds = 1;
    results.shard = Shard{index, 2};
    results.beforeFirst = WholeResults().beforeFirst;
    results.datafiles = {WholeResults().datafiles[index == 1 ? 0 : 2]};
    results.datafiles[0].position = index;
    results.reports = {"/report_" + std::to_string(index) + ".xml"};
    return File(std::to_string(index) + ".json", JsonText(ToJson(results)));
  }
  void ExpectRefused(const std::string& content, const std::string& words) {
    const Finished finished = Verify({"merge", File("bad.json", content)});
    EXPECT_EQ(finished.status, 2);
    EXPECT_EQ(finished.err.find("verify-datafiles: bad.json: no results of format 1: "), 0u)
        << finished.err;
    EXPECT_NE(finished.err.find(words), std::string::npos) << finished.err;
    EXPECT_EQ(finished.out, "");
  }
};

TEST_F(MergeTest, ShardsPrintAsOneRun) {
  const Finished finished = Verify({"merge", ShardFile(2), ShardFile(1)});
  EXPECT_EQ(finished.status, 1) << finished.err;
  EXPECT_EQ(finished.err, "");
  EXPECT_EQ(finished.out,
            "ok    (plug-in loaded): 1 passed, 0 failed\n"
            "FAIL  two_sublists_tagging.om5 3.txt: 1 passed, 1 failed\n"
            "  runs/two_sublists_tagging.om5 3.txt:11: Data_appears_completely_and_in_order\n"
            "    Mismatch in the ordering of data cells in datafile.\n"
            "      line  row  color  expected\n"
            "         9    2  blue\n"
            "        10    3  red\n"
            "    >   11    4  blue   red\n"
            "        12    5  blue\n"
            "    At datafile row index 4 we expected {red}, but that was not the actual content.\n"
            "ok    good.om4 1.txt: 2 passed, 0 failed\n"
            "\n"
            "Not passed:\n"
            "  runs/two_sublists_tagging.om5 3.txt:11: 1 failed\n"
            "\n"
            "Data files: 2; tests: 5, 4 passed, 1 failed\n"
            "Machine: ordinary\n"
            "Report: /report_2.xml\n"
            "Report: /report_1.xml\n");
}

TEST_F(MergeTest, WritesTheJoinedResults) {
  const Finished finished = Verify(
      {"merge", ShardFile(1), ShardFile(2), "--json", "all.json", "--junit", "all.xml", "--quiet"});
  EXPECT_EQ(finished.status, 1) << finished.err;
  const nlohmann::json joined = nlohmann::json::parse(ReadFile(m_folder / "all.json"));
  EXPECT_EQ(joined.at("datafiles").size(), 2u);
  EXPECT_FALSE(joined.contains("shard"));
  const XmlElement report = ReadXml(ReadFile(m_folder / "all.xml"));
  EXPECT_EQ(report["tests"], "6") << "that of the tolerance, too";
  EXPECT_EQ(report["failures"], "1");
  EXPECT_NE(ElementsOf(report, "testsuite")[0]["hostname"], "");
}

TEST_F(MergeTest, AMissingShardIsStatusThreeAndNamed) {
  const Finished finished = Verify({"merge", ShardFile(2), "--json", "all.json"});
  EXPECT_EQ(finished.status, 3);
  EXPECT_EQ(finished.err, "verify-datafiles: missing of 2 shards: 1\n");
  EXPECT_NE(finished.out.find("ok    good.om4 1.txt"), std::string::npos) << finished.out;
  // Joining it again does not make it whole.
  EXPECT_EQ(Verify({"merge", "all.json"}).status, 3);
}

TEST_F(MergeTest, TwoVerdictsAreStatusThreeAndNamed) {
  RunResults other;
  other.started = "2026-03-01T12:00:00Z";
  other.datafiles = {WholeResults().datafiles[2]};
  other.datafiles[0].outcome = Outcome::TimedOut;
  File("other.json", JsonText(ToJson(other)));
  const Finished finished = Verify({"merge", ShardFile(1), ShardFile(2), "other.json"});
  EXPECT_EQ(finished.status, 3);
  EXPECT_EQ(
      finished.err,
      "verify-datafiles: runs/good.om4 1.txt has two verdicts: passed in 2.json, timed out in "
      "other.json\n");
}

TEST_F(MergeTest, ToleratedFailuresPassOnRequestOnly) {
  RunResults results;
  results.started = "2026-03-01T12:00:00Z";
  results.datafiles = {WholeResults().datafiles[3]};
  File("t.json", JsonText(ToJson(results)));
  EXPECT_EQ(Verify({"merge", "t.json"}).status, 1);
  const Finished tolerating = Verify({"merge", "t.json", "--tolerate"});
  EXPECT_EQ(tolerating.status, 0);
  EXPECT_NE(tolerating.out.find("TOL   by_chance.om4 1.txt"), std::string::npos);
}

TEST_F(MergeTest, WhatIsNoResultsIsRefused) {
  ExpectRefused("", "parse error");
  ExpectRefused("<xml/>", "parse error");
  ExpectRefused("[]", "no object");
  ExpectRefused("{\"format\": 2}", "the format is 2, not 1");
  ExpectRefused("{\"format\": 1}", "machine");
  ExpectRefused("{\"format\": 1, \"machine\": \"ordinary\", \"started\": \"\xFF\"}", "UTF-8");
  ExpectRefused(std::string(1000000, '['), "parse error");
  EXPECT_EQ(Verify({"merge", "missing.json"}).err,
            "verify-datafiles: missing.json: the file cannot be read\n");
  EXPECT_EQ(Verify({"merge"}).status, 2);
}

TEST_F(MergeTest, AFileThatCannotBeWrittenIsNamedBeforeAnythingIsPrinted) {
  for (const char* option : {"--json", "--junit"}) {
    const Finished finished = Verify({"merge", ShardFile(1), ShardFile(2), option, "no/such.x"});
    EXPECT_EQ(finished.status, 2);
    EXPECT_EQ(finished.err, "verify-datafiles: no/such.x: the file cannot be written\n");
    EXPECT_EQ(finished.out, "");
  }
}

TEST_F(MergeTest, AFileThatCannotBeWrittenToItsEndIsStatusFour) {
  if (!Exists("/dev/full")) GTEST_SKIP() << "no full device here";
  const Finished finished = Verify({"merge", ShardFile(1), ShardFile(2), "--json", "/dev/full"});
  EXPECT_EQ(finished.status, 4);
  EXPECT_NE(finished.err.find("/dev/full: the file could not be written\n"), std::string::npos);
}

TEST_F(MergeTest, ColorIsForTerminalsOrOnRequest) {
  const std::string red = "\x1B[31mFAIL";
  EXPECT_EQ(Verify({"merge", ShardFile(1)}).out.find('\x1B'), std::string::npos);
  EXPECT_NE(Verify({"merge", ShardFile(1), "--color", "always"}).out.find(red), std::string::npos);
  EXPECT_NE(Verify({"merge", ShardFile(1), "--color", "always"}, {"NO_COLOR=1"}).out.find(red),
            std::string::npos)
      << "what is asked for goes before";
}

TEST_F(MergeTest, InAGitHubJobFailuresAreAnnotatedAndSummedUp) {
  const Finished finished =
      Verify({"merge", ShardFile(1), ShardFile(2)},
             {"GITHUB_ACTIONS=true", "GITHUB_STEP_SUMMARY=" + (m_folder / "summary.md")});
  EXPECT_EQ(finished.status, 1);
  const std::string stop = "::stop-commands::";
  ASSERT_EQ(finished.out.find(stop), 0u) << finished.out;
  const std::string token = finished.out.substr(stop.size(), finished.out.find('\n') - stop.size());
  EXPECT_GT(token.size(), 20u);
  const std::size_t resumed = finished.out.find("\n::" + token + "::\n");
  ASSERT_NE(resumed, std::string::npos) << finished.out;
  EXPECT_LT(finished.out.find("FAIL  two_sublists"), resumed);
  const std::size_t error =
      finished.out.find("\n::error file=runs/two_sublists_tagging.om5 3.txt,line=11,");
  ASSERT_NE(error, std::string::npos) << finished.out;
  EXPECT_GT(error, resumed);
  EXPECT_EQ(ReadFile(m_folder / "summary.md").find("### verify-datafiles\n"), 0u);
}

}  // namespace
}  // namespace Tests
