// The JUnit report for servers, read back by two independent parsers.
#include "host/print/JUnitPrinter.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "host/results/CodePoints.h"
#include "tests/BuildPaths.h"
#include "tests/host/ReadXml.h"
#include "tests/host/WholeResults.h"
#include "tests/support/Files.h"
#include "tests/support/Process.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

std::string Printed(const RunResults& results) {
  std::ostringstream out;
  JUnitPrinter(out, "builder-7").Print(results);
  return out.str();
}

XmlElement Report(const RunResults& results) { return ReadXml(Printed(results)); }

XmlElement Case(const XmlElement& report, const std::string& suite, const std::string& name) {
  for (const XmlElement& testCase : ElementsOf(report, "testcase")) {
    if (testCase["classname"] == suite && testCase["name"] == name) return testCase;
  }
  ADD_FAILURE() << "no case " << suite << " " << name;
  return XmlElement();
}

TEST(JUnitPrinter, IsThisText) {
  RunResults results;
  results.started = "2026-03-01T12:00:00Z";
  results.seconds = 0.5;
  results.beforeFirst = WholeResults().beforeFirst;
  results.datafiles = {DatafileWithOneWrongCell()};
  EXPECT_EQ(Printed(results),
            R"(<?xml version="1.0" encoding="UTF-8"?>
<testsuites name="verify-datafiles" tests="3" failures="1" errors="0" skipped="0" time="0.500" timestamp="2026-03-01T12:00:00">
  <testsuite name="DataHookOutputTestingPlugin" tests="1" failures="0" errors="0" skipped="0" time="0.000" timestamp="2026-03-01T12:00:00" hostname="builder-7">
    <testcase name="SingleDummyPassingTest" classname="DataHookOutputTestingPlugin" time="0.000"/>
  </testsuite>
  <testsuite name="two_sublists_tagging.om5" tests="2" failures="1" errors="0" skipped="0" time="0.250" timestamp="2026-03-01T12:00:00" hostname="builder-7">
    <testcase name="DataHookOutputTestingPlugin_PerformPostProcessing_was_called" classname="two_sublists_tagging.om5" time="0.250" file="runs/two_sublists_tagging.om5 3.txt"/>
    <testcase name="Data_appears_completely_and_in_order" classname="two_sublists_tagging.om5" time="0.000" file="runs/two_sublists_tagging.om5 3.txt" line="11">
      <failure message="Mismatch in the ordering of data cells in datafile." type="failed">Mismatch in the ordering of data cells in datafile.
Whichever/File/Focuses/On/Verifying/x.om5:103
At datafile row index 4 we expected {red}, but that was not the actual content.
  line  row  color  expected
     9    2  blue
    10    3  red
&gt;   11    4  blue   red
    12    5  blue
</failure>
    </testcase>
  </testsuite>
</testsuites>
)");
}

TEST(JUnitPrinter, SuitesAreFlatAndInTheOrderOfTheirNames) {
  const XmlElement report = Report(WholeResults());
  std::vector<std::string> names;
  for (const XmlElement& suite : report.children) {
    EXPECT_EQ(suite.name, "testsuite");
    names.push_back(suite["name"]);
    for (const XmlElement& testCase : suite.children) {
      EXPECT_EQ(testCase.name, "testcase");
      EXPECT_EQ(testCase["classname"], suite["name"]);
      EXPECT_LE(testCase.children.size(), 1u);
    }
  }
  EXPECT_EQ(names, (std::vector<std::string>{"DataHookOutputTestingPlugin", "all_kinds.om5",
                                             "broken.om4", "by_chance.om4", "crashing.om4",
                                             "endless.om4", "good.om4", "leaving.om4", "nearly.om4",
                                             "two_sublists_tagging.om5", "verify-datafiles"}));
}

TEST(JUnitPrinter, LostDataFilesAreErrorsAndCounted) {
  const XmlElement report = Report(WholeResults());
  EXPECT_EQ(report["errors"], "3");
  EXPECT_EQ(report["failures"], "9");
  EXPECT_EQ(report["tests"], "23") << "that of the tolerance, too";
  const std::string start = "DataHookOutputTestingPlugin_PerformPostProcessing_was_called";
  const XmlElement crashed = Case(report, "crashing.om4", start);
  ASSERT_EQ(crashed.children.size(), 1u);
  EXPECT_EQ(crashed.children[0].name, "error");
  EXPECT_EQ(crashed.children[0]["type"], "crashed");
  EXPECT_EQ(crashed.children[0]["message"], "crashed: signal 11 (Segmentation fault)");
  EXPECT_EQ(crashed.children[0].text,
            "crashed: signal 11 (Segmentation fault)\nThe last lines on its standard "
            "error:\none\ntwo\n");
  EXPECT_EQ(Case(report, "endless.om4", start).children[0]["type"], "timed out");
  EXPECT_EQ(Case(report, "leaving.om4", start).children[0]["type"], "lost");
}

TEST(JUnitPrinter, WhatIsRemarkedOnADataFileStandsInItsFailures) {
  EXPECT_EQ(
      Case(Report(WholeResults()), "nearly.om4", "locating_verifier_for_nearly.om4")
          .children[0]
          .text,
      "no logic\nWhichever/File/Focuses/On/Verifying/x.om5:124\nm\nDid you mean nearby.om4?\n");
}

// What the second verification knows of a lost data file keeps its place.
TEST(JUnitPrinter, TheTestsOfALostDataFileStayBesideItsError) {
  RunResults results;
  results.datafiles = {DatafileWithOneWrongCell()};
  results.datafiles[0].outcome = Outcome::Crashed;
  results.datafiles[0].loss = Loss{6, 0, {}};
  const XmlElement report = Report(results);
  EXPECT_EQ(report["tests"], "2");
  EXPECT_EQ(report["errors"], "1");
  EXPECT_EQ(report["failures"], "1");
}

TEST(JUnitPrinter, CountsAgreeWithTheCases) {
  RunResults results = WholeResults();
  results.tolerance = ToleranceBudget{ToleranceBudget::State::Blown, {"3 of them."}};
  const XmlElement report = Report(results);
  const auto agree = [](const XmlElement& counted) {
    EXPECT_EQ(counted["tests"], std::to_string(ElementsOf(counted, "testcase").size()));
    EXPECT_EQ(counted["failures"], std::to_string(ElementsOf(counted, "failure").size()));
    EXPECT_EQ(counted["errors"], std::to_string(ElementsOf(counted, "error").size()));
    EXPECT_EQ(counted["skipped"], std::to_string(ElementsOf(counted, "skipped").size()));
  };
  agree(report);
  for (const XmlElement& suite : report.children) agree(suite);
}

TEST(JUnitPrinter, AToleratedFailurePassesAndSaysWhatChanceMakesOfIt) {
  const XmlElement passed = Case(Report(WholeResults()), "by_chance.om4", "By_chance");
  ASSERT_EQ(passed.children.size(), 1u);
  EXPECT_EQ(passed.children[0].name, "system-out");
  EXPECT_EQ(passed.children[0].text,
            "TOLERATED p=0.0714 k/n=2/400: 2 in 400, chance allows it\nrarely\n"
            "Whichever/File/Focuses/On/Verifying/x.om5:120\nm\n");
}

TEST(JUnitPrinter, OneCaseFailsWhereChanceDoesNotExplainTheToleratedFailures) {
  RunResults results;
  EXPECT_EQ(Report(results).children.size(), 1u) << "nothing was judged";
  results.tolerance = ToleranceBudget{ToleranceBudget::State::Warns, {"Two of them.", "Look."}};
  const XmlElement warned = Case(Report(results), "verify-datafiles", "tolerance-budget");
  ASSERT_EQ(warned.children.size(), 1u);
  EXPECT_EQ(warned.children[0].name, "system-out");
  EXPECT_EQ(warned.children[0].text, "Two of them.\nLook.\n");
  results.tolerance->state = ToleranceBudget::State::Kept;
  EXPECT_EQ(Report(results)["failures"], "0");
  results.tolerance->state = ToleranceBudget::State::Blown;
  const XmlElement report = Report(results);
  EXPECT_EQ(report["tests"], "1");
  EXPECT_EQ(report["failures"], "1");
  const XmlElement failed = Case(report, "verify-datafiles", "tolerance-budget").children[0];
  EXPECT_EQ(failed.name, "failure");
  EXPECT_EQ(failed["message"], "Two of them.");
  EXPECT_EQ(failed.text, "Two of them.\nLook.\n");
}

TEST(JUnitPrinter, NamesStayWhateverWasMeasuredAndWhicheverShardItWas) {
  RunResults one = WholeResults();
  RunResults other = WholeResults();
  other.shard = Shard{3, 3};
  std::reverse(other.datafiles.begin(), other.datafiles.end());
  for (DatafileResult& datafile : other.datafiles) {
    for (TestOutcome& test : datafile.tests) {
      test.number += 100;
      if (test.name == "__TIMING__TRACKING__good.om4__812_ms") {
        test.name = "__TIMING__TRACKING__good.om4__813_ms";
      }
    }
  }
  EXPECT_EQ(Printed(one), Printed(other));
}

TEST(JUnitPrinter, NamesAreUniqueAlsoWithTwoDataFilesOfAnExperiment) {
  RunResults results = WholeResults();
  results.datafiles.push_back(DatafileWithOneWrongCell());
  results.datafiles.back().path = "runs/two_sublists_tagging.om5 4.txt";
  results.datafiles.back().tests.push_back(results.datafiles.back().tests.back());
  const XmlElement report = Report(results);
  std::set<std::string> names;
  for (const XmlElement& testCase : ElementsOf(report, "testcase")) {
    EXPECT_TRUE(names.insert(testCase["classname"] + "\n" + testCase["name"]).second)
        << testCase["name"];
  }
  EXPECT_EQ(
      Case(report, "two_sublists_tagging.om5", "Data_appears_completely_and_in_order (3)")["file"],
      "runs/two_sublists_tagging.om5 4.txt");
}

TEST(JUnitPrinter, HostileTextsLeaveItWellFormedAndLoseNothingVisible) {
  RunResults results;
  for (const std::string& hostile : HostileTexts()) {
    DatafileResult datafile = DatafileWithOneWrongCell();
    datafile.experiment = hostile;
    datafile.path = hostile.substr(0, hostile.find('\0'));
    TestOutcome& test = datafile.tests[1];
    test.name = test.subject = test.location = test.message = hostile;
    test.evidence.context = {};
    test.evidence.cells[0].actual = hostile;
    test.evidence.cells[0].column = hostile;
    test.evidence.words = {hostile};
    datafile.tests.push_back(test);
    datafile.tests.back().outcome = Outcome::Tolerated;
    datafile.tests.back().chance = hostile;
    results.datafiles.push_back(datafile);
    datafile.loss = Loss{0, 1, {hostile}};
    results.datafiles.push_back(datafile);
  }
  const XmlElement report = Report(results);
  EXPECT_EQ(report["tests"], std::to_string(6 * HostileTexts().size()));
  for (const XmlElement& testCase : ElementsOf(report, "testcase")) {
    EXPECT_LE(CodePointsOf(testCase["name"]).size(), 200u);
  }
  const std::vector<XmlElement> failures = ElementsOf(report, "failure");
  const auto has = [&](const std::string& message) {
    return std::any_of(failures.begin(), failures.end(),
                       [&](const XmlElement& failure) { return failure["message"] == message; });
  };
  EXPECT_TRUE(has("]]></failure></testcase><testcase name=\"x\"/>"));
  EXPECT_TRUE(has("say \"no\""));
  EXPECT_TRUE(has("a\tb\r\nc\n")) << "blanks of an attribute stay what they are";
  EXPECT_TRUE(has("\\x1B[31mred\\x1B[0m"));
  EXPECT_TRUE(has("bad \\xFF\\xC3 utf-8 \\xED\\xA0\\x80"));
}

TEST(JUnitPrinter, JunitparserReadsIt) {
  ScratchFolder folder;
  RunResults results = WholeResults();
  results.datafiles.erase(results.datafiles.begin() + 1);
  WriteFile(folder / "report.xml", Printed(results));
  const Finished read = RunProgram({"/usr/bin/python3",
                                    std::string(OMBRELIA_SOURCE_DIR) + "/tests/host/read_junit.py",
                                    folder / "report.xml"});
  EXPECT_EQ(read.status, 0) << read.err;
  EXPECT_EQ(read.out,
            R"(15 tests, 3 failures, 3 errors, 0 skipped
suite DataHookOutputTestingPlugin: 1 tests, 0 failures, 0 errors, 0 skipped, 0.000 s, 2026-03-01T12:00:00, builder-7
  DataHookOutputTestingPlugin | SingleDummyPassingTest | 0.000 s
suite broken.om4: 2 tests, 1 failures, 0 errors, 0 skipped, 0.250 s, 2026-03-01T12:00:00, builder-7
  broken.om4 | DataHookOutputTestingPlugin_PerformPostProcessing_was_called | 0.250 s
  broken.om4 | open_and_parse_broken.om4 | 0.000 s
    Failure failed: this datafile was not open-able/parse-able
suite by_chance.om4: 2 tests, 0 failures, 0 errors, 0 skipped, 0.250 s, 2026-03-01T12:00:00, builder-7
  by_chance.om4 | DataHookOutputTestingPlugin_PerformPostProcessing_was_called | 0.250 s
  by_chance.om4 | By_chance | 0.000 s
suite crashing.om4: 1 tests, 0 failures, 1 errors, 0 skipped, 0.250 s, 2026-03-01T12:00:00, builder-7
  crashing.om4 | DataHookOutputTestingPlugin_PerformPostProcessing_was_called | 0.250 s
    Error crashed: crashed: signal 11 (Segmentation fault)
suite endless.om4: 1 tests, 0 failures, 1 errors, 0 skipped, 0.250 s, 2026-03-01T12:00:00, builder-7
  endless.om4 | DataHookOutputTestingPlugin_PerformPostProcessing_was_called | 0.250 s
    Error timed out: timed out
suite good.om4: 2 tests, 0 failures, 0 errors, 0 skipped, 0.250 s, 2026-03-01T12:00:00, builder-7
  good.om4 | DataHookOutputTestingPlugin_PerformPostProcessing_was_called | 0.250 s
  good.om4 | __TIMING__TRACKING__good.om4 | 0.000 s
suite leaving.om4: 1 tests, 0 failures, 1 errors, 0 skipped, 0.250 s, 2026-03-01T12:00:00, builder-7
  leaving.om4 | DataHookOutputTestingPlugin_PerformPostProcessing_was_called | 0.250 s
    Error lost: lost: its process ended with status 3
suite nearly.om4: 2 tests, 1 failures, 0 errors, 0 skipped, 0.250 s, 2026-03-01T12:00:00, builder-7
  nearly.om4 | DataHookOutputTestingPlugin_PerformPostProcessing_was_called | 0.250 s
  nearly.om4 | locating_verifier_for_nearly.om4 | 0.000 s
    Failure failed: no logic
suite two_sublists_tagging.om5: 2 tests, 1 failures, 0 errors, 0 skipped, 0.250 s, 2026-03-01T12:00:00, builder-7
  two_sublists_tagging.om5 | DataHookOutputTestingPlugin_PerformPostProcessing_was_called | 0.250 s
  two_sublists_tagging.om5 | Data_appears_completely_and_in_order | 0.000 s
    Failure failed: Mismatch in the ordering of data cells in datafile.
suite verify-datafiles: 1 tests, 0 failures, 0 errors, 0 skipped, 0.000 s, 2026-03-01T12:00:00, builder-7
  verify-datafiles | tolerance-budget | 0.000 s
)");
}

}  // namespace
}  // namespace Tests
