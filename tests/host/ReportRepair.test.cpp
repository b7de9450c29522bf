// Malformed reports made good XML, and the text found that broke them.
#include "host/results/ReportRepair.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "host/results/ReportReader.h"
#include "tests/host/ReadXml.h"
#include "tests/host/VerifyDatafiles.h"
#include "tests/host/WholeResults.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

const char* const START = "DataHookOutputTestingPlugin_PerformPostProcessing_was_called";

TestOutcome PassingTest(const std::string& name) {
  TestOutcome test;
  test.name = name;
  return test;
}

TestOutcome FailingTest(const std::string& name, const std::string& subject,
                        const std::string& message) {
  TestOutcome test = PassingTest(name);
  test.outcome = Outcome::Failed;
  test.subject = subject;
  test.location = "l:1";
  test.message = message;
  return test;
}

// What a second verification knows of one data file.
DatafileResult Known(const std::vector<TestOutcome>& tests) {
  DatafileResult datafile;
  datafile.path = "runs/a.txt";
  datafile.tests = {PassingTest(START)};
  datafile.tests.insert(datafile.tests.end(), tests.begin(), tests.end());
  return datafile;
}

std::string Numbered(std::size_t number, const std::string& name) {
  const std::string digits = std::to_string(number);
  return "test" + std::string(digits.size() < 3 ? 3 - digits.size() : 0, '0') + digits + name;
}

// The report that the plug-in writes of these data files.
std::string ReportOf(const std::vector<DatafileResult>& datafiles) {
  std::string entries = Passing("test001SingleDummyPassingTest");
  std::size_t number = 1;
  int failures = 0;
  for (const DatafileResult& datafile : datafiles) {
    for (const TestOutcome& test : datafile.tests) {
      const std::string name = Numbered(++number, test.name);
      const bool failed = test.outcome != Outcome::Passed;
      failures += failed ? 1 : 0;
      entries += failed ? Failing(name, test.subject, test.location, test.message) : Passing(name);
      // The verifier's own suite begins with its first result.
      if (test.name == START) entries += "    </testsuite>\n    <testsuite name=\"x_pid_1\">\n";
    }
  }
  return ReportWith(static_cast<int>(number), failures, entries);
}

// The names and texts of all tests as a parser finds them.
std::vector<std::string> TextsOf(const std::string& report) {
  std::vector<std::string> texts;
  for (const XmlElement& test : ElementsOf(ReadXml(report), "testcase")) {
    texts.push_back(test["name"]);
    for (const XmlElement& failure : ElementsOf(test, "failure")) {
      texts.push_back(failure["message"] + "|" + failure.text);
    }
  }
  return texts;
}

TEST(ReportRepair, AGoodReportStaysAsItIs) {
  const std::vector<DatafileResult> datafiles = {
      Known({PassingTest("Good"), FailingTest("Bad", "s", "one\ntwo")}), Known({})};
  const RepairedReport repaired = RepairReport(ReportOf(datafiles), datafiles);
  EXPECT_EQ(repaired.text, ReportOf(datafiles));
  EXPECT_TRUE(repaired.faults.empty());
}

TEST(ReportRepair, ACellInAMessageIsFoundAndTheReportReadsAgain) {
  TestOutcome bad = FailingTest("Bad", "s", "first such cell: a]]>b");
  EvidenceCell other;
  other.column = "other";
  other.actual = "c";
  EvidenceCell cell;
  cell.column = "Event\nName";
  cell.row = 4;
  cell.line = 11;
  cell.actual = "a]]>b";
  bad.evidence.cells = {other, cell};
  const std::vector<DatafileResult> datafiles = {Known({PassingTest("Good")}),
                                                 Known({bad, PassingTest("After")})};
  const RepairedReport repaired = RepairReport(ReportOf(datafiles), datafiles);
  ASSERT_EQ(repaired.faults.size(), 1u);
  const ReportFault& fault = repaired.faults[0];
  EXPECT_EQ(fault.datafile, 1u);
  EXPECT_EQ(fault.number, 5);
  EXPECT_EQ(fault.test, "Bad");
  EXPECT_EQ(fault.culprit, "]]>");
  EXPECT_EQ(fault.where, "message");
  ASSERT_TRUE(fault.cell.has_value());
  EXPECT_EQ(fault.cell->column, "Event\nName");
  EXPECT_EQ(DescribeFault(fault, datafiles),
            "broken by ]]> in the message of test test005Bad, from the cell of column Event Name, "
            "row 4, line 11, among the results of runs/a.txt");
  EXPECT_EQ(
      TextsOf(repaired.text),
      (std::vector<std::string>{"test001SingleDummyPassingTest", std::string("test002") + START,
                                "test003Good", std::string("test004") + START, "test005Bad",
                                "s|\n\n l:1\nfirst such cell: a]]>b\n\n", "test006After"}));
}

TEST(ReportRepair, TheProgramsReaderTakesTheRepairedReport) {
  const std::vector<DatafileResult> datafiles = {
      Known({FailingTest("Bad <name>", "say \"no\" & more", "a]]>b\x1B")})};
  ScratchFolder folder;
  WriteFile(folder / "r.xml", RepairReport(ReportOf(datafiles), datafiles).text);
  const std::vector<TestResult> results = ReadReport(folder / "r.xml", {"runs/a.txt"});
  ASSERT_EQ(results.size(), 3u);
  EXPECT_EQ(results[2].name, "test003Bad <name>");
  EXPECT_EQ(results[2].subject, "say \"no\" & more");
  EXPECT_EQ(results[2].location, "l:1");
  EXPECT_EQ(results[2].message, "a]]>b\\x1B");
}

TEST(ReportRepair, EachPlaceThatBreaksIsNamed) {
  const std::vector<DatafileResult> datafiles = {Known(
      {FailingTest("a<b", "c", "d"), FailingTest("a", "\"", "d"), FailingTest("a", "R&D", "d"),
       FailingTest("a", "c", "\x01"), FailingTest("a", "fine &amp; good", "<d> & \"e\"")})};
  const RepairedReport repaired = RepairReport(ReportOf(datafiles), datafiles);
  std::vector<std::string> faults;
  for (const ReportFault& fault : repaired.faults) {
    faults.push_back(std::to_string(fault.number) + " " + fault.where + " " + fault.culprit);
  }
  EXPECT_EQ(faults, (std::vector<std::string>{"3 name <", "4 subject \"", "5 subject &",
                                              "6 message \\x01"}));
  EXPECT_FALSE(repaired.faults[0].cell.has_value()) << "no cell is known";
}

// A text that imitates the report's own frame, the running number and all.
TEST(ReportRepair, ATextThatImitatesAnEntryIsNotTakenForOne) {
  const std::string imitation =
      "m]]>\n\n</failure>\n</testcase>\n        <testcase name=\"test004Injected\" status=\"run\" "
      "time=\"999\" />\n    </testsuite>\n</testsuites>\n";
  const std::vector<DatafileResult> datafiles = {
      Known({FailingTest("Bad", "s", imitation), PassingTest("After")})};
  const RepairedReport repaired = RepairReport(ReportOf(datafiles), datafiles);
  EXPECT_EQ(TextsOf(repaired.text),
            (std::vector<std::string>{"test001SingleDummyPassingTest",
                                      std::string("test002") + START, "test003Bad",
                                      "s|\n\n l:1\n" + imitation + "\n\n", "test004After"}));
}

TEST(ReportRepair, WithoutASecondVerificationTheFrameTellsEntriesApart) {
  const std::vector<DatafileResult> datafiles = {
      Known({FailingTest("Bad", "s<", "a]]>b"),
             FailingTest("Next", "s", "]]></failure></testcase>"), PassingTest("After")}),
      Known({PassingTest("Last")})};
  const std::vector<DatafileResult> unknown(2);
  const RepairedReport repaired = RepairReport(ReportOf(datafiles), unknown);
  EXPECT_EQ(TextsOf(repaired.text), TextsOf(RepairReport(ReportOf(datafiles), datafiles).text));
  EXPECT_EQ(repaired.faults.size(), 3u);
  EXPECT_EQ(repaired.faults[0].datafile, 0u);
}

// A counter that runs on in the process differs in a second verification, and so may a failed assertion.
TEST(ReportRepair, WhatDiffersFromTheSecondVerificationMisleadsNothing) {
  TestOutcome bad = FailingTest("Bad", "s", "a]]>b");
  EvidenceCell cell;
  cell.actual = "a]]>b";
  bad.evidence.cells = {cell};
  const std::vector<DatafileResult> written = {
      Known({PassingTest("CHECK_TIMESTAMP_9"),
             FailingTest("TestingPluginDH_AssertionFailure_00001", "s", "x"), bad})};
  const std::vector<DatafileResult> known = {Known({PassingTest("CHECK_TIMESTAMP_1"), bad})};
  const RepairedReport repaired = RepairReport(ReportOf(written), known);
  ASSERT_EQ(repaired.faults.size(), 1u);
  EXPECT_EQ(repaired.faults[0].number, 5);
  EXPECT_TRUE(repaired.faults[0].cell.has_value());
}

TEST(ReportRepair, AReportThatIsCutOffAnywhereBecomesGoodXml) {
  const std::vector<DatafileResult> datafiles = {
      Known({FailingTest("Bad", "s", "a]]>b"), PassingTest("After")}),
      Known({PassingTest("Last")})};
  const std::string whole = ReportOf(datafiles);
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    EXPECT_EQ(ReadXml(RepairReport(whole.substr(0, length), datafiles).text).name, "testsuites")
        << length;
  }
  // Half of the entries stay.
  const std::string half = whole.substr(0, whole.find("test004After") + 5);
  EXPECT_EQ(
      TextsOf(RepairReport(half, datafiles).text),
      (std::vector<std::string>{"test001SingleDummyPassingTest", std::string("test002") + START,
                                "test003Bad", "s|\n\n l:1\na]]>b\n\n"}));
}

TEST(ReportRepair, WhatIsNoReportAtAllBecomesGoodXml) {
  for (const std::string& hostile : HostileTexts()) {
    for (const std::string& report :
         {hostile, ReportWith(1, 0, hostile), ReportOf({Known({})}) + hostile,
          ReportOf({Known({PassingTest(hostile)})}),
          ReportOf({Known({FailingTest(hostile, hostile, hostile)})})}) {
      EXPECT_EQ(ReadXml(RepairReport(report, {}).text).name, "testsuites")
          << report.substr(0, 1000);
    }
  }
}

TEST(ReportRepair, TheCopyStandsBesideTheReport) {
  EXPECT_EQ(RepairedPath("/a.b/report_17.xml"), "/a.b/report_17.repaired.xml");
}

}  // namespace
}  // namespace Tests
