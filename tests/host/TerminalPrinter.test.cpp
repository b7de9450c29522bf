// What the terminal shows of results.
#include "host/print/TerminalPrinter.h"

#include <gtest/gtest.h>

#include <sstream>

#include "host/print/TestDescription.h"
#include "tests/host/WholeResults.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

std::string Printed(const DatafileResult& datafile, Verbosity verbosity = Verbosity::Normal,
                    bool colored = false) {
  std::ostringstream out;
  TerminalPrinter(out, MachineKind::Ordinary, verbosity, colored).PrintDatafile(datafile);
  return out.str();
}

// The failing test alone, of a data file that has no other.
std::string PrintedTest(const TestOutcome& test) {
  DatafileResult datafile;
  datafile.path = "x.txt";
  datafile.outcome = Outcome::Failed;
  datafile.tests = {test};
  const std::string printed = Printed(datafile);
  return printed.substr(printed.find('\n') + 1);
}

TestOutcome WithCells(const std::string& actual, const std::string& expected) {
  TestOutcome test = DatafileWithOneWrongCell().tests[1];
  test.evidence.context = {};
  test.evidence.cells[0].actual = actual;
  test.evidence.cells[0].expected = expected;
  test.message.clear();
  return test;
}

TEST(TerminalPrinter, AWrongCellIsShownWithTheRowsAroundIt) {
  EXPECT_EQ(
      Printed(DatafileWithOneWrongCell()),
      "FAIL  two_sublists_tagging.om5 3.txt: 1 passed, 1 failed\n"
      "  runs/two_sublists_tagging.om5 3.txt:11: Data_appears_completely_and_in_order\n"
      "    Mismatch in the ordering of data cells in datafile.\n"
      "      line  row  color  expected\n"
      "         9    2  blue\n"
      "        10    3  red\n"
      "    >   11    4  blue   red\n"
      "        12    5  blue\n"
      "    At datafile row index 4 we expected {red}, but that was not the actual content.\n");
}

TEST(TerminalPrinter, TheOtherComparedColumnsStandBeside) {
  TestOutcome test = DatafileWithOneWrongCell().tests[1];
  test.evidence.context.columns = {"color", "Event\nName"};
  test.evidence.context.rows = {{11, 4, {"blue", "event 1"}, true, "red"},
                                {12, 5, {"", "event 2 "}, false, "red"}};
  EXPECT_NE(PrintedTest(test).find("      line  row  color    expected  Event Name\n"
                                   "    >   11    4  blue     red       event 1\n"
                                   "        12    5  (empty)            event 2\xC2\xB7\n"),
            std::string::npos)
      << PrintedTest(test);
}

TEST(TerminalPrinter, EachKindOfEvidenceHasItsForm) {
  const DatafileResult datafile = WholeResults().datafiles[1];
  EXPECT_EQ(Printed(datafile),
            "FAIL  all_kinds.om5 1.txt: 2 passed, 6 failed\n"
            "  runs/all_kinds.om5 1.txt:13: Correct_quantity_of_data_cells\n"
            "    Too many data cells. More than expected.\n"
            "    7 rows, where 6 are expected.\n"
            "      line  row  color\n"
            "    >   13    6  green\n"
            "    No extra info.\n"
            "  runs/all_kinds.om5 1.txt: we_presented_all_events\n"
            "    not all of them\n"
            "    No row has this in column Trial Name: cues left\n"
            "    m\n"
            "  runs/all_kinds.om5 1.txt:10: Only_once\n"
            "    not in this row\n"
            "    The first row that differs:\n"
            "      line  row  Event Name  expected\n"
            "    >   10    3  event 1     event 2\n"
            "    m\n"
            "  runs/all_kinds.om5 1.txt:7: Three_times\n"
            "    not three times\n"
            "    Found 2 times, where 3 times are expected.\n"
            "    These rows have it:\n"
            "      line  row  Event Name\n"
            "         7    0  event 1\n"
            "        12    5  event 1\n"
            "    m\n"
            "  runs/all_kinds.om5 1.txt:13: Experiment_duration_all_kinds.om5\n"
            "    Experiment duration is weird. Too short or too long (see details below).\n"
            "      line  row  Cumulative Time\n"
            "        13    6  1000\n"
            "    700 [===========================] 900 -------------* 1000\n"
            "    1000 is above the bounds of 700 to 900, on an ordinary machine.\n"
            "    Expected a duration between 700 and 900. Instead, we got a duration of 1000.\n"
            "  runs/all_kinds.om5 1.txt:7: Sums_up\n"
            "    does not sum up\n"
            "    No more is known than what the check read last.\n"
            "    The sum is not 4.\n"
            "      line  row  column  cell\n"
            "         7    0  a       1\n"
            "         7    0  b       2\n"
            "    m\n");
}

TEST(TerminalPrinter, AMissingRowAndAnUnreadableFileHaveTheirWords) {
  TestOutcome length = WithCells("", "red");
  length.evidence.kind = Evidence::Kind::Length;
  length.evidence.actualCount = 1;
  length.evidence.expectedCount = 6;
  length.evidence.cells[0].actual.reset();
  length.evidence.cells[0].line.reset();
  EXPECT_EQ(PrintedTest(length),
            "  x.txt: Data_appears_completely_and_in_order\n"
            "    Mismatch in the ordering of data cells in datafile.\n"
            "    1 row, where 6 are expected.\n"
            "      row  color  expected\n"
            "    >   4         red\n");
  EXPECT_EQ(Printed(WholeResults().datafiles[4]),
            "FAIL  broken.om4 1.txt: 1 passed, 1 failed\n"
            "  runs/broken.om4 1.txt: open_and_parse_broken.om4 1\n"
            "    this datafile was not open-able/parse-able\n"
            "    The second line is missing.\n"
            "    unable\n");
}

TEST(TerminalPrinter, ASurplusRowHasNoExpectedCellAndAMissingOneStandsBelowTheLast) {
  TestOutcome length = WithCells("blue", "");
  length.evidence.kind = Evidence::Kind::Length;
  length.evidence.cells[0].expected.reset();
  length.evidence.context.columns = {"color", "Event\nName"};
  length.evidence.context.rows = {{10, 3, {"red", "event 1"}, false, "red"},
                                  {11, 4, {"blue", "event 2"}, true, ""}};
  EXPECT_NE(PrintedTest(length).find("      line  row  color  Event Name\n"
                                     "        10    3  red    event 1\n"
                                     "    >   11    4  blue   event 2\n"),
            std::string::npos)
      << PrintedTest(length);

  length.evidence.cells[0].actual.reset();
  length.evidence.cells[0].expected = "blue";
  length.evidence.context.rows.pop_back();
  EvidenceCell early;
  early.column = "color";
  early.row = 1;
  early.line = 8;
  early.actual = "green";
  early.expected = "red";
  length.evidence.cells.push_back(early);
  length.evidence.words = {"The first row that differs from the expected ones is row 1."};
  EXPECT_NE(
      PrintedTest(length).find("    The first row that differs from the expected ones is row 1.\n"
                               "      line  row  color  expected  Event Name\n"
                               "        10    3  red              event 1\n"
                               "    >   11    4         blue\n"
                               "    Further cells that differ:\n"
                               "      line  row  color  expected\n"
                               "         8    1  green  red\n"),
      std::string::npos)
      << PrintedTest(length);
}

TEST(TerminalPrinter, RowsThatCouldHaveAMissingTextFollowIt) {
  DatafileResult datafile = WholeResults().datafiles[1];
  TestOutcome missing = datafile.tests[2];
  missing.evidence.cells.push_back(datafile.tests[3].evidence.cells[0]);
  missing.evidence.cells[1].expected.reset();
  EXPECT_EQ(PrintedTest(missing),
            "  x.txt:10: we_presented_all_events\n"
            "    not all of them\n"
            "    No row has this in column Trial Name: cues left\n"
            "    These rows have something else:\n"
            "      line  row  Event Name\n"
            "        10    3  event 1\n"
            "    m\n");
  TestOutcome count = datafile.tests[4];
  count.evidence.cells[0].actual = "event 7";
  count.evidence.cells[0].expected = "event 1";
  EXPECT_EQ(PrintedTest(count),
            "  x.txt:7: Three_times\n"
            "    not three times\n"
            "    Found 2 times, where 3 times are expected.\n"
            "    These rows have something else:\n"
            "      line  row  Event Name  expected\n"
            "         7    0  event 7     event 1\n"
            "    These rows have it:\n"
            "      line  row  Event Name\n"
            "        12    5  event 1\n"
            "    m\n");
}

TEST(TerminalPrinter, OfAMissingColumnTheNearestIsNamed) {
  TestOutcome test = WithCells("Event\nNam", "Event\nName");
  test.evidence.cells[0].column = "Event\nName";
  test.evidence.cells[0].row.reset();
  test.evidence.cells[0].line = 5;
  test.evidence.words = {"The data file has no column \"Event Name\"."};
  EXPECT_EQ(PrintedTest(test),
            "  x.txt:5: Data_appears_completely_and_in_order\n"
            "    Mismatch in the ordering of data cells in datafile.\n"
            "    The data file has no column \"Event Name\".\n"
            "    The nearest to it is column Event Nam.\n");
}

TEST(TerminalPrinter, CellsThatLookAlikeAreToldApart) {
  EXPECT_EQ(
      PrintedTest(WithCells("r\xD0\xB5"
                            "d ",
                            "red ")),
      "  x.txt:11: Data_appears_completely_and_in_order\n"
      "    Mismatch in the ordering of data cells in datafile.\n"
      "      line  row  color  expected\n"
      "    >   11    4  r\xD0\xB5"
      "d\xC2\xB7   red\xC2\xB7\n"
      "    The texts differ first at character 2: U+0435 (\xD0\xB5) stands there, U+0065 (e) is "
      "expected.\n");
}

TEST(TerminalPrinter, ACellOf200KbIsCutWithItsLengthToldWhereItDiffers) {
  const std::string common(150000, 'x');
  const std::string rest(54799, 'x');
  const std::string printed = PrintedTest(WithCells(common + "a" + rest, common + "b" + rest));
  EXPECT_LT(printed.size(), 1000u);
  EXPECT_NE(printed.find("xa"), std::string::npos);
  EXPECT_NE(printed.find("xb"), std::string::npos);
  EXPECT_NE(printed.find("(204800 characters)"), std::string::npos);
  EXPECT_NE(printed.find("differ first at character 150001"), std::string::npos);
}

TEST(TerminalPrinter, ManyRowsAreCutWithTheirNumberTold) {
  TestOutcome test = WholeResults().datafiles[1].tests[4];
  test.evidence.cells.resize(47, test.evidence.cells[0]);
  EXPECT_NE(PrintedTest(test).find("      and 37 more\n"), std::string::npos) << PrintedTest(test);
}

TEST(TerminalPrinter, ABoundStandsOnAScale) {
  EXPECT_EQ(BoundScale({700, 900, 1000}),
            "700 [===========================] 900 -------------* 1000");
  EXPECT_EQ(BoundScale({700, 900, 500}),
            "500 *-------------------- 700 [====================] 900");
  EXPECT_EQ(BoundScale({0, 40, 10}), "0 [==========*==============================] 40, 10");
  EXPECT_EQ(BoundScale({700, 900, 901}),
            "700 [========================================] 900 -* 901");
  EXPECT_EQ(BoundScale({5, 5, 5}), "5 [=*=] 5, 5");
  EXPECT_EQ(BoundScale({-2147483648L, 2147483647L, -999}).find("-2147483648 ["), 0u);
}

TEST(TerminalPrinter, PassingFilesAreOneLine) {
  EXPECT_EQ(Printed(WholeResults().datafiles[2]), "ok    good.om4 1.txt: 2 passed, 0 failed\n");
}

TEST(TerminalPrinter, QuietLeavesOutWhatPassed) {
  EXPECT_EQ(Printed(WholeResults().datafiles[2], Verbosity::Quiet), "");
  EXPECT_EQ(Printed(DatafileWithOneWrongCell(), Verbosity::Quiet),
            Printed(DatafileWithOneWrongCell()));
  std::ostringstream out;
  TerminalPrinter(out, MachineKind::Ordinary, Verbosity::Quiet, false)
      .PrintBeforeFirst(WholeResults().beforeFirst);
  EXPECT_EQ(out.str(), "");
}

TEST(TerminalPrinter, VerboseShowsPassingTestsAndLocations) {
  EXPECT_EQ(Printed(WholeResults().datafiles[2], Verbosity::Verbose),
            "ok    good.om4 1.txt: 2 passed, 0 failed\n"
            "  ok  DataHookOutputTestingPlugin_PerformPostProcessing_was_called\n"
            "  ok  __TIMING__TRACKING__good.om4__812_ms\n");
  const std::string location = "    Whichever/File/Focuses/On/Verifying/x.om5:103\n";
  EXPECT_NE(Printed(DatafileWithOneWrongCell(), Verbosity::Verbose).find(location),
            std::string::npos);
  EXPECT_EQ(Printed(DatafileWithOneWrongCell()).find(location), std::string::npos);
}

TEST(TerminalPrinter, ToleratedFailuresAndRemarksAreToldApart) {
  EXPECT_EQ(Printed(WholeResults().datafiles[3]),
            "TOL   by_chance.om4 1.txt: 1 passed, 0 failed, 1 tolerated\n"
            "  runs/by_chance.om4 1.txt: By_chance (tolerated)\n"
            "    rarely\n"
            "    m\n"
            "    Whichever/File/Focuses/On/Verifying/x.om5:120\n");
  EXPECT_EQ(Printed(WholeResults().datafiles[5]),
            "FAIL  nearly.om4 1.txt: 1 passed, 1 failed\n"
            "    Did you mean nearby.om4?\n"
            "  runs/nearly.om4 1.txt: locating_verifier_for_nearly.om4 1\n"
            "    no logic\n"
            "    m\n"
            "    Whichever/File/Focuses/On/Verifying/x.om5:124\n");
}

TEST(TerminalPrinter, LossesSayHowTheProcessEnded) {
  EXPECT_EQ(Printed(WholeResults().datafiles[6]),
            "FAIL  crashing.om4 1.txt: crashed: signal 11 (Segmentation fault)\n"
            "  The last lines on its standard error:\n"
            "    one\n"
            "    two\n");
  EXPECT_EQ(Printed(WholeResults().datafiles[7]), "FAIL  endless.om4 1.txt: timed out\n");
  EXPECT_EQ(Printed(WholeResults().datafiles[8]),
            "FAIL  leaving.om4 1.txt: lost: its process ended with status 3\n"
            "  The last lines on its standard error:\n"
            "    bye\n");
}

TEST(TerminalPrinter, ThePluginsOwnResultsHaveALineOfTheirOwn) {
  std::ostringstream out;
  TerminalPrinter printer(out, MachineKind::Ordinary, Verbosity::Normal, false);
  printer.PrintBeforeFirst(WholeResults().beforeFirst);
  EXPECT_EQ(out.str(), "ok    (plug-in loaded): 1 passed, 0 failed\n");
}

TEST(TerminalPrinter, TheSummaryNamesOnceMoreWhatDidNotPass) {
  std::ostringstream out;
  TerminalPrinter(out, MachineKind::Small, Verbosity::Normal, false).PrintSummary(WholeResults());
  EXPECT_EQ(out.str(),
            "\nNot passed:\n"
            "  runs/two_sublists_tagging.om5 3.txt:11: 1 failed\n"
            "  runs/all_kinds.om5 1.txt:13: 6 failed\n"
            "  runs/by_chance.om4 1.txt: 1 tolerated\n"
            "  runs/broken.om4 1.txt: unreadable\n"
            "  runs/nearly.om4 1.txt: unknown\n"
            "  runs/crashing.om4 1.txt: crashed\n"
            "  runs/endless.om4 1.txt: timed out\n"
            "  runs/leaving.om4 1.txt: lost\n"
            "\n"
            "Data files: 9, 1 crashed, 1 timed out, 1 lost; tests: 19, 9 passed, 9 failed, 1 "
            "tolerated\n"
            "Machine: small\n"
            "Report: /somewhere/report_1.xml\n"
            "Report: /somewhere/report_2.xml\n");
}

TEST(TerminalPrinter, TheSummaryOfAPassingRunIsTotalsOnly) {
  RunResults results;
  results.datafiles = {WholeResults().datafiles[2]};
  results.reports = {"/report.xml"};
  std::ostringstream out;
  TerminalPrinter(out, MachineKind::Ordinary, Verbosity::Normal, false).PrintSummary(results);
  EXPECT_EQ(out.str(),
            "\nData files: 1; tests: 2, 2 passed, 0 failed\nMachine: ordinary\nReport: "
            "/report.xml\n");
}

TEST(TerminalPrinter, ColorMarksTheVerdictThePlaceAndTheDecidingRow) {
  EXPECT_EQ(Printed(WholeResults().datafiles[2], Verbosity::Normal, true),
            "\x1B[32mok    \x1B[0mgood.om4 1.txt: 2 passed, 0 failed\n");
  const std::string printed = Printed(DatafileWithOneWrongCell(), Verbosity::Normal, true);
  EXPECT_NE(printed.find("\x1B[31mFAIL  \x1B[0mtwo_sublists"), std::string::npos) << printed;
  EXPECT_NE(printed.find("  \x1B[1mruns/two_sublists_tagging.om5 3.txt:11\x1B[0m: Data"),
            std::string::npos)
      << printed;
  EXPECT_NE(printed.find("    \x1B[31m>   11    4  blue   red\x1B[0m\n"), std::string::npos)
      << printed;
}

TEST(TerminalPrinter, HostileTextsSteerNoTerminal) {
  for (const std::string& hostile : HostileTexts()) {
    DatafileResult datafile;
    datafile.path = hostile.substr(0, hostile.find('\0'));
    datafile.outcome = Outcome::Lost;
    datafile.loss = Loss{0, 1, {hostile}};
    datafile.remarks = {hostile};
    TestOutcome test = WithCells(hostile, hostile + "!");
    test.name = test.subject = test.message = test.evidence.cells[0].column = hostile;
    test.evidence.words = {hostile};
    datafile.tests = {test};
    const std::string printed = Printed(datafile, Verbosity::Verbose);
    for (const char c : printed) {
      ASSERT_TRUE(c == '\n' || (static_cast<unsigned char>(c) >= 0x20 && c != 0x7F)) << printed;
    }
  }
}

}  // namespace
}  // namespace Tests
