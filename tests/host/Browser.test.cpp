// The page of a run in headless Chromium. Skipped where there is no Chromium; what axe-core says is skipped where
// scripts/install-build-dependencies --tests could not install it.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "host/results/ResultsJson.h"
#include "tests/BuildPaths.h"
#include "tests/host/VerifyDatafiles.h"
#include "tests/host/WholeResults.h"
#include "tests/support/DataFile.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;
using nlohmann::json;

const char* const CHROMIUM = "/usr/bin/chromium";
const std::string AXE =
    std::string(OMBRELIA_SOURCE_DIR) + "/build/npm/node_modules/axe-core/axe.min.js";

const json DESKTOP = {"screen", 1280, 900, "light"};
const json DESKTOP_DARK = {"screen", 1280, 900, "dark"};
const json PHONE = {"screen", 360, 740, "light"};
const json PHONE_DARK = {"screen", 360, 740, "dark"};
const json OPEN = {"open", ""};

json Evaluate(const std::string& expression) { return {"evaluate", expression}; }

json Type(const std::string& text) {
  return Evaluate("{const box = document.getElementById('page:search'); box.value = '" + text +
                  "'; box.dispatchEvent(new Event('input', {bubbles: true}))}");
}
json Click(const std::string& selector) {
  return Evaluate("document.querySelector('" + selector + "').click()");
}
json ClickId(const std::string& id) {
  return Evaluate("document.getElementById('" + id + "').click()");
}
json TextOf(const std::string& id) {
  return Evaluate("document.getElementById('" + id + "').textContent");
}
const json IDS =
    Evaluate("Array.from(document.querySelectorAll('article'), one => one.id).join(' ')");

class BrowserTest : public VerifyDatafilesTest {
 protected:
  void SetUp() override {
    if (!Exists(CHROMIUM)) GTEST_SKIP() << "chromium is not installed";
  }
  // The results of the steps (browse_page.py), one each.
  json Browse(const json& steps, const std::string& page = "page.html") {
    const Finished finished = RunProgram(
        {"/usr/bin/python3", std::string(OMBRELIA_SOURCE_DIR) + "/tests/host/browse_page.py",
         CHROMIUM, m_folder / page, steps.dump(), AXE});
    EXPECT_EQ(finished.status, 0) << finished.err;
    const json results = json::parse(finished.out, nullptr, false);
    EXPECT_EQ(results.size(), steps.size()) << finished.out;
    return results.size() == steps.size() ? results : json(std::vector<json>(steps.size()));
  }
  // No two data files are the same one.
  void PageOf(RunResults results) {
    for (std::size_t i = 0; i < results.datafiles.size(); ++i) {
      results.datafiles[i].digest = std::to_string(i);
    }
    Verify({"merge", File("results.json", JsonText(ToJson(results))), "--html", "page.html"});
  }
  // Many data files, of which every third failed.
  static RunResults ManyResults(int count) {
    RunResults results;
    for (int i = 0; i < count; ++i) {
      results.datafiles.push_back(i % 3 == 0 ? DatafileWithOneWrongCell()
                                             : WholeResults().datafiles[2]);
    }
    return results;
  }
};

TEST_F(BrowserTest, HasNoComplaintsAndFitsAPhone) {
  RunResults wide = WholeResults();
  EvidenceContext& context = wide.datafiles[0].tests[1].evidence.context;
  context.columns.resize(12, "One of many columns");
  for (EvidenceContext::Row& row : context.rows) row.cells.resize(12, std::string(60, 'x'));
  PageOf(wide);
  const json width = Evaluate("document.documentElement.scrollWidth");
  const json results = Browse({DESKTOP, OPEN, width, PHONE, OPEN, width, {"complaints"}});
  EXPECT_LE(results[2], 1280);
  EXPECT_EQ(results[5], 360) << "the page itself does not scroll sideways";
  EXPECT_EQ(results[6], json::array());
}

TEST_F(BrowserTest, AxeFindsNothingInLightAndDark) {
  if (!Exists(AXE)) GTEST_SKIP() << "axe-core is not installed";
  PageOf(WholeResults());
  const json unfold =
      Evaluate("document.querySelectorAll('details').forEach(one => { one.open = true; })");
  const json results = Browse({DESKTOP,
                               OPEN,
                               unfold,
                               {"axe"},
                               DESKTOP_DARK,
                               {"axe"},
                               PHONE,
                               {"axe"},
                               PHONE_DARK,
                               {"axe"},
                               {"complaints"}});
  for (const std::size_t run : {3u, 5u, 7u, 9u}) EXPECT_EQ(results[run], json::array()) << run;
  EXPECT_EQ(results[10], json::array());
}

TEST_F(BrowserTest, TheHistorysPageIsAsGood) {
  std::string lines;
  for (int i = 0; i < 9; ++i) {
    const std::string number = std::to_string(i);
    lines += json({{"format", 1},
                   {"time", "2026-03-0" + std::to_string(i + 1) + "T12:00:00Z"},
                   {"machine", "ordinary"},
                   {"experiment", "2013-01_assorted_new_block_options.om5"},
                   {"digest", number},
                   {"outcome", i > 7 ? "failed" : "passed"},
                   {"failed", {std::string(90, 'x')}},
                   {"trials", {{{"test", "Block_One_Is_V4_Jumbled"}, {"failed", i > 2}}}},
                   {"duration_ms", 1000 + i % 3}})
                 .dump() +
             "\n";
  }
  EXPECT_EQ(Verify({"history", File("history.jsonl", lines), "--html", "history.html"}).status, 0);
  const json unfold =
      Evaluate("document.querySelectorAll('details').forEach(one => { one.open = true; })");
  const json width = Evaluate("document.documentElement.scrollWidth");
  const json seen =
      Browse({DESKTOP, OPEN, unfold, width, PHONE, width, {"complaints"}}, "history.html");
  EXPECT_LE(seen[3], 1280);
  EXPECT_EQ(seen[5], 360);
  EXPECT_EQ(seen[6], json::array());
  if (!Exists(AXE)) GTEST_SKIP() << "axe-core is not installed";
  const json axe = Browse({DESKTOP, OPEN, unfold, {"axe"}, PHONE_DARK, {"axe"}}, "history.html");
  EXPECT_EQ(axe[3], json::array());
  EXPECT_EQ(axe[5], json::array());
}

TEST_F(BrowserTest, SearchesAndFiltersWithoutAReload) {
  PageOf(WholeResults());
  const json results = Browse({DESKTOP,
                               OPEN,
                               Evaluate("window.notReloaded = true"),
                               Type("EXPECTED {RED}"),
                               IDS,
                               TextOf("page:status"),
                               Type("segmentation"),
                               IDS,
                               Type(""),
                               Click("input[value=tolerated]"),
                               IDS,
                               Click("input[value=\"timed out\"]"),
                               IDS,
                               Type("by_chance nothing"),
                               IDS,
                               Evaluate("window.notReloaded"),
                               {"complaints"}});
  EXPECT_EQ(results[4], "two_sublists_tagging.om5");
  EXPECT_EQ(results[5], "1 of 9 data files");
  EXPECT_EQ(results[7], "crashing.om4");
  EXPECT_EQ(results[10], "by_chance.om4");
  EXPECT_EQ(results[12], "endless.om4 by_chance.om4");
  EXPECT_EQ(results[14], "");
  EXPECT_EQ(results[15], true);
  EXPECT_EQ(results[16], json::array());
}

TEST_F(BrowserTest, TurnsPagesAndFindsWhatIsOnNone) {
  PageOf(ManyResults(330));
  const json count = Evaluate("document.querySelectorAll('article').length");
  const json results =
      Browse({DESKTOP,
              OPEN,
              TextOf("page:number"),
              ClickId("page:next"),
              count,
              Evaluate("document.querySelector('article').id + ' ' + document.activeElement.id"),
              Type("good.om4"),
              TextOf("page:status"),
              TextOf("page:number"),
              Click("input[value=failed]"),
              TextOf("page:status"),
              {"complaints"}});
  EXPECT_EQ(results[2], "Page 1 of 4");
  EXPECT_EQ(results[4], 100);
  EXPECT_EQ(results[5], "two_sublists_tagging.om5~101 page:datafiles-heading");
  EXPECT_EQ(results[7], "220 of 330 data files");
  EXPECT_EQ(results[8], "Page 1 of 3");
  EXPECT_EQ(results[10], "0 of 330 data files");
  EXPECT_EQ(results[11], json::array());
}

TEST_F(BrowserTest, ALinkToADataFileLeadsToItOnWhicheverPage) {
  PageOf(ManyResults(330));
  const json active = Evaluate("document.activeElement.id");
  const json onScreen = Evaluate(
      "(() => { const box = "
      "document.getElementById(location.hash.slice(1)).getBoundingClientRect(); "
      "return box.top >= -1 && box.top < innerHeight; })()");
  const json follow = Evaluate(
      "new Promise(done => { addEventListener('hashchange', () => setTimeout(done), {once: true}); "
      "location.hash = '#good.om4~7'; })");
  const json results = Browse({DESKTOP,
                               {"open", "good.om4~200"},
                               active,
                               TextOf("page:number"),
                               onScreen,
                               {"open", "two_sublists_tagging.om5"},
                               onScreen,
                               follow,
                               active,
                               TextOf("page:number"),
                               onScreen,
                               {"complaints"}});
  EXPECT_EQ(results[2], "good.om4~200");
  EXPECT_EQ(results[3], "Page 4 of 4");
  EXPECT_EQ(results[4], true);
  EXPECT_EQ(results[6], true);
  EXPECT_EQ(results[8], "good.om4~7");
  EXPECT_EQ(results[9], "Page 2 of 4");
  EXPECT_EQ(results[10], true);
  EXPECT_EQ(results[11], json::array());
}

TEST_F(BrowserTest, HostileCellsRunNothingOnAnyPage) {
  RunResults results = ManyResults(30);
  for (int i = 0; i < 10; ++i) {
    for (const std::string& hostile :
         {std::string("</script><script>alert(1)</script>"),
          std::string("<img src=x onerror=alert(2)>"),
          std::string("\"onfocus=alert(3) autofocus=\""), std::string("<!--<script>"),
          std::string("]]><svg onload=alert(4)>"), std::string("javascript:alert(5)"),
          std::string("</td></table></article></main>")}) {
      DatafileResult datafile = DatafileWithOneWrongCell();
      datafile.experiment = hostile;
      datafile.path = hostile;
      TestOutcome& test = datafile.tests[1];
      test.name = test.subject = test.message = hostile;
      test.evidence.cells[0].actual = hostile;
      test.evidence.context.rows[2].cells = {hostile};
      datafile.remarks = {hostile};
      results.datafiles.push_back(datafile);
    }
  }
  results.datafiles.insert(results.datafiles.end(), 40, results.datafiles.back());
  PageOf(results);
  const json foreign =
      Evaluate("document.querySelectorAll('#page\\\\:list :is(img, script)').length");
  const json ran = Browse({DESKTOP,
                           OPEN,
                           foreign,
                           ClickId("page:next"),
                           foreign,
                           TextOf("page:number"),
                           Type("onerror"),
                           TextOf("page:status"),
                           {"complaints"}});
  EXPECT_EQ(ran[2], 0);
  EXPECT_EQ(ran[4], 0);
  EXPECT_EQ(ran[5], "Page 2 of 2");
  EXPECT_EQ(ran[7], "10 of 140 data files");
  EXPECT_EQ(ran[8], json::array());
}

TEST_F(BrowserTest, TenThousandDataFilesAreSearchedWhole) {
  PageOf(ManyResults(10000));
  const json results = Browse({DESKTOP,
                               OPEN,
                               Type("expected {red}"),
                               TextOf("page:status"),
                               ClickId("page:next"),
                               TextOf("page:number"),
                               {"complaints"}});
  EXPECT_EQ(results[3], "3334 of 10000 data files");
  EXPECT_EQ(results[5], "Page 2 of 34");
  EXPECT_EQ(results[6], json::array());
}

TEST_F(BrowserTest, IsReadableWithoutItsScriptAndPrintsWhatIsFolded) {
  PageOf(WholeResults());
  std::string text = ReadFile(m_folder / "page.html");
  text.erase(text.rfind("<script"), text.rfind("</script>") + 9 - text.rfind("<script"));
  File("still.html", text);
  const json visible = Evaluate(
      "document.querySelector('details').open + ' ' + "
      "document.querySelector('details td').checkVisibility() + ' ' + "
      "document.querySelectorAll('article').length + ' ' + "
      "getComputedStyle(document.getElementById('page:controls')).display");
  const json results =
      Browse({DESKTOP, OPEN, visible, {"screen", 800, 1100, "print"}, visible, {"complaints"}},
             "still.html");
  EXPECT_EQ(results[2], "false false 9 none") << "no controls that do nothing";
  EXPECT_EQ(results[4], "false true 9 none");
  EXPECT_EQ(results[5], json::array());
}

}  // namespace
}  // namespace Tests
