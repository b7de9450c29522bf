// The frame of every page, read back as XML.
#include "host/print/HtmlPage.h"

#include <gtest/gtest.h>

#include <sstream>

#include "host/print/HtmlTable.h"
#include "host/print/HtmlText.h"
#include "tests/host/ReadXml.h"
#include "tests/host/WholeResults.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

std::string Printed(const HtmlPage& page) {
  std::ostringstream out;
  page.Print(out);
  return out.str();
}

HtmlPage SmallPage() {
  HtmlPage page;
  page.title = "Times & more";
  page.lead = "<p>All is well.</p>";
  page.sections = {{"page:first", "First", "<p>one</p>"}, {"page:second", "Second", "<p>two</p>"}};
  return page;
}

TEST(HtmlPage, HasItsLandmarksAndHeadingsInOrder) {
  const XmlElement html = ReadXml(Printed(SmallPage()));
  EXPECT_EQ(html["lang"], "en");
  EXPECT_EQ(ElementsOf(html, "title").at(0).text, "Times & more");
  EXPECT_EQ(ElementsOf(html, "h1").at(0).text, "Times & more");
  for (const char* const landmark : {"header", "nav", "main", "footer"}) {
    EXPECT_EQ(ElementsOf(html, landmark).size(), 1u) << landmark;
  }
  const std::vector<XmlElement> sections = ElementsOf(html, "section");
  ASSERT_EQ(sections.size(), 2u);
  EXPECT_EQ(sections[1]["id"], "page:second");
  EXPECT_EQ(sections[1].children.at(0).name, "h2");
  EXPECT_EQ(sections[1]["aria-labelledby"], sections[1].children.at(0)["id"]);
  const XmlElement nav = ElementsOf(html, "nav").at(0);
  EXPECT_EQ(ElementsOf(nav, "a").at(1)["href"], "#page:second");
}

TEST(HtmlPage, AsksForNothingAndRunsNothingButItsOwn) {
  HtmlPage page = SmallPage();
  page.script = "'use strict';\n";
  const std::string text = Printed(page);
  const XmlElement html = ReadXml(text);
  const std::string policy = ElementsOf(html, "meta").at(1)["content"];
  const std::string nonce = ElementsOf(html, "script").at(0)["nonce"];
  EXPECT_EQ(nonce.size(), 32u);
  EXPECT_EQ(ElementsOf(html, "style").at(0)["nonce"], nonce);
  EXPECT_EQ(policy.find("default-src 'none'"), 0u);
  EXPECT_NE(policy.find("script-src 'nonce-" + nonce + "';"), std::string::npos);
  EXPECT_EQ(text.find("http://"), std::string::npos);
  EXPECT_EQ(text.find("https://"), std::string::npos);
  EXPECT_EQ(text.find("url("), std::string::npos);
  EXPECT_EQ(text.find("@import"), std::string::npos);
}

TEST(HtmlPage, TheSameContentIsTheSamePageAndOtherContentHasAnotherNonce) {
  HtmlPage other = SmallPage();
  other.sections[1].body = "<p>three</p>";
  EXPECT_EQ(Printed(SmallPage()), Printed(SmallPage()));
  EXPECT_NE(ElementsOf(ReadXml(Printed(SmallPage())), "style").at(0)["nonce"],
            ElementsOf(ReadXml(Printed(other)), "style").at(0)["nonce"]);
}

TEST(HtmlPage, DataForTheScriptIsNoMarkup) {
  HtmlPage page = SmallPage();
  page.data = R"(["</script><script>alert(1)</script>","<!--","]]>","a & b"])";
  const std::string text = Printed(page);
  EXPECT_EQ(text.find("</script><script>alert"), std::string::npos);
  EXPECT_EQ(text.find("<!--"), std::string::npos);
  EXPECT_EQ(ElementsOf(ReadXml(text), "script").at(0).text,
            "[\"\\u003c/script\\u003e\\u003cscript\\u003ealert(1)\\u003c/script\\u003e\","
            "\"\\u003c!--\",\"]]\\u003e\",\"a \\u0026 b\"]");
}

TEST(HtmlPage, HostileTitlesAndCaptionsStayTexts) {
  for (const std::string& hostile : HostileTexts()) {
    HtmlPage page = SmallPage();
    page.title = hostile;
    page.sections[0].heading = hostile;
    HtmlTable table(hostile);
    table.AddColumn(hostile, HtmlTable::Align::Left);
    table.AddRow({HtmlText(hostile)});
    page.sections[0].body = table.Markup();
    const XmlElement html = ReadXml(Printed(page));
    EXPECT_EQ(ElementsOf(html, "section").size(), 2u);
    EXPECT_EQ(ElementsOf(html, "td").size(), 1u);
    EXPECT_EQ(ElementsOf(html, "b").size() + ElementsOf(html, "script").size(), 0u);
  }
}

TEST(HtmlTable, AColumnWithoutHeadingAndCellsTakesNoPlace) {
  HtmlTable table("Some rows");
  table.AddColumn("line", HtmlTable::Align::Right);
  table.AddColumn("", HtmlTable::Align::Left);
  table.AddColumn("color", HtmlTable::Align::Left);
  table.AddRow({"9", "", "red"});
  table.AddRow({"10", "", "blue"}, "decides", true);
  const XmlElement markup = ReadXml(table.Markup());
  EXPECT_EQ(markup["aria-label"], "Some rows");
  EXPECT_EQ(markup["tabindex"], "0");
  const std::vector<XmlElement> rows = ElementsOf(markup, "tr");
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[0].children.size(), 2u);
  EXPECT_EQ(rows[0].children[0]["class"], "number");
  EXPECT_EQ(rows[1].children[1].text, "red");
  EXPECT_EQ(rows[2]["class"], "decides");
  EXPECT_EQ(rows[2].children[0].name, "th");
}

}  // namespace
}  // namespace Tests
