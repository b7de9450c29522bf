// The memory of runs, through the built program.
#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <limits>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>

#include "host/results/ResultsJson.h"
#include "tests/BuildPaths.h"
#include "tests/host/ReadXml.h"
#include "tests/host/VerifyDatafiles.h"
#include "tests/host/WholeResults.h"
#include "tests/support/DataFile.h"

namespace Tests {
namespace {

using nlohmann::json;

const char* const TAGGING = "two_sublists_tagging.om5";
const char* const VARIETY = "2012-12-20_test_reset_the_subset.om5";

// The time that many seconds after a fixed one.
std::string Time(long seconds) {
  const std::time_t time = 1772366400 + seconds;  // 2026-03-01T12:00:00Z
  std::tm parts{};
  gmtime_r(&time, &parts);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts);
  return text;
}

json Line(const std::string& experiment, long seconds, const std::string& outcome,
          const std::string& digest) {
  json line = {{"format", 1},       {"time", Time(seconds)}, {"machine", "ordinary"},
               {"host", "builder"}, {"verifiers", "1"},      {"experiment", experiment},
               {"digest", digest},  {"outcome", outcome}};
  if (outcome == "failed") line["failed"] = {"The_check"};
  return line;
}

json Trial(long seconds, bool failed, const std::string& digest) {
  json line = Line(VARIETY, seconds, failed ? "tolerated" : "passed", digest);
  line["trials"] = {{{"test", "Variety_of_Right_and_Left"}, {"failed", failed}}};
  return line;
}

class HistoryTest : public VerifyDatafilesTest {
 protected:
  static std::string SamplePath(const std::string& experiment) {
    return std::string(OMBRELIA_SOURCE_DIR) + "/samples/datafiles/" + experiment + " 1.txt";
  }
  std::string HistoryOf(const std::vector<json>& lines) {
    std::string text;
    for (const json& line : lines) text += line.dump() + "\n";
    return File("history.jsonl", text);
  }
  std::vector<json> LinesOfFile(const std::string& name) const {
    std::vector<json> lines;
    std::istringstream text(ReadFile(m_folder / name));
    for (std::string line; std::getline(text, line);) lines.push_back(json::parse(line));
    return lines;
  }
  // What the program says of one experiment of a good history, as JSON.
  json Told(const std::vector<json>& lines) {
    const Finished finished = Verify({"history", HistoryOf(lines), "--json", "told.json"});
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_EQ(finished.err, "");
    return json::parse(ReadFile(m_folder / "told.json")).at("experiments").at(0);
  }
  std::string Shown(const std::vector<json>& lines) {
    const Finished finished = Verify({"history", HistoryOf(lines)});
    EXPECT_EQ(finished.status, 0) << finished.err;
    return finished.out;
  }
  static void ExpectHolds(const std::string& text, const std::string& part) {
    EXPECT_NE(text.find(part), std::string::npos) << text;
  }
};

TEST_F(HistoryTest, ARunAddsALineForEachDataFile) {
  const Finished finished =
      Verify({SamplePath(TAGGING), SamplePath("2011-11-1_tolmey_2552_Randomization.om4"),
              "--history", "history.jsonl", "--quiet"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  const std::vector<json> lines = LinesOfFile("history.jsonl");
  ASSERT_EQ(lines.size(), 2u);
  const json& line = lines[0];
  EXPECT_EQ(line.at("format"), 1);
  EXPECT_EQ(line.at("experiment"), TAGGING);
  EXPECT_EQ(line.at("outcome"), "passed");
  EXPECT_EQ(line.at("machine"), "ordinary");
  EXPECT_NE(line.at("host"), "");
  EXPECT_EQ(line.at("time").get<std::string>().size(), Time(0).size());
  EXPECT_EQ(line.at("digest").get<std::string>().size(), 32u);
  EXPECT_EQ(line.at("verifiers").get<std::string>().find(OMBRELIA_VERSION "+"), 0u);
  EXPECT_EQ(line.at("rows"), 9);
  EXPECT_TRUE(line.contains("duration_ms"));
  EXPECT_TRUE(line.contains("expansion_ms"));
  EXPECT_FALSE(line.contains("failed"));
  EXPECT_FALSE(line.contains("trials"));
  const json& bound = line.at("bounds").at(0);
  EXPECT_EQ(bound.at("test"), "Experiment_duration_two_sublists_tagging.om5");
  EXPECT_EQ(bound.at("min"), 900);
  EXPECT_EQ(bound.at("max"), 5200);
  EXPECT_EQ(bound.at("actual"), line.at("duration_ms"));
  EXPECT_EQ(lines[1].at("rows"), 100);
  EXPECT_EQ(lines[1].at("trials").at(0).at("test"),
            "Experiment_is_a_bunch_of_coinflips_as_expected");
  EXPECT_EQ(lines[1].at("trials").at(0).at("failed"), false);
}

TEST_F(HistoryTest, AFailingDataFileNamesItsTestsWithoutWhatChanges) {
  File("two_sublists_tagging.om5 7.txt",
       DataFile::Sample(TAGGING).Set(4, "color", "blue").SetDuration("9").Text());
  Verify({"two_sublists_tagging.om5 7.txt", "--history", "history.jsonl"});
  EXPECT_EQ(LinesOfFile("history.jsonl").at(0).at("failed"),
            (json{"Data_appears_completely_and_in_order",
                  "Experiment_duration_two_sublists_tagging.om5"}));
}

TEST_F(HistoryTest, NoDataFileThatWasLostIsForgotten) {
  VerifyWithOwnReport({File("x-crash-.om5 1.txt"), "--history", "history.jsonl"});
  const std::vector<json> lines = LinesOfFile("history.jsonl");
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].at("experiment"), "x-crash-.om5");
  EXPECT_EQ(lines[0].at("outcome"), "crashed");
}

TEST_F(HistoryTest, ManyProcessesAppendWithoutHarm) {
  constexpr int PROCESSES = 12;
  const std::string sample = SamplePath(TAGGING);
  File("two_sublists_tagging.om5 2.txt", ReadFile(sample));
  File("two_sublists_tagging.om5 3.txt", DataFile::Sample(TAGGING).SetDuration("950").Text());
  std::vector<std::unique_ptr<Process>> processes;
  for (int i = 0; i < PROCESSES; ++i) {
    processes.push_back(std::make_unique<Process>(
        Command({sample, "two_sublists_tagging.om5 2.txt", "two_sublists_tagging.om5 3.txt",
                 "--history", "history.jsonl", "--quiet", "--work-dir", "."}),
        SetupWith({})));
  }
  for (const auto& process : processes) EXPECT_EQ(process->Wait().status, 0);
  EXPECT_EQ(LinesOfFile("history.jsonl").size(), 3u * PROCESSES);
  const Finished finished = Verify({"history", "history.jsonl", "--json", "told.json"});
  EXPECT_EQ(finished.err, "");
  const json told = json::parse(ReadFile(m_folder / "told.json"));
  EXPECT_EQ(told.at("lines"), 3 * PROCESSES);
  EXPECT_EQ(told.at("experiments").at(0).at("duration").at("numbers").size(), 2u)
      << "the same bytes count once";
}

TEST_F(HistoryTest, ATornLastLineIsSkippedWithAWordAndHarmsNoOther) {
  const std::string good = Line(TAGGING, 0, "passed", "a").dump();
  File("history.jsonl", good + "\n" + good.substr(0, good.size() / 2));
  const Finished torn = Verify({"history", "history.jsonl"});
  EXPECT_EQ(torn.status, 0);
  ExpectHolds(torn.err, "verify-datafiles: history.jsonl: line 2 is skipped: ");
  ExpectHolds(torn.out, "runs       .  1\n");

  EXPECT_EQ(Verify({SamplePath(TAGGING), "--history", "history.jsonl", "-q"}).status, 0);
  const Finished after = Verify({"history", "history.jsonl"});
  EXPECT_EQ(after.status, 0);
  ExpectHolds(after.err, "history.jsonl: line 2 is skipped: ");
  EXPECT_EQ(after.err.find("line 3"), std::string::npos);
  ExpectHolds(after.out, "runs       ..  2\n");
}

TEST_F(HistoryTest, AWholeLastLineWithoutItsEndIsRead) {
  File("history.jsonl", Line(TAGGING, 0, "passed", "a").dump());
  const Finished finished = Verify({"history", "history.jsonl"});
  EXPECT_EQ(finished.err, "");
  ExpectHolds(finished.out, "runs       .  1\n");
}

TEST_F(HistoryTest, WhatCannotBeWrittenWholeIsNotWrittenAtAll) {
  std::string good;
  for (int i = 0; i < 20; ++i) good += Line(TAGGING, i, "passed", "a").dump() + "\n";
  File("history.jsonl", good);
  ProcessSetup setup = SetupWith({});
  // A limit that the line passes.
  setup.beforeStart = [&] {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {good.size() + 100, good.size() + 100};
    return setrlimit(RLIMIT_FSIZE, &limit) == 0 ? 0 : 1;
  };
  const Finished finished =
      WithoutProcess(RunProgram(Command({"merge",
                                         File("results.json",
                                              [] {
                                                OmbreliaHost::RunResults results;
                                                results.started = "2026-03-01T12:00:00Z";
                                                results.datafiles = {DatafileWithOneWrongCell()};
                                                return OmbreliaHost::JsonText(ToJson(results));
                                              }()),
                                         "--history", "history.jsonl"}),
                                setup));
  EXPECT_EQ(finished.status, 4) << finished.err;
  ExpectHolds(finished.err, "history.jsonl: the history could not be written: ");
  ExpectHolds(finished.out, "Data files: 1");
  EXPECT_EQ(ReadFile(m_folder / "history.jsonl"), good);
}

TEST_F(HistoryTest, TheSameBytesAgainAddNoTrial) {
  std::vector<json> lines;
  for (int i = 0; i < 50; ++i) lines.push_back(Trial(i, i == 0, i < 25 ? "same" : "other"));
  lines[1]["trials"][0]["failed"] = true;  // the latest verdict on the bytes counts
  const json chance = Told(lines).at("chances").at(0);
  EXPECT_EQ(chance.at("trials"), 2);
  EXPECT_EQ(chance.at("failures"), 0);
  lines[24]["trials"][0]["failed"] = true;
  lines[24]["verifiers"] = "2";
  EXPECT_EQ(Told(lines).at("chances").at(0).at("trials"), 2);
  EXPECT_EQ(Told(lines).at("chances").at(0).at("failures"), 1);
}

TEST_F(HistoryTest, FailuresAreHeldAgainstChance) {
  const auto words = [&](int failures, int trials, long secondsApart) {
    std::vector<json> lines;
    for (int i = 0; i < trials; ++i)
      lines.push_back(Trial(i * secondsApart, i < failures, std::to_string(i)));
    return Shown(lines);
  };
  const std::string start = "chance     Variety_of_Right_and_Left: ";
  ExpectHolds(words(0, 400, 86400), start + "0 in 400, chance allows it\n");
  ExpectHolds(words(2, 400, 86400), start + "2 in 400, cannot tell yet\n");
  ExpectHolds(words(5, 479, 32), start + "5 in 479: about once in a century, look at it\n");

  std::vector<json> lines;
  for (int i = 0; i < 400; ++i) {
    lines.push_back(
        Line("2013-09-27_list_access_pair_unpair_cross.om5", i, "passed", std::to_string(i)));
    lines.back()["trials"] = {{{"test", "NOT_ALWAYS_SAME_REPEATER"}, {"failed", i < 2}}};
  }
  ExpectHolds(Shown(lines), "chance     NOT_ALWAYS_SAME_REPEATER: 2 in 400, chance allows it\n");
}

TEST_F(HistoryTest, ACoinsChanceGoesByTheRowsOfEachDataFile) {
  std::vector<json> lines;
  for (int i = 0; i < 3; ++i) {
    lines.push_back(
        Line("2011-11-1_tolmey_2552_Randomization.om4", i, "failed", std::to_string(i)));
    lines.back()["trials"] = {
        {{"test", "Experiment_is_a_bunch_of_coinflips_as_expected"}, {"failed", true}}};
  }
  lines[0]["rows"] = 10;
  lines[1]["rows"] = 100;
  const json chance = Told(lines).at("chances").at(0);
  EXPECT_EQ(chance.at("trials"), 2) << "rows that are not known have no probability";
  // 10 flips stay in the band with 5 alone.
  EXPECT_NEAR(chance.at("tail").get<double>(), (1 - 252.0 / 1024) * 0.1332, 0.0005);
  EXPECT_NEAR(chance.at("probability").get<double>(), 0.1332, 0.0001);
  EXPECT_EQ(chance.at("verdict"), "chance allows it");
}

TEST_F(HistoryTest, TellsWhatBrokeWhenAndByWhat) {
  std::vector<json> lines = {Line("a.om5", 0, "passed", "1"), Line("a.om5", 60, "failed", "2")};
  ExpectHolds(Shown(lines), "a.om5: newly broken since " + Time(60) + " by The_check\n");
  lines.push_back(Line("a.om5", 120, "failed", "3"));
  lines.back()["failed"] = {"Another", "b", "c", "d", "e"};
  ExpectHolds(Shown(lines), "a.om5: still broken since " + Time(60) + " by The_check\n");
  lines.push_back(Line("a.om5", 180, "tolerated", "4"));
  ExpectHolds(Shown(lines), "a.om5: mended since " + Time(180) + ", broken from " + Time(60) +
                                " by The_check\n    runs       .XXt  4\n");
  lines.push_back(Line("a.om5", 240, "passed", "5"));
  ExpectHolds(Shown(lines), "a.om5: good since " + Time(180));
  lines.push_back(Line("a.om5", 300, "crashed", "6"));
  ExpectHolds(Shown(lines), "a.om5: newly broken since " + Time(300) + " by crashed\n");
  lines[1] = lines[2];
  lines[1]["time"] = Time(60);
  const json told = Told(lines);
  EXPECT_EQ(told.at("breaks").size(), 2u);
  EXPECT_EQ(told.at("breaks").at(0).at("mended"), Time(180));
  EXPECT_EQ(told.at("breaks").at(0).at("tests").size(), 5u);
  EXPECT_EQ(told.at("runs").size(), 5u) << "the same bytes with the same outcome stand once";
  EXPECT_EQ(told.at("state"), "newly broken");
}

TEST_F(HistoryTest, ItsLinesNeedNotStandInTheOrderOfTheirTimes) {
  ExpectHolds(Shown({Line("a.om5", 60, "failed", "2"), Line("a.om5", 0, "passed", "1")}),
              "a.om5: newly broken since " + Time(60));
}

TEST_F(HistoryTest, TwoDataFilesOfOneRunAreOneRun) {
  ExpectHolds(Shown({Line("a.om5", 0, "passed", "1"), Line("a.om5", 0, "failed", "2"),
                     Line("a.om5", 60, "passed", "3")}),
              "runs       X.  2\n");
}

TEST_F(HistoryTest, BrokenExperimentsComeFirstThenMendedOnes) {
  const std::string shown =
      Shown({Line("a.om5", 0, "passed", "1"), Line("b.om5", 0, "failed", "2"),
             Line("b.om5", 60, "passed", "3"), Line("c.om5", 0, "failed", "4"),
             Line("c.om5", 60, "failed", "5"), Line("d.om5", 0, "failed", "6")});
  EXPECT_LT(shown.find("d.om5: newly"), shown.find("c.om5: still"));
  EXPECT_LT(shown.find("c.om5: still"), shown.find("b.om5: mended"));
  EXPECT_LT(shown.find("b.om5: mended"), shown.find("a.om5: good"));
  ExpectHolds(shown, "4 experiments: 1 newly broken, 1 still broken, 1 mended, 1 good\n");
}

TEST_F(HistoryTest, TellsTheTrendAndTheBoundThatIsClosest) {
  std::vector<json> lines;
  const std::vector<long> durations = {1000, 1003, 1004, 1007, 1008, 1011};
  for (std::size_t i = 0; i < durations.size(); ++i) {
    lines.push_back(Line("a.om5", static_cast<long>(i) * 60, "passed", std::to_string(i)));
    lines.back()["duration_ms"] = durations[i];
    lines.back()["expansion_ms"] = 50 + i % 2;
    lines.back()["bounds"] = {
        {{"test", "Expansion_duration_a.om5"}, {"min", 0}, {"max", 5000}, {"actual", 50 + i % 2}},
        {{"test", "Experiment_duration_a.om5"},
         {"min", 0},
         {"max", 1020},
         {"actual", durations[i]}}};
  }
  const std::string shown = Shown(lines);
  ExpectHolds(shown,
              "    duration   \xE2\x96\x81\xE2\x96\x83\xE2\x96\x83\xE2\x96\x86\xE2\x96\x86"
              "\xE2\x96\x88  1000 to 1011 ms, spread 0.6 ms, +2.1 ms a run\n");
  ExpectHolds(shown,
              "    expansion  \xE2\x96\x81\xE2\x96\x88\xE2\x96\x81\xE2\x96\x88\xE2\x96\x81"
              "\xE2\x96\x88  50 to 51 ms, spread 0.6 ms, no sure trend\n");
  ExpectHolds(shown,
              "    closest    Experiment_duration_a.om5: 1011 of 0 to 1020, 15.9 spreads away; at "
              "this trend in 5 runs\n");
  const json told = Told(lines);
  EXPECT_EQ(told.at("bounds").at(0).at("test"), "Experiment_duration_a.om5");
  EXPECT_EQ(told.at("bounds").at(0).at("runs_left"), 5);
  EXPECT_EQ(told.at("duration").at("numbers").at(5).at("ms"), 1011);

  // Another kind of machine has bounds and times of its own.
  lines[0]["machine"] = "small";
  EXPECT_EQ(Told(lines).at("duration").at("numbers").size(), 5u);
  lines[5]["bounds"][1]["actual"] = 2000;
  ExpectHolds(Shown(lines), "closest    Experiment_duration_a.om5: 2000 of 0 to 1020, broken\n");
}

TEST_F(HistoryTest, ThePageTellsTheSame) {
  std::vector<json> lines = {Line("a.om5", 0, "passed", "1"), Line("b.om5", 0, "failed", "2"),
                             Trial(0, true, "3"), Trial(60, false, "4")};
  for (json& line : lines) line["duration_ms"] = 812;
  HistoryOf(lines);
  const std::string out = Verify({"history", "history.jsonl", "--html", "history.html"}).out;
  const XmlElement page = ReadXml(ReadFile(m_folder / "history.html"));
  EXPECT_EQ(ElementsOf(page, "h1").at(0).text, "History of the regression experiments");
  const std::vector<XmlElement> cards = ElementsOf(page, "article");
  ASSERT_EQ(cards.size(), 3u);
  EXPECT_EQ(cards[0]["id"], "b.om5") << "broken ones come first, with a link to each";
  EXPECT_EQ(ElementsOf(cards[0], "p").at(0).text,
            "newly broken since " + Time(0) + " by The_check");
  EXPECT_EQ(ElementsOf(cards[0], "svg").size(), 1u);
  bool tellsChance = false;
  for (const XmlElement& cell : ElementsOf(page, "b"))
    tellsChance = tellsChance || cell.text == "1 in 2, cannot tell yet";
  EXPECT_TRUE(tellsChance);
  ExpectHolds(out, ": 1 in 2, cannot tell yet\n");
}

TEST_F(HistoryTest, OnlySomeExperimentsAreTold) {
  HistoryOf({Line("a.om5", 0, "passed", "1"), Line("b.om5", 0, "failed", "2"),
             Line("c.om5", 0, "failed", "3")});
  const std::string out = Verify({"history", "history.jsonl", "--only", "a*", "--only", "c*"}).out;
  ExpectHolds(out, "a.om5: good\n");
  ExpectHolds(out, "c.om5: newly broken");
  EXPECT_EQ(out.find("b.om5"), std::string::npos);
  const Finished none = Verify({"history", "history.jsonl", "--only", "x*"});
  EXPECT_EQ(none.status, 2);
  EXPECT_EQ(none.err, "verify-datafiles: history.jsonl: no experiment of the history matches\n");
}

TEST_F(HistoryTest, WhatIsNoHistoryIsRefused) {
  const Finished missing = Verify({"history", "missing.jsonl"});
  EXPECT_EQ(missing.status, 2);
  EXPECT_EQ(missing.err,
            "verify-datafiles: missing.jsonl: the history cannot be read: No such file or "
            "directory\n");
  EXPECT_FALSE(Exists(m_folder / "missing.jsonl"));
  const Finished empty = Verify({"history", File("empty.jsonl", "\n\n")});
  EXPECT_EQ(empty.status, 2);
  ExpectHolds(empty.err, "empty.jsonl: the history has no line");
  const Finished folder = Verify({"history", "."});
  EXPECT_EQ(folder.status, 2);
  ExpectHolds(folder.err, ".: the history cannot be read: it is no regular file");
  EXPECT_EQ(Verify({"history"}).status, 2);
  const Finished noWrite =
      Verify({SamplePath(TAGGING), "--history", "no/such/folder/history.jsonl"});
  EXPECT_EQ(noWrite.status, 2);
  ExpectHolds(noWrite.err, "the history cannot be written: No such file or directory");
  EXPECT_FALSE(AnythingRan());
}

TEST_F(HistoryTest, HostileLinesAreSkippedOrShownHarmlessly) {
  std::string text;
  std::size_t skipped = 0;
  for (const std::string& bad :
       {std::string("[]"), std::string("null"), std::string("{}"), std::string("\xFF\xFE"),
        std::string(100000, '['), std::string(5, '\0'), std::string(R"({"format":2})"),
        std::string("\x1B[31m")}) {
    text += bad + "\n";
    ++skipped;
  }
  for (const auto& [member, value] :
       std::vector<std::pair<const char*, json>>{{"time", "yesterday"},
                                                 {"time", "2026-03-01T12:00:0xZ"},
                                                 {"time", 5},
                                                 {"machine", "huge"},
                                                 {"outcome", "fine"},
                                                 {"experiment", nullptr},
                                                 {"failed", "x"},
                                                 {"failed", {1}},
                                                 {"rows", 1e300},
                                                 {"rows", "9"},
                                                 {"trials", {1}},
                                                 {"trials", {{{"test", "x"}}}},
                                                 {"bounds", {json::object()}},
                                                 {"digest", json::array()},
                                                 {"duration_ms", 1.5}}) {
    json line = Line(TAGGING, 0, "passed", "a");
    line[member] = value;
    text += line.dump() + "\n";
    ++skipped;
  }
  for (const std::string& hostile : HostileTexts()) {
    json line = Line(hostile, 0, "failed", hostile);
    line["failed"] = {hostile};
    line["host"] = line["verifiers"] = hostile;
    text += OmbreliaHost::JsonText(line, -1) + "\n";
  }
  json flips = Line("2011-11-1_tolmey_2552_Randomization.om4", 0, "failed", "x");
  flips["trials"] = {
      {{"test", "Experiment_is_a_bunch_of_coinflips_as_expected"}, {"failed", true}}};
  for (const long rows : {std::numeric_limits<long>::max(), std::numeric_limits<long>::min(), 0L}) {
    flips["rows"] = rows;
    flips["digest"] = std::to_string(rows);
    text += flips.dump() + "\n";
  }
  json extreme = Line("extreme.om5", 0, "passed", "x");
  extreme["duration_ms"] = std::numeric_limits<long>::max();
  extreme["rows"] = std::numeric_limits<long>::min();
  extreme["bounds"] = {{{"test", "t"},
                        {"min", std::numeric_limits<long>::min()},
                        {"max", std::numeric_limits<long>::max()},
                        {"actual", 0}}};
  extreme["unheard_of"] = 1;
  text += extreme.dump() + "\n";
  File("history.jsonl", text);
  const Finished finished =
      Verify({"history", "history.jsonl", "--json", "told.json", "--html", "told.html"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  const XmlElement page = ReadXml(ReadFile(m_folder / "told.html"));
  EXPECT_EQ(ElementsOf(page, "article").size(), HostileTexts().size() + 2);
  EXPECT_EQ(ElementsOf(page, "script").size(), 0u);
  const auto lines = std::count(finished.err.begin(), finished.err.end(), '\n');
  EXPECT_EQ(static_cast<std::size_t>(lines), skipped) << finished.err;
  for (const std::string& said : {finished.out, finished.err}) {
    EXPECT_EQ(said.find('\x1B'), std::string::npos);
    EXPECT_EQ(said.find('\0'), std::string::npos);
    EXPECT_EQ(said.find("\n::"), std::string::npos);
  }
  const json told = json::parse(ReadFile(m_folder / "told.json"));
  EXPECT_EQ(told.at("skipped").size(), skipped);
  EXPECT_EQ(told.at("experiments").size(), HostileTexts().size() + 2);
}

// A data file that fails nothing but a test whose failure is tolerated.
std::string OneSided(const std::string& duration) {
  DataFile file = DataFile::Sample(VARIETY);
  std::vector<std::string> trials = file.Column("Trial\nName");
  std::replace(trials.begin(), trials.end(), std::string("cues right"), std::string("cues left"));
  return file.SetColumn("Trial\nName", trials).SetDuration(duration).Text();
}

TEST_F(HistoryTest, ARunTellsItsToleratedFailureFromTheHistory) {
  File("2012-12-20_test_reset_the_subset.om5 1.txt", OneSided("201"));
  std::vector<json> lines;
  for (int i = 0; i < 99; ++i) lines.push_back(Trial(i, false, std::to_string(i)));
  HistoryOf(lines);
  const Arguments command = {"2012-12-20_test_reset_the_subset.om5 1.txt", "--tolerate",
                             "--history", "history.jsonl"};
  const Finished finished = Verify(command);
  EXPECT_EQ(finished.status, 0) << finished.err;
  ExpectHolds(finished.out,
              "Tolerated: 2012-12-20_test_reset_the_subset.om5 1.txt, Variety_of_Right_and_Left: "
              "p=0.000488 k/n=1/100: 1 in 100, cannot tell yet\n");
  EXPECT_EQ(Verify(command).out, finished.out) << "the same bytes again add no trial";
}

TEST_F(HistoryTest, AHistoryThatChanceDoesNotExplainFailsAToleratingRun) {
  File("2012-12-20_test_reset_the_subset.om5 1.txt", OneSided("201"));
  std::vector<json> lines;
  for (int i = 0; i < 478; ++i) lines.push_back(Trial(i, i < 4, std::to_string(i)));
  HistoryOf(lines);
  const Finished finished = Verify({"2012-12-20_test_reset_the_subset.om5 1.txt", "--tolerate",
                                    "--history", "history.jsonl", "--junit", "junit.xml"});
  EXPECT_EQ(finished.status, 1);
  ExpectHolds(finished.out,
              "Not by chance: 2012-12-20_test_reset_the_subset.om5, "
              "Variety_of_Right_and_Left: 5 in 479: ");
  const std::string junit = ReadFile(m_folder / "junit.xml");
  ExpectHolds(junit, "<system-out>TOLERATED p=0.000488 k/n=5/479: 5 in 479: ");
  ExpectHolds(junit,
              "<failure message=\"2012-12-20_test_reset_the_subset.om5, "
              "Variety_of_Right_and_Left: 5 in 479: ");
  // Without a history there is nothing against it.
  EXPECT_EQ(Verify({"2012-12-20_test_reset_the_subset.om5 1.txt", "--tolerate"}).status, 0);
  EXPECT_EQ(Verify({"2012-12-20_test_reset_the_subset.om5 1.txt"}).status, 1);
}

TEST_F(HistoryTest, MergedResultsAddTheLinesOfTheirParts) {
  const std::string sample = SamplePath(TAGGING);
  const std::string coins = SamplePath("2011-11-1_tolmey_2552_Randomization.om4");
  EXPECT_EQ(Verify({sample, coins, "--partition", "slice:1/2", "--json", "1.json"}).status, 0);
  EXPECT_EQ(Verify({sample, coins, "--partition", "slice:2/2", "--json", "2.json"}).status, 0);
  EXPECT_EQ(Verify({"merge", "1.json", "2.json", "--history", "history.jsonl"}).status, 0);
  const std::vector<json> lines = LinesOfFile("history.jsonl");
  ASSERT_EQ(lines.size(), 2u);
  for (const json& line : lines) {
    EXPECT_NE(line.at("host"), "");
    EXPECT_NE(line.at("verifiers"), "");
    EXPECT_EQ(line.contains("rows"), line.at("experiment") != TAGGING)
        << "a coin's chance needs them";
  }
}

TEST_F(HistoryTest, IsAFolderOfDataFilesWhereItIsWrittenAsOne) {
  std::filesystem::create_directory(m_folder / "history");
  WriteFile(m_folder / "history/two_sublists_tagging.om5 1.txt", ReadFile(SamplePath(TAGGING)));
  EXPECT_EQ(Verify({"./history"}).status, 0);
}

}  // namespace
}  // namespace Tests
