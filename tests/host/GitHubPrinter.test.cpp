// What a job of GitHub Actions is told.
#include "host/print/GitHubPrinter.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/host/WholeResults.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

std::vector<std::string> Annotations(const RunResults& results) {
  std::ostringstream out;
  GitHubPrinter(out).PrintAnnotations(results);
  std::vector<std::string> lines;
  std::istringstream in(out.str());
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::string StepSummary(const RunResults& results) {
  std::ostringstream out;
  GitHubPrinter(out).PrintStepSummary(results);
  return out.str();
}

RunResults Only(const DatafileResult& datafile) {
  RunResults results;
  results.datafiles = {datafile};
  return results;
}

TEST(GitHubPrinter, AFailingTestIsAnErrorAtItsLine) {
  EXPECT_EQ(Annotations(Only(DatafileWithOneWrongCell())),
            (std::vector<std::string>{
                "::error file=runs/two_sublists_tagging.om5 3.txt,line=11,title=Data_appears_"
                "completely_and_in_order::Mismatch in the ordering of data cells in datafile. "
                "Column color, row 4, expected {red}, there stands {blue}"}));
}

TEST(GitHubPrinter, ALostDataFileIsAnErrorAndAToleratedFailureAWarning) {
  EXPECT_EQ(
      Annotations(Only(WholeResults().datafiles[6])),
      (std::vector<std::string>{"::error file=runs/crashing.om4 1.txt,title=crashed::crashed: "
                                "signal 11 (Segmentation fault)"}));
  EXPECT_EQ(Annotations(Only(WholeResults().datafiles[3])),
            (std::vector<std::string>{
                "::warning file=runs/by_chance.om4 1.txt,title=By_chance::rarely"}));
}

TEST(GitHubPrinter, TenAreShownAndThenHowManyMore) {
  RunResults results = WholeResults();  // 9 failing tests, a tolerated one, 3 lost data files
  const std::vector<std::string> lines = Annotations(results);
  ASSERT_EQ(lines.size(), 11u);
  EXPECT_EQ(lines[10],
            "::notice title=verify-datafiles::3 more did not pass; the log names them all.");
  results.datafiles.resize(4);  // 7 failing tests and a tolerated one
  EXPECT_EQ(Annotations(results).size(), 8u);
  results.datafiles.resize(2);
  results.datafiles[0].tests.resize(5, results.datafiles[0].tests[1]);
  EXPECT_EQ(Annotations(results).size(), 10u) << "exactly ten, and nothing more to tell";
}

TEST(GitHubPrinter, APassingRunHasNoAnnotation) {
  EXPECT_TRUE(Annotations(Only(WholeResults().datafiles[2])).empty());
  EXPECT_EQ(StepSummary(Only(WholeResults().datafiles[2])),
            "### verify-datafiles\n\n1 data files; 2 tests, 2 passed, 0 failed, 0 tolerated; "
            "machine: ordinary\n");
}

TEST(GitHubPrinter, WhatSeparatesPropertiesIsEscaped) {
  DatafileResult datafile = DatafileWithOneWrongCell();
  datafile.path = "a:b,c%\n.txt";
  datafile.tests[1].name = "one: two, three";
  datafile.tests[1].subject = "100% : ,";
  datafile.tests[1].evidence = {};
  EXPECT_EQ(Annotations(Only(datafile)),
            (std::vector<std::string>{
                "::error file=a%3Ab%2Cc%25%0A.txt,title=one%3A two%2C three::100%25 : ,"}));
}

// One line each, and nothing in it ends the command before its end.
TEST(GitHubPrinter, HostileTextsAddNoCommand) {
  for (const std::string& hostile : HostileTexts()) {
    DatafileResult datafile = DatafileWithOneWrongCell();
    datafile.path = hostile.substr(0, hostile.find('\0'));
    TestOutcome& test = datafile.tests[1];
    test.name = test.subject = test.evidence.cells[0].column = hostile;
    test.evidence.cells[0].actual = hostile;
    const std::vector<std::string> lines = Annotations(Only(datafile));
    ASSERT_EQ(lines.size(), 1u) << hostile.substr(0, 100);
    EXPECT_EQ(lines[0].find("::error file="), 0u);
    const std::size_t properties = lines[0].find("::", 2);
    EXPECT_NE(lines[0].substr(0, properties).find(",line=11,title="), std::string::npos)
        << lines[0].substr(0, 300);
  }
}

TEST(GitHubPrinter, OtherOutputCanBeNoCommand) {
  std::ostringstream out;
  GitHubPrinter printer(out);
  printer.BeginOtherOutput("secret");
  printer.EndOtherOutput("secret");
  EXPECT_EQ(out.str(), "::stop-commands::secret\n::secret::\n");
}

TEST(GitHubPrinter, TheStepSummaryIsATable) {
  EXPECT_EQ(
      StepSummary(Only(DatafileWithOneWrongCell())),
      "### verify-datafiles\n\n"
      "1 data files; 2 tests, 1 passed, 1 failed, 0 tolerated; machine: ordinary\n\n"
      "| | Data file | Line | Test | Why |\n|---|---|---|---|---|\n"
      "| failed | runs/two&#95;sublists&#95;tagging.om5 3.txt | 11 | "
      "Data&#95;appears&#95;completely&#95;and&#95;in&#95;order | Mismatch in the ordering of "
      "data cells in datafile. Column color, row 4, expected &#123;red&#125;, there stands "
      "&#123;blue&#125; |\n");
}

TEST(GitHubPrinter, TheStepSummaryIsNoLongerThanAJobTakes) {
  RunResults results;
  results.datafiles.assign(500, DatafileWithOneWrongCell());
  for (DatafileResult& datafile : results.datafiles) {
    datafile.tests[1].subject = std::string(200 * 1024, '|');
  }
  const std::string summary = StepSummary(results);
  EXPECT_LT(summary.size(), 1024u * 1024u);
  EXPECT_EQ(summary.substr(summary.rfind("\n\n")), "\n\nand 300 more\n");
}

TEST(GitHubPrinter, HostileTextsAreNoMarkup) {
  for (const std::string& hostile : HostileTexts()) {
    DatafileResult datafile = DatafileWithOneWrongCell();
    datafile.path = hostile.substr(0, hostile.find('\0'));
    datafile.tests[1].name = datafile.tests[1].subject = hostile;
    const std::string summary = StepSummary(Only(datafile));
    const std::string row = summary.substr(summary.find("| failed"));
    EXPECT_EQ(std::count(row.begin(), row.end(), '\n'), 1);
    EXPECT_EQ(std::count(row.begin(), row.end(), '|'), 6);
    EXPECT_EQ(row.find_first_of("<>`*[]@"), std::string::npos) << row.substr(0, 300);
  }
}

}  // namespace
}  // namespace Tests
