#include "host/print/HtmlText.h"

#include <gtest/gtest.h>

#include <set>

#include "host/print/VisibleText.h"
#include "tests/host/ReadXml.h"
#include "tests/host/WholeResults.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

TEST(HtmlText, TextsNeverBecomeMarkup) {
  EXPECT_EQ(HtmlText("a < b & c > \"d\""), "a &lt; b &amp; c &gt; \"d\"");
  EXPECT_EQ(HtmlAttribute("title", "\"><script>"), " title=\"&quot;&gt;&lt;script&gt;\"");
  for (const std::string& hostile : HostileTexts()) {
    const XmlElement element = ReadXml("<p" + HtmlAttribute("title", hostile) + ">" +
                                       HtmlText(hostile) + HtmlCell(hostile) + "</p>");
    EXPECT_EQ(element.name, "p");
    for (const XmlElement& child : element.children) EXPECT_EQ(child["class"], "unseen");
  }
}

TEST(HtmlText, MarksOfWhatCannotBeSeenAreSetOff) {
  EXPECT_EQ(HtmlCell(CellShown("a\tb", 40)), "a<i class=\"unseen\">\\t</i>b");
  EXPECT_EQ(HtmlCell(CellShown("\x1B[0m", 40)), "<i class=\"unseen\">\\x1B</i>[0m");
  EXPECT_EQ(HtmlCell(CellShown("red\xC2\xA0", 40)), "red<i class=\"unseen\">\\u{A0}</i>");
  EXPECT_EQ(HtmlCell(CellShown("  x ", 40)),
            "<i class=\"unseen\">\xC2\xB7\xC2\xB7</i>x<i class=\"unseen\">\xC2\xB7</i>");
  EXPECT_EQ(HtmlCell(CellShown("  ", 40)), "<i class=\"unseen\">\xC2\xB7\xC2\xB7</i>");
}

TEST(HtmlText, CharactersOfTheTextItselfAreNoMarks) {
  EXPECT_EQ(HtmlCell(CellShown("a\\tb", 40)), "a\\\\tb");
  EXPECT_EQ(HtmlCell(CellShown("a\xC2\xB7"
                               "b",
                               40)),
            "a\xC2\xB7"
            "b");
  EXPECT_EQ(HtmlCell("\\"), "\\");
  EXPECT_EQ(HtmlCell("\\u"), "<i class=\"unseen\">\\u</i>");
}

TEST(HtmlText, IdsAreOneWordWhateverTheText) {
  EXPECT_EQ(HtmlId("two_sublists-1.om5"), "two_sublists-1.om5");
  EXPECT_EQ(HtmlId("a b:c#d%\xC3\xA4"), "a%20b%3Ac%23d%25%C3%A4");
  EXPECT_EQ(HtmlId(""), "%");
  EXPECT_LE(HtmlId(std::string(200 * 1024, ' ')).size(), 202u);
}

TEST(HtmlText, NoTwoIdsAreEqual) {
  HtmlIds ids;
  EXPECT_EQ(ids.Next("x.om5"), "x.om5");
  EXPECT_EQ(ids.Next("x.om5"), "x.om5~2");
  EXPECT_EQ(ids.Next("x.om5~2"), "x.om5%7E2");
  EXPECT_EQ(ids.Next(std::string(300, 'a')), std::string(200, 'a'));
  EXPECT_EQ(ids.Next(std::string(301, 'a')), std::string(200, 'a') + "~2");
}

}  // namespace
}  // namespace Tests
