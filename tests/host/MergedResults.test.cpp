// Results of shards joined.
#include "host/results/MergedResults.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "host/results/ResultSummary.h"
#include "host/results/ResultsJson.h"
#include "tests/host/WholeResults.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

using Faults = std::vector<std::string>;

// A whole run of seven data files of which the third fails.
RunResults WholeRun() {
  RunResults results;
  results.started = "2026-03-01T12:00:00Z";
  results.seconds = 7;
  results.beforeFirst = WholeResults().beforeFirst;
  for (std::size_t i = 1; i <= 7; ++i) {
    DatafileResult datafile = WholeResults().datafiles[2];
    // The names' order is not that of the run.
    datafile.path = std::to_string(10 - i) + ".txt";
    datafile.position = i;
    if (i == 3) {
      datafile.outcome = Outcome::Failed;
      datafile.tests[1].outcome = Outcome::Failed;
    }
    results.datafiles.push_back(datafile);
  }
  return results;
}

// Each second, third... data file of the run, as a shard of it gives them.
std::vector<NamedResults> ShardsOf(const RunResults& whole, std::size_t count) {
  std::vector<NamedResults> shards;
  for (std::size_t index = 1; index <= count; ++index) {
    RunResults shard = whole;
    shard.shard = Shard{index, count};
    shard.datafiles.clear();
    shard.seconds = whole.seconds / static_cast<double>(count);
    for (std::size_t i = index - 1; i < whole.datafiles.size(); i += count) {
      shard.datafiles.push_back(whole.datafiles[i]);
    }
    shards.push_back({std::to_string(index) + ".json", shard});
  }
  return shards;
}

TEST(MergedResults, FourShardsAreOneRun) {
  const RunResults merged = MergeResults(ShardsOf(WholeRun(), 4));
  EXPECT_EQ(ToJson(merged), ToJson(WholeRun()));
  EXPECT_EQ(ExitStatusOf(merged, false), ExitStatus::SomeFailingTest);
}

TEST(MergedResults, InWhateverOrderTheyCome) {
  std::vector<NamedResults> shards = ShardsOf(WholeRun(), 4);
  std::reverse(shards.begin(), shards.end());
  EXPECT_EQ(ToJson(MergeResults(shards)), ToJson(WholeRun()));
}

TEST(MergedResults, AShardWithoutDataFilesIsThere) {
  const RunResults merged = MergeResults(ShardsOf(WholeRun(), 9));
  EXPECT_TRUE(merged.faults.empty());
  EXPECT_EQ(merged.datafiles.size(), 7u);
}

TEST(MergedResults, MissingShardsAreNamed) {
  std::vector<NamedResults> shards = ShardsOf(WholeRun(), 9);
  for (const int gone : {8, 6, 5, 4, 1}) shards.erase(shards.begin() + gone);
  const RunResults merged = MergeResults(shards);
  EXPECT_EQ(merged.faults, (Faults{"missing of 9 shards: 2, 5 to 7, 9"}));
  EXPECT_EQ(merged.datafiles.size(), 3u) << "what is there is joined";
  EXPECT_EQ(ExitStatusOf(merged, false), ExitStatus::MalformedReport);
}

TEST(MergedResults, AHugeNumberOfShardsIsNoDanger) {
  std::vector<NamedResults> shards = ShardsOf(WholeRun(), 1);
  shards[0].results.shard = Shard{1, 1000000000000000000};
  EXPECT_EQ(MergeResults(shards).faults,
            (Faults{"missing of 1000000000000000000 shards: 2 to 1000000000000000000"}));
}

TEST(MergedResults, ShardsOfDifferentRunsAreNamed) {
  std::vector<NamedResults> shards = ShardsOf(WholeRun(), 2);
  shards.push_back({"other.json", ShardsOf(WholeRun(), 3)[2].results});
  EXPECT_EQ(MergeResults(shards).faults,
            (Faults{"the shards are not of one run: 1.json is one of 2, other.json is one of 3",
                    "missing of 3 shards: 1 to 2"}));
}

TEST(MergedResults, OneDataFileTwiceWithOneVerdictIsOne) {
  std::vector<NamedResults> shards = ShardsOf(WholeRun(), 2);
  shards.push_back(shards.front());
  // Nothing of this is a verdict.
  DatafileResult& again = shards.back().results.datafiles[0];
  again.seconds = 99;
  again.tests[1].number = 99;
  again.tests[1].name = "__TIMING__TRACKING__good.om4__813_ms";
  const RunResults merged = MergeResults(shards);
  EXPECT_TRUE(merged.faults.empty());
  EXPECT_EQ(merged.datafiles.size(), 7u);
}

TEST(MergedResults, OneDataFileWithTwoVerdictsIsNamed) {
  RunResults one = WholeRun();
  RunResults other = WholeRun();
  one.datafiles.resize(1);
  other.datafiles.resize(1);
  other.datafiles[0].outcome = Outcome::Crashed;
  other.datafiles[0].tests.clear();
  for (const bool failingFirst : {false, true}) {
    std::vector<NamedResults> parts = {{"a.json", one}, {"b.json", other}};
    if (failingFirst) std::swap(parts[0].results, parts[1].results);
    const RunResults merged = MergeResults(parts);
    EXPECT_EQ(
        merged.faults,
        (Faults{failingFirst ? "9.txt has two verdicts: crashed in a.json, passed in b.json"
                             : "9.txt has two verdicts: passed in a.json, crashed in b.json"}));
    ASSERT_EQ(merged.datafiles.size(), 1u);
    EXPECT_EQ(merged.datafiles[0].outcome, Outcome::Crashed) << "the one that did not pass stays";
  }
}

TEST(MergedResults, OtherFailingTestsAreAnotherVerdict) {
  RunResults other = WholeRun();
  other.datafiles[2].tests[0].outcome = Outcome::Failed;
  const RunResults merged = MergeResults({{"a.json", WholeRun()}, {"b.json", other}});
  EXPECT_EQ(merged.faults, (Faults{"7.txt has two verdicts: failed in a.json, failed in b.json, of "
                                   "different tests"}));
}

TEST(MergedResults, TheSamePathWithOtherBytesIsAnotherDataFile) {
  RunResults other = WholeRun();
  other.datafiles.resize(3);
  other.datafiles[2].digest = "other";
  other.datafiles[2].outcome = Outcome::Passed;
  const RunResults merged = MergeResults({{"a.json", WholeRun()}, {"b.json", other}});
  EXPECT_TRUE(merged.faults.empty());
  EXPECT_EQ(merged.datafiles.size(), 8u);
}

TEST(MergedResults, WithoutPlacesTheOrderIsThatOfTheParts) {
  RunResults whole = WholeRun();
  for (DatafileResult& datafile : whole.datafiles) datafile.position = 0;
  const RunResults merged = MergeResults(ShardsOf(whole, 2));
  std::vector<std::string> paths;
  for (const DatafileResult& datafile : merged.datafiles) paths.push_back(datafile.path.string());
  EXPECT_EQ(paths, (std::vector<std::string>{"9.txt", "7.txt", "5.txt", "3.txt", "8.txt", "6.txt",
                                             "4.txt"}));
}

TEST(MergedResults, MachinesOfDifferentKindsAreNamed) {
  std::vector<NamedResults> shards = ShardsOf(WholeRun(), 2);
  shards[1].results.machine = MachineKind::Large;
  EXPECT_EQ(MergeResults(shards).faults,
            (Faults{"machines of different kinds judged: 1.json is of one that is ordinary, 2.json "
                    "of one that is large"}));
}

TEST(MergedResults, TheEarliestStartAndAllFaultsStay) {
  std::vector<NamedResults> shards = ShardsOf(WholeRun(), 2);
  shards[1].results.started = "2026-03-01T11:59:59Z";
  shards[1].results.faults = {"the report of shard 2 is malformed"};
  const RunResults merged = MergeResults(shards);
  EXPECT_EQ(merged.started, "2026-03-01T11:59:59Z");
  EXPECT_EQ(merged.faults, (Faults{"the report of shard 2 is malformed"}));
}

TEST(MergedResults, WhatThePluginRecordsFirstStandsOnceUnlessItDiffers) {
  std::vector<NamedResults> shards = ShardsOf(WholeRun(), 3);
  TestOutcome assertion;
  assertion.name = "TestingPluginDH_AssertionFailure_00001";
  assertion.outcome = Outcome::Failed;
  assertion.message = "one";
  shards[1].results.beforeFirst.push_back(assertion);
  assertion.message = "another";
  shards[2].results.beforeFirst.push_back(assertion);
  const RunResults merged = MergeResults(shards);
  ASSERT_EQ(merged.beforeFirst.size(), 3u);
  EXPECT_EQ(merged.beforeFirst[1].message, "one");
  EXPECT_EQ(merged.beforeFirst[2].message, "another");
}

TEST(MergedResults, TheExitStatusFollowsWhatIsThere) {
  RunResults results;
  results.datafiles = {WholeResults().datafiles[2]};
  EXPECT_EQ(ExitStatusOf(results, false), ExitStatus::NoFailingTest);
  results.datafiles.push_back(WholeResults().datafiles[3]);
  EXPECT_EQ(ExitStatusOf(results, true), ExitStatus::NoFailingTest);
  EXPECT_EQ(ExitStatusOf(results, false), ExitStatus::SomeFailingTest) << "a tolerated failure";
  for (const std::size_t other : {0u, 4u, 5u, 6u, 7u, 8u}) {
    results.datafiles[1] = WholeResults().datafiles[other];
    EXPECT_EQ(ExitStatusOf(results, true), ExitStatus::SomeFailingTest) << other;
  }
  results.datafiles.resize(1);
  results.beforeFirst = {WholeResults().datafiles[0].tests[1]};
  EXPECT_EQ(ExitStatusOf(results, true), ExitStatus::SomeFailingTest) << "of the plug-in itself";
}

}  // namespace
}  // namespace Tests
