// verify-datafiles --html, from data files to the page.
#include <nlohmann/json.hpp>

#include "host/results/ResultsJson.h"
#include "tests/BuildPaths.h"
#include "tests/host/ReadXml.h"
#include "tests/host/VerifyDatafiles.h"
#include "tests/host/WholeResults.h"
#include "tests/support/DataFile.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

class HtmlTest : public VerifyDatafilesTest {
 protected:
  XmlElement Page(const std::string& name = "page.html") {
    return ReadXml(ReadFile(m_folder / name));
  }
  std::string ResultsFile(const RunResults& results) {
    return File("results.json", JsonText(ToJson(results)));
  }
};

TEST_F(HtmlTest, AllSamplesMakeASmallPageWithEveryTimeAgainstItsBounds) {
  const Finished finished = Verify({std::string(OMBRELIA_SOURCE_DIR) + "/samples/datafiles",
                                    "--html", "page.html", "--json", "results.json", "-q"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  const std::string text = ReadFile(m_folder / "page.html");
  EXPECT_LT(text.size(), 2000000u);
  EXPECT_EQ(text.find("http://"), std::string::npos);
  EXPECT_EQ(text.find("https://"), std::string::npos);
  const XmlElement page = Page();
  EXPECT_EQ(ElementsOf(page, "article").size(), 68u);
  EXPECT_TRUE(ElementsOf(page, "noscript").empty());

  std::size_t bounds = 0;
  const nlohmann::json results = nlohmann::json::parse(ReadFile(m_folder / "results.json"));
  for (const nlohmann::json& datafile : results.at("datafiles")) {
    for (const nlohmann::json& test : datafile.at("tests")) {
      const std::string name = test.at("name");
      const bool isOfABound =
          name.find("Experiment_duration_") == 0 || name.find("Expansion_duration_") == 0;
      EXPECT_EQ(test.contains("bound"), isOfABound) << name;
      if (isOfABound) ++bounds;
    }
  }
  EXPECT_GT(bounds, 100u);
  EXPECT_EQ(ElementsOf(page, "svg").size(), bounds);
}

TEST_F(HtmlTest, TheTerminalAndTheStatusStayAsTheyAre) {
  File("two_sublists_tagging.om5 3.txt",
       DataFile::Sample("two_sublists_tagging.om5").Set(4, "color", "blue").Text());
  File("two_sublists_tagging.om5 4.txt", DataFile::Sample("two_sublists_tagging.om5").Text());
  File("nothing.om5 1.txt");
  const Finished without = Verify({m_folder.Path()});
  const Finished with = Verify({m_folder.Path(), "--html", "page.html"});
  EXPECT_EQ(with.out, without.out);
  EXPECT_EQ(with.err, without.err);
  EXPECT_EQ(with.status, without.status);
  EXPECT_EQ(ElementsOf(Page(), "article").size(), 3u);
}

TEST_F(HtmlTest, WithoutItNoPassingTestHasABound) {
  File("two_sublists_tagging.om5 4.txt", DataFile::Sample("two_sublists_tagging.om5").Text());
  EXPECT_EQ(Verify({m_folder.Path(), "--json", "results.json"}).status, 0);
  EXPECT_EQ(ReadFile(m_folder / "results.json").find("\"bound\""), std::string::npos);
}

TEST_F(HtmlTest, MergedResultsMakeAPageTwiceTheSame) {
  const std::string results = ResultsFile(WholeResults());
  EXPECT_EQ(Verify({"merge", results, "--html", "page.html"}).status, 3);
  EXPECT_EQ(Verify({"merge", results, "--html", "again.html"}).status, 3);
  EXPECT_EQ(ElementsOf(Page(), "article").size(), 9u);
  EXPECT_EQ(ReadFile(m_folder / "page.html"), ReadFile(m_folder / "again.html"));
}

TEST_F(HtmlTest, AFileThatCannotBeWrittenIsToldBeforeAnythingRuns) {
  const Finished finished = Verify({File("nothing.om5 1.txt"), "--html", "missing/page.html"});
  EXPECT_EQ(finished.status, 2);
  EXPECT_EQ(finished.err, "verify-datafiles: missing/page.html: the file cannot be written\n");
  EXPECT_FALSE(AnythingRan());
}

TEST_F(HtmlTest, HostileCellsOfADataFileStayTexts) {
  DataFile file = DataFile::Sample("two_sublists_tagging.om5");
  file.Set(3, "color", "</td></script><script>document.title='x'</script>");
  File("two_sublists_tagging.om5 1.txt", file.Text());
  file.Set(3, "color", "]]>\x01\x1B[0m\xFF\"'" + std::string(200 * 1024, '<'));
  File("two_sublists_tagging.om5 2.txt", file.Text());
  EXPECT_EQ(Verify({m_folder.Path(), "--html", "page.html"}).status, 1);
  EXPECT_LT(ReadFile(m_folder / "page.html").size(), 200000u);
  EXPECT_EQ(ElementsOf(Page(), "script").size(), 1u);
  const Finished read =
      RunProgram({"/usr/bin/python3", std::string(OMBRELIA_SOURCE_DIR) + "/tests/host/read_page.py",
                  m_folder / "page.html"});
  EXPECT_EQ(read.status, 0) << read.out << read.err;
}

}  // namespace
}  // namespace Tests
