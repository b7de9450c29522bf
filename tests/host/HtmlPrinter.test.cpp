// The page of a run, read back by parsers of other hands.
#include "host/print/HtmlPrinter.h"

#include <gtest/gtest.h>

#include <functional>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

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
  HtmlPrinter(out).Print(results);
  return out.str();
}

XmlElement Page(const RunResults& results) { return ReadXml(Printed(results)); }

// All text of an element, in no order that matters here.
std::string AllText(const XmlElement& element) {
  std::string text = element.text;
  for (const XmlElement& child : element.children) text += " " + AllText(child);
  return text;
}

bool Has(const XmlElement& element, const std::string& text) {
  return AllText(element).find(text) != std::string::npos;
}

XmlElement WithId(const XmlElement& page, const std::string& name, const std::string& id) {
  for (const XmlElement& element : ElementsOf(page, name)) {
    if (element["id"] == id) return element;
  }
  ADD_FAILURE() << "no " << name << " " << id;
  return XmlElement();
}

XmlElement Card(const XmlElement& page, const std::string& id) {
  return WithId(page, "article", id);
}

std::string TotalOf(const XmlElement& page, std::size_t list, const std::string& what) {
  const XmlElement totals = ElementsOf(page, "dl").at(list);
  for (const XmlElement& total : totals.children) {
    if (Has(total.children.at(0), what)) return total.children.at(1).text;
  }
  return "none";
}

void Walk(const XmlElement& element, const std::function<void(const XmlElement&)>& look) {
  look(element);
  for (const XmlElement& child : element.children) Walk(child, look);
}

TEST(HtmlPrinter, TellsTotalsAndMachine) {
  const XmlElement page = Page(WholeResults());
  EXPECT_EQ(TotalOf(page, 0, "in all"), "9");
  EXPECT_EQ(TotalOf(page, 0, "passed"), "1");
  EXPECT_EQ(TotalOf(page, 0, "failed"), "2");
  EXPECT_EQ(TotalOf(page, 0, "tolerated"), "1");
  EXPECT_EQ(TotalOf(page, 0, "timed out"), "1");
  EXPECT_EQ(TotalOf(page, 1, "failed"), "9");
  EXPECT_EQ(TotalOf(page, 1, "tolerated"), "1");
  const XmlElement summary = WithId(page, "section", "page:summary");
  EXPECT_TRUE(Has(summary, "small, whose bounds applied"));
  EXPECT_TRUE(Has(summary, "2026-03-01T12:00:00Z"));
  EXPECT_TRUE(Has(summary, "2 of 3")) << "the shard";
  EXPECT_TRUE(Has(summary, "/somewhere/report_2.xml"));
  EXPECT_TRUE(Has(summary, "Shard 3 of 3 is missing.")) << "the fault";
}

TEST(HtmlPrinter, TheVerdictIsOneSentence) {
  const auto verdict = [](const RunResults& results) {
    const XmlElement lead = ElementsOf(ElementsOf(Page(results), "header").at(0), "p").at(0);
    return lead["class"] + ":" + lead.text;
  };
  RunResults results;
  EXPECT_EQ(verdict(results), "verdict passed: No data file was verified.");
  results.datafiles = {WholeResults().datafiles[2]};
  EXPECT_EQ(verdict(results), "verdict passed: The data file passed.");
  results.datafiles.push_back(WholeResults().datafiles[3]);
  EXPECT_EQ(verdict(results), "verdict tolerated: 1 of 2 data files did not pass: 1 tolerated.");
  results.datafiles.push_back(WholeResults().datafiles[6]);
  EXPECT_EQ(verdict(results),
            "verdict failed: 2 of 3 data files did not pass: 1 crashed, 1 tolerated.");
  results.faults = {"One shard is missing."};
  EXPECT_EQ(
      verdict(results),
      "verdict failed: 2 of 3 data files did not pass: 1 crashed, 1 tolerated. The results are "
      "not whole.");
}

TEST(HtmlPrinter, TellsWhatChanceMakesOfToleratedFailures) {
  RunResults results = WholeResults();
  EXPECT_TRUE(Has(Card(Page(results), "by_chance.om4"),
                  "Against chance: p=0.0714 k/n=2/400: 2 in 400, chance allows it."));
  const auto summary = [&] { return WithId(Page(results), "section", "page:summary"); };
  EXPECT_FALSE(Has(summary(), "Tolerated failures and chance"));
  results.tolerance = ToleranceBudget{ToleranceBudget::State::Warns, {"Two of them."}};
  EXPECT_TRUE(Has(summary(), "Two of them."));
  EXPECT_EQ(ElementsOf(Page(results), "header").at(0).children.at(1).text.find("Chance"),
            std::string::npos);
  results.tolerance->state = ToleranceBudget::State::Blown;
  EXPECT_TRUE(Has(summary(), "Two of them."));
  EXPECT_TRUE(Has(ElementsOf(Page(results), "header").at(0),
                  "Chance does not explain the tolerated failures."));
}

TEST(HtmlPrinter, FailingDataFilesComeFirst) {
  std::vector<std::string> outcomes;
  for (const XmlElement& card : ElementsOf(Page(WholeResults()), "article")) {
    outcomes.push_back(card["data-outcome"]);
  }
  EXPECT_EQ(outcomes,
            (std::vector<std::string>{"failed", "failed", "unreadable", "unknown", "crashed",
                                      "timed out", "lost", "tolerated", "passed"}));
}

TEST(HtmlPrinter, EveryOutcomeHasItsWordBesideItsColour) {
  for (const XmlElement& card : ElementsOf(Page(WholeResults()), "article")) {
    EXPECT_TRUE(Has(ElementsOf(card, "h3").at(0), card["data-outcome"])) << card["id"];
  }
  EXPECT_EQ(Card(Page(WholeResults()), "by_chance.om4")["class"], "card tolerated");
  EXPECT_EQ(Card(Page(WholeResults()), "crashing.om4")["class"], "card gone");
}

TEST(HtmlPrinter, ShowsTheGridByFamiliesWithWhatEachProves) {
  RunResults results;
  results.datafiles = {DatafileWithOneWrongCell()};
  const XmlElement grid = WithId(Page(results), "section", "page:experiments");
  const std::vector<XmlElement> tiles = ElementsOf(grid, "li");
  EXPECT_EQ(tiles.size(), 68u);
  std::size_t absent = 0;
  for (const XmlElement& tile : tiles) {
    if (tile["class"] == "absent") ++absent;
    EXPECT_EQ(ElementsOf(tile, "p").size(), 1u);
    if (!Has(tile, "tagging.om5")) continue;
    EXPECT_EQ(tile["class"], "failed");
    EXPECT_EQ(ElementsOf(tile, "a").at(0)["href"], "#two_sublists_tagging.om5");
    EXPECT_TRUE(Has(tile, "Tags of sublist items show in columns of their own."));
  }
  EXPECT_EQ(absent, 67u);
  EXPECT_TRUE(Has(grid, "Lists and sublists"));
  EXPECT_TRUE(Has(grid, "7 experiments, 1 not passed, 6 not in this run"));
}

TEST(HtmlPrinter, ShowsTheEvidenceAndFoldsTheRowsAroundTheDecidingOne) {
  const XmlElement card = Card(Page(WholeResults()), "two_sublists_tagging.om5");
  EXPECT_TRUE(Has(card, "Data_appears_completely_and_in_order"));
  EXPECT_TRUE(Has(card, "line 11"));
  EXPECT_TRUE(Has(card, "Mismatch in the ordering of data cells in datafile."));
  EXPECT_TRUE(Has(card, "At datafile row index 4 we expected {red}"));
  const std::vector<XmlElement> tables = ElementsOf(card, "table");
  ASSERT_EQ(tables.size(), 2u);
  ASSERT_EQ(ElementsOf(tables[0], "tr").size(), 2u) << "the deciding row alone";
  std::vector<std::string> cells;
  for (const XmlElement& cell : ElementsOf(tables[0], "td")) cells.push_back(cell.text);
  EXPECT_EQ(cells, (std::vector<std::string>{"11", "4", "blue", "red"}));
  const XmlElement folded = ElementsOf(card, "details").at(0);
  EXPECT_EQ(ElementsOf(folded, "summary").at(0).text, "3 rows around it");
  EXPECT_EQ(ElementsOf(folded, "tr").size(), 5u);
  EXPECT_TRUE(Has(ElementsOf(folded, "tr").at(3), "the test failed here"));
}

TEST(HtmlPrinter, ShowsEachKindOfEvidenceInTheTerminalsWords) {
  const XmlElement card = Card(Page(WholeResults()), "all_kinds.om5");
  for (const char* const words :
       {"7 rows, where 6 are expected.", "No row has this in column Trial Name: cues left",
        "The first row that differs:", "Found 2 times, where 3 times are expected.",
        "1000 is above the bounds of 700 to 900, on a small machine.", "The sum is not 4."}) {
    EXPECT_TRUE(Has(card, words)) << words;
  }
  EXPECT_FALSE(Has(card, "[====")) << "the scale is a plot";
  const XmlElement page = Page(WholeResults());
  EXPECT_TRUE(Has(Card(page, "broken.om4"), "The second line is missing."));
  EXPECT_TRUE(Has(Card(page, "nearly.om4"), "Did you mean nearby.om4?"));
  EXPECT_TRUE(Has(Card(page, "crashing.om4"), "crashed: signal 11 (Segmentation fault)"));
  EXPECT_EQ(ElementsOf(Card(page, "crashing.om4"), "pre").at(0).text, "one\ntwo\n");
}

TEST(HtmlPrinter, MarksWhatCannotBeSeenInACell) {
  RunResults results;
  results.datafiles = {DatafileWithOneWrongCell()};
  results.datafiles[0].tests[1].evidence.cells[0].actual = "red\t ";
  const std::vector<XmlElement> marks =
      ElementsOf(ElementsOf(Card(Page(results), "two_sublists_tagging.om5"), "table").at(0), "i");
  ASSERT_EQ(marks.size(), 2u);
  EXPECT_EQ(marks[0]["class"], "unseen");
  EXPECT_EQ(marks[0].text, "\\t");
  EXPECT_EQ(marks[1].text, "\xC2\xB7");
}

TEST(HtmlPrinter, PlotsDurationAndExpansionAgainstTheirBounds) {
  RunResults results;
  results.datafiles = {WholeResults().datafiles[2]};
  DatafileResult& datafile = results.datafiles[0];
  datafile.durationMs = 812;
  datafile.tests[1].name = "Experiment_duration_good.om4";
  datafile.tests[1].bound = BoundCheck{700, 900, 812};
  const XmlElement card = Card(Page(results), "good.om4");
  const std::vector<XmlElement> plots = ElementsOf(card, "svg");
  ASSERT_EQ(plots.size(), 1u);
  EXPECT_EQ(plots[0]["aria-label"], "Duration 812 ms, within the bounds 700 to 900 ms");
  EXPECT_TRUE(Has(card, "within 700 to 900")) << "in words, too";
  datafile.tests[1].bound->actual = 1000;
  EXPECT_TRUE(Has(Card(Page(results), "good.om4"), "above 700 to 900"));
}

TEST(HtmlPrinter, HeadingsAreInOrderIdsDifferAndLinksLead) {
  RunResults results = WholeResults();
  results.datafiles.push_back(DatafileWithOneWrongCell());
  const XmlElement page = Page(results);
  int level = 0;
  std::set<std::string> ids;
  std::vector<std::string> links;
  Walk(page, [&](const XmlElement& element) {
    if (element.name.size() == 2 && element.name[0] == 'h' && element.name[1] <= '6') {
      EXPECT_LE(element.name[1] - '0', level + 1) << AllText(element);
      level = element.name[1] - '0';
    }
    const bool isNew = element["id"].empty() || ids.insert(element["id"]).second;
    EXPECT_TRUE(isNew) << element["id"];
    if (element.name == "a") links.push_back(element["href"]);
    for (const auto& [attribute, value] : element.attributes) {
      EXPECT_NE(attribute.substr(0, 2), "on") << attribute;
      EXPECT_NE(attribute, "style");
    }
  });
  for (const std::string& link : links) EXPECT_EQ(ids.count(link.substr(1)), 1u) << link;
  EXPECT_EQ(ids.count("two_sublists_tagging.om5"), 1u);
  EXPECT_EQ(ids.count("two_sublists_tagging.om5~2"), 1u);
}

// Every text that a data file can put into the page, and paths and names besides.
RunResults HostileResults() {
  RunResults results;
  for (const std::string& hostile : HostileTexts()) {
    DatafileResult datafile = DatafileWithOneWrongCell();
    datafile.experiment = hostile;
    datafile.path = hostile.substr(0, hostile.find('\0'));
    TestOutcome& test = datafile.tests[1];
    test.name = test.subject = test.location = test.message = hostile;
    test.evidence.words = {hostile};
    test.evidence.cells[0].actual = hostile;
    test.evidence.cells[0].column = hostile;
    test.evidence.context.columns = {hostile, hostile};
    for (EvidenceContext::Row& row : test.evidence.context.rows) row.cells = {hostile, hostile};
    datafile.remarks = {hostile};
    results.datafiles.push_back(datafile);
    datafile.loss = Loss{0, 1, {hostile}};
    results.datafiles.push_back(datafile);
    results.faults.push_back(hostile);
    results.reports.emplace_back(hostile.substr(0, hostile.find('\0')));
    results.beforeFirst.push_back(test);
  }
  return results;
}

TEST(HtmlPrinter, HostileTextsStayTexts) {
  const std::string text = Printed(HostileResults());
  EXPECT_LT(text.size(), 2u << 20) << "a cell of 200 KB is cut";
  const XmlElement page = ReadXml(text);
  EXPECT_EQ(ElementsOf(page, "article").size(), 2 * HostileTexts().size());
  EXPECT_EQ(ElementsOf(page, "script").size(), 1u);
  EXPECT_TRUE(ElementsOf(page, "testcase").empty());
  EXPECT_TRUE(ElementsOf(page, "b").empty());
  EXPECT_TRUE(Has(page, "]]></failure></testcase><testcase name=\"x\"/>"));
  EXPECT_TRUE(Has(page, "\\x1B[31mred\\x1B[0m"));
  EXPECT_TRUE(Has(page, "bad \\xFF\\xC3 utf-8"));
}

// read_page.py lists the elements as an HTML parser meets them, and as an XML parser does.
TEST(HtmlPrinter, AnHtmlParserReadsTheSameElementsAsAnXmlParser) {
  ScratchFolder folder;
  RunResults results = HostileResults();
  for (int i = 0; i < 100; ++i) results.datafiles.push_back(results.datafiles[4]);
  WriteFile(folder / "page.html", Printed(results));
  const Finished read =
      RunProgram({"/usr/bin/python3", std::string(OMBRELIA_SOURCE_DIR) + "/tests/host/read_page.py",
                  folder / "page.html"});
  EXPECT_EQ(read.status, 0) << read.out << read.err;
  EXPECT_EQ(read.out.substr(0, 8), "the same") << read.out;
}

TEST(HtmlPrinter, TheSameResultsAreTheSameBytes) {
  EXPECT_EQ(Printed(WholeResults()), Printed(WholeResults()));
}

TEST(HtmlPrinter, FurtherPagesAreDataAndNothingIsLost) {
  RunResults results;
  for (int i = 0; i < 120; ++i) {
    results.datafiles.push_back(DatafileWithOneWrongCell());
    results.datafiles.push_back(WholeResults().datafiles[2]);
  }
  const XmlElement page = Page(results);
  EXPECT_EQ(ElementsOf(page, "article").size(), 100u);
  EXPECT_TRUE(
      Has(ElementsOf(page, "noscript").at(0), "140 further data files, of which 20 did not pass"));
  const nlohmann::json further = nlohmann::json::parse(WithId(page, "script", "page:data").text);
  ASSERT_EQ(further.size(), 140u);
  EXPECT_EQ(further[0][0], "two_sublists_tagging.om5~101");
  EXPECT_EQ(further[0][1], "failed");
  EXPECT_EQ(further[139][0], "good.om4~120");
  const XmlElement card = ReadXml(further[0][2].get<std::string>());
  EXPECT_EQ(card["id"], "two_sublists_tagging.om5~101");
  EXPECT_TRUE(Has(card, "At datafile row index 4 we expected {red}"));
}

TEST(HtmlPrinter, AMultitudeOfFailingTestsIsNamedAndCounted) {
  RunResults results;
  results.datafiles = {DatafileWithOneWrongCell()};
  results.datafiles[0].tests.resize(1001, results.datafiles[0].tests[1]);
  const XmlElement card = Card(Page(results), "two_sublists_tagging.om5");
  EXPECT_EQ(ElementsOf(card, "h4").size(), 50u);
  EXPECT_TRUE(Has(card, "and 930 further tests"));
}

TEST(HtmlPrinter, EvidenceOfThousandsOfFailingDataFilesIsLeftOutInWords) {
  RunResults results;
  DatafileResult datafile = DatafileWithOneWrongCell();
  datafile.tests.resize(40, datafile.tests[1]);
  results.datafiles.resize(1000, datafile);
  const std::string text = Printed(results);
  EXPECT_LT(text.size(), 20u << 20);
  const nlohmann::json further =
      nlohmann::json::parse(WithId(ReadXml(text), "script", "page:data").text);
  EXPECT_EQ(further.size(), 900u);
  const std::string last = further.back()[2];
  EXPECT_NE(last.find("Without evidence here"), std::string::npos);
  EXPECT_NE(last.find("and 19 further tests"), std::string::npos);
}

}  // namespace
}  // namespace Tests
