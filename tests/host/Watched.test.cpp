// verify-datafiles watched.
#include <signal.h>

#include <chrono>
#include <map>
#include <nlohmann/json.hpp>
#include <thread>

#include "host/results/Manifest.h"
#include "tests/BuildPaths.h"
#include "tests/host/ReadXml.h"
#include "tests/host/VerifyDatafiles.h"
#include "tests/support/DataFile.h"

namespace Tests {
namespace {

using nlohmann::json;

const std::string TAGGING = "two_sublists_tagging.om5";
const std::string SEARCHING = "2012-12-20_test_reset_the_subset.om5";

class WatchedTest : public VerifyDatafilesTest {
 protected:
  std::string Watched(const Arguments& arguments) {
    Arguments all = {"watched"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    const Finished finished = Verify(all);
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_EQ(finished.err, "");
    return finished.out;
  }
  // The one data file's part of the JSON.
  json JsonOf(Arguments arguments) {
    arguments.insert(arguments.end(), {"--json", "watched.json"});
    Watched(arguments);
    const json whole = json::parse(ReadFile(m_folder / "watched.json"));
    EXPECT_EQ(whole.at("format"), 1);
    EXPECT_EQ(whole.at("watched").size(), 1u);
    return whole.at("watched").at(0);
  }
  static json ColumnIn(const json& datafile, const std::string& name) {
    for (const json& column : datafile.at("columns")) {
      if (column.at("name") == name) return column;
    }
    ADD_FAILURE() << "no column " << name;
    return {};
  }
};

bool Has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST_F(WatchedTest, ShowsTheShareOfEachColumn) {
  EXPECT_EQ(Watched({TAGGING}),
            R"(two_sublists_tagging.om5
  Tags of sublist items show in columns of their own.
  Noticed by TwoSublistsTagging of 283 changes of two_sublists_tagging.om5 1.txt:
    Participant Name        0 of 9
    Block Name              0 of 9
    Trial Name              0 of 9
    Event Name              0 of 9
    Participant Response    0 of 9
    Error Code              0 of 9
    Reaction Time           0 of 9
    Cumulative Time         0 of 9, 1 in part
    color                   9 of 9
    direction               9 of 9
    Expansion Time(ms): 58  0 of 9
    (a row dropped)         9 of 9
    (a row doubled)         9 of 9
    (bounds)                5 of 5
)");
}

TEST_F(WatchedTest, SaysWhereASearchNeverEnds) {
  const std::string text = Watched({SEARCHING, "--timeout", "0.5"});
  EXPECT_TRUE(Has(text, "    The verification never ends if Event Name is empty in all rows.\n"));
  EXPECT_TRUE(Has(text, "    The verification never ends without the column Event Name.\n"));
  EXPECT_TRUE(Has(text, "    Event Name ")) << text;
}

TEST_F(WatchedTest, WritesWhatEachChangeOfACellDid) {
  const json datafile = JsonOf({TAGGING});
  EXPECT_EQ(datafile.at("experiment"), TAGGING);
  EXPECT_EQ(datafile.at("verifier"), "TwoSublistsTagging");
  EXPECT_EQ(datafile.at("changes"), 283);
  const json color = ColumnIn(datafile, "color");
  EXPECT_EQ(color.at("cells"), 9);
  EXPECT_EQ(color.at("noticed"), 9);
  EXPECT_EQ(color.at("noticed_in_part"), 0);
  for (const char* change : {"near", "other", "empty"}) EXPECT_EQ(color.at(change), "nnnnnnnnn");
  EXPECT_EQ(color.at("column_emptied"), "noticed");
  EXPECT_EQ(color.at("column_removed"), "noticed");
  // One more millisecond is within the bounds; the first row's time and none are not.
  const json time = ColumnIn(datafile, "Cumulative\nTime");
  EXPECT_EQ(time.at("noticed_in_part"), 1);
  EXPECT_EQ(time.at("near"), ".........");
  EXPECT_EQ(time.at("other"), "........n");
  EXPECT_EQ(time.at("empty"), "........n");
  // There is nothing to be emptied and no other text.
  const json error = ColumnIn(datafile, "Error\nCode");
  EXPECT_EQ(error.at("noticed"), 0);
  EXPECT_EQ(datafile.at("rows_dropped"), (json{{"rows", 9}, {"noticed", 9}, {"map", "nnnnnnnnn"}}));
}

TEST_F(WatchedTest, MovesTheNumberToBothSidesOfBothEndsOfEachBound) {
  const json bounds = JsonOf({TAGGING}).at("bounds");
  ASSERT_EQ(bounds.size(), 5u);
  for (const json& bound : bounds) {
    for (const char* fact :
         {"noticed", "fails_below", "passes_at_min", "passes_at_max", "fails_above"}) {
      EXPECT_EQ(bound.at(fact), true) << bound;
    }
  }
  EXPECT_EQ(bounds.at(0).at("machine"), "ordinary");
  EXPECT_EQ(bounds.at(0).at("min"), 900);
  EXPECT_EQ(bounds.at(0).at("max"), 5200);
}

TEST_F(WatchedTest, WritesAPageWithTheShares) {
  Watched({TAGGING, SEARCHING, "--timeout", "0.5", "--html", "watched.html"});
  const XmlElement page = ReadXml(ReadFile(m_folder / "watched.html"));
  EXPECT_EQ(ElementsOf(page, "h1").at(0).text, "What the verifiers notice");
  const std::vector<XmlElement> cards = ElementsOf(page, "article");
  ASSERT_EQ(cards.size(), 2u);
  EXPECT_EQ(cards[0]["id"], TAGGING);
  std::map<std::string, std::string> shares;
  std::map<std::string, std::string> heat;
  for (const XmlElement& row : ElementsOf(cards[0], "tr")) {
    if (row.children.size() < 2 || row.children[1].name != "td") continue;
    shares[row.children[0].text] = row.children[1].text;
    heat[row.children[0].text] = row.children[1]["class"];
  }
  EXPECT_EQ(shares["color"], "9 of 9");
  EXPECT_EQ(heat["color"], "heat10");
  EXPECT_EQ(shares["Event Name"], "0 of 9");
  EXPECT_EQ(heat["Event Name"], "heat0");
  EXPECT_EQ(shares["Cumulative Time"], "0 of 9, 1 in part");
  EXPECT_EQ(shares["(bounds)"], "5 of 5");
  EXPECT_EQ(ElementsOf(cards[1], "li").at(0).text,
            "The verification never ends if Event Name is empty in all rows.");
  // The map of all of them has a row for each, with a link.
  const XmlElement all = ElementsOf(page, "section").at(0);
  EXPECT_EQ(ElementsOf(all, "tr").size(), 3u);
  EXPECT_EQ(ElementsOf(all, "a").at(1)["href"], "#" + SEARCHING);
}

TEST_F(WatchedTest, AddsARowWhereThereIsToBeNone) {
  const json datafile = JsonOf({"basic_input_brexa_qk_singlekey_pst.om4"});
  EXPECT_EQ(datafile.at("changes"), 1);
  EXPECT_EQ(datafile.at("row_added"), "unnoticed");
}

TEST_F(WatchedTest, TakesADatafileAndSeveral) {
  // One row more would be no good data file of it, but for the times nothing else counts.
  const std::string file =
      File(TAGGING + " 7.txt", DataFile::Sample(TAGGING).Set(0, "Trial\nName", "other").Text());
  const std::string text = Watched({file, "./" + file, "TWO_sublists_synchronization.om5"});
  EXPECT_TRUE(Has(text, " changes of two_sublists_tagging.om5 7.txt:\n"));
  EXPECT_TRUE(Has(text, "\ntwo_sublists_synchronization.om5\n"));
  EXPECT_TRUE(Has(text, "\nOf 3 data files and ")) << text;
}

TEST_F(WatchedTest, ReadsADatafileWithOtherLineEndsAndEncoding) {
  std::string text = DataFile::Sample(TAGGING).Text();
  std::string wide = "\xFF\xFE";
  for (const char c : text) {
    if (c == '\n') wide += std::string("\r\0", 2);
    wide += std::string(1, c) + '\0';
  }
  const json plain = JsonOf({TAGGING});
  json other = JsonOf({File(TAGGING + " 8.txt", wide)});
  other["datafile"] = plain.at("datafile");
  EXPECT_EQ(other, plain);
}

TEST_F(WatchedTest, RefusesADatafileThatIsNotGood) {
  const std::string file =
      File(TAGGING + " 9.txt", DataFile::Sample(TAGGING).Set(0, "color", "x").Text());
  const Finished finished = Verify({"watched", file, "--json", "watched.json"});
  EXPECT_EQ(finished.status, 2);
  EXPECT_EQ(finished.out, "");
  EXPECT_EQ(finished.err,
            "verify-datafiles: two_sublists_tagging.om5 9.txt: no good data file: "
            "Data_appears_completely_and_in_order fails\n");
  EXPECT_EQ(NamesIn(m_folder.Path()), std::vector<std::string>{file}) << "no half-written file";
}

// Its verification never ends.
TEST_F(WatchedTest, RefusesADatafileOnWhichTheVerifierIsLost) {
  DataFile sample = DataFile::Sample(SEARCHING);
  for (std::size_t i = 0; i < sample.RowCount(); ++i) sample.Set(i, "Event\nName", "x");
  const Finished finished =
      Verify({"watched", "--timeout", "0.5", File(SEARCHING + " 2.txt", sample.Text())});
  EXPECT_EQ(finished.status, 2);
  EXPECT_TRUE(Has(finished.err, ": no good data file: its verification takes too long\n"))
      << finished.err;
}

TEST_F(WatchedTest, RefusesWhatIsNoExperimentAndNoFile) {
  const Finished unknown = Verify({"watched", "two_sublists_taging.om5"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_EQ(unknown.err,
            "verify-datafiles: two_sublists_taging.om5: no experiment with a verifier has this "
            "name; did you mean two_sublists_tagging.om5?\n");
  EXPECT_EQ(Verify({"watched", "nothing.txt"}).err,
            "verify-datafiles: nothing.txt: no such file or folder\n");
  EXPECT_EQ(Verify({"watched", File("a.txt")}).err,
            "verify-datafiles: a.txt: is no data file of an experiment with a verifier\n");
}

TEST_F(WatchedTest, KeepsTheFormerFileUntilTheNewOneIsWhole) {
  File("watched.json", "former");
  EXPECT_EQ(Verify({"watched", "--json", "watched.json", "nothing.txt"}).status, 2);
  EXPECT_EQ(ReadFile(m_folder / "watched.json"), "former");
  EXPECT_EQ(Verify({"watched", "--json", "missing/watched.json", TAGGING}).err,
            "verify-datafiles: missing/watched.json: the file cannot be written\n");
}

TEST_F(WatchedTest, LeavesNothingBehindWhenItIsInterrupted) {
  Process process(
      Command({"watched", "--json", "watched.json", "--timeout", "60", TAGGING, SEARCHING}),
      SetupWith({}));
  for (int i = 0; i < 1000 && !Has(process.OutSoFar(), "(bounds)"); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  kill(process.Pid(), SIGINT);
  const Finished finished = process.Wait();  // it would search for minutes
  EXPECT_EQ(finished.signal, SIGINT) << finished.status << finished.err;
  EXPECT_EQ(NamesIn(m_folder.Path()), std::vector<std::string>());
}

TEST_F(WatchedTest, HelpHasAnExample) {
  EXPECT_TRUE(Has(Watched({"--help"}), "Example:\n  verify-datafiles watched "));
}

}  // namespace
}  // namespace Tests
