// Results as JSON and back.
#include "host/results/ResultsJson.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/host/WholeResults.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;
using nlohmann::json;

// Through the text, as a file or a pipe carries it.
json ThroughText(const json& value) { return json::parse(JsonText(value)); }

TEST(ResultsJson, ATestIsWrittenWithItsEvidence) {
  EXPECT_EQ(ToJson(DatafileWithOneWrongCell().tests[1]), json::parse(R"({
    "number": 3,
    "name": "Data_appears_completely_and_in_order",
    "outcome": "failed",
    "subject": "Mismatch in the ordering of data cells in datafile.",
    "location": "Whichever/File/Focuses/On/Verifying/x.om5:103",
    "message": "At datafile row index 4 we expected {red}, but that was not the actual content.",
    "evidence_kind": "cell",
    "evidence": [{"column": "color", "row": 4, "line": 11, "actual": "blue", "expected": "red"}],
    "context": {
      "columns": ["color"],
      "rows": [{"line": 9, "row": 2, "cells": ["blue"]},
               {"line": 10, "row": 3, "cells": ["red"]},
               {"line": 11, "row": 4, "cells": ["blue"], "decides": true, "expected": "red"},
               {"line": 12, "row": 5, "cells": ["blue"]}]}})"));
}

TEST(ResultsJson, WhatDoesNotApplyIsLeftOut) {
  DatafileResult datafile;
  datafile.path = "x.om4 1.txt";
  datafile.experiment = "x.om4";
  TestOutcome test;
  test.name = "Good";
  datafile.tests = {test};
  EXPECT_EQ(ToJson(datafile), json::parse(R"({
    "path": "x.om4 1.txt", "experiment": "x.om4", "outcome": "passed", "seconds": 0.0,
    "tests": [{"name": "Good", "outcome": "passed"}]})"));
}

TEST(ResultsJson, ARunSaysItsFormatItsMachineAndItsShard) {
  RunResults results;
  results.machine = MachineKind::Large;
  results.started = "2026-03-01T12:00:00Z";
  results.seconds = 1.5;
  results.reports = {"/a/report.xml"};
  EXPECT_EQ(ToJson(results), json::parse(R"({
    "format": 1, "machine": "large", "started": "2026-03-01T12:00:00Z", "seconds": 1.5,
    "before_first": [], "datafiles": [], "reports": ["/a/report.xml"]})"));
  results.shard = Shard{2, 4};
  EXPECT_EQ(ToJson(results).at("shard"), json::parse(R"({"index": 2, "count": 4})"));
}

TEST(ResultsJson, EveryOutcomeHasItsWord) {
  const json datafiles = ToJson(WholeResults()).at("datafiles");
  std::vector<std::string> words;
  for (const json& datafile : datafiles) words.push_back(datafile.at("outcome"));
  EXPECT_EQ(words,
            (std::vector<std::string>{"failed", "failed", "passed", "tolerated", "unreadable",
                                      "unknown", "crashed", "timed out", "lost"}));
  EXPECT_EQ(datafiles[6].at("loss"),
            json::parse(R"({"signal": 11, "last_lines": ["one", "two"]})"));
  EXPECT_EQ(datafiles[8].at("loss"), json::parse(R"({"exit_status": 3, "last_lines": ["bye"]})"));
}

// The model has no comparison: it is the same if every member is written the same.
TEST(ResultsJson, NothingIsLostOnTheWayBack) {
  const json written = ToJson(WholeResults());
  const RunResults read = RunResultsFromJson(ThroughText(written));
  EXPECT_EQ(ToJson(read), written);
  ASSERT_EQ(read.datafiles.size(), 9u);
  EXPECT_EQ(read.machine, MachineKind::Small);
  EXPECT_EQ(read.datafiles[0].path, "runs/two_sublists_tagging.om5 3.txt");
  EXPECT_EQ(read.datafiles[0].position, 1u);
  EXPECT_EQ(read.datafiles[1].durationMs, 1000);
  EXPECT_EQ(read.datafiles[1].expansionMs, 23);
  const TestOutcome& cell = read.datafiles[0].tests[1];
  EXPECT_EQ(cell.number, 3);
  EXPECT_EQ(cell.outcome, Outcome::Failed);
  EXPECT_EQ(cell.evidence.kind, Evidence::Kind::Cell);
  EXPECT_EQ(cell.evidence.cells[0].line, 11);
  EXPECT_EQ(cell.evidence.cells[0].expected, "red");
  EXPECT_TRUE(cell.evidence.context.rows[2].decides);
  EXPECT_FALSE(read.datafiles[1].tests[2].evidence.cells[0].actual.has_value());
  EXPECT_EQ(read.datafiles[1].tests[1].evidence.actualCount, 7);
  ASSERT_TRUE(read.datafiles[1].tests[5].bound.has_value());
  EXPECT_EQ(read.datafiles[1].tests[5].bound->max, 900);
  ASSERT_TRUE(read.datafiles[6].loss.has_value());
  EXPECT_EQ(read.datafiles[6].loss->signal, 11);
  EXPECT_EQ(read.faults, (std::vector<std::string>{"Shard 3 of 3 is missing."}));
}

TEST(ResultsJson, APathThatIsNoUtf8FindsItsFileAgain) {
  DatafileResult datafile;
  // Also a character of private use of its own, which must not become a byte.
  for (const std::string path :
       {"wrong \xE4.txt", "\xC3\xA4.txt", "\xF4\x80\x83\xA4.txt", "\xFF"}) {
    datafile.path = path;
    EXPECT_EQ(DatafileResultFromJson(ThroughText(ToJson(datafile))).path.string(), path);
  }
  datafile.path = "wrong \xE4.txt";
  EXPECT_EQ(ToJson(datafile).at("path"), "wrong \xF4\x80\x83\xA4.txt");
}

TEST(ResultsJson, HostileTextsComeBackAsTheyWereButForBadUtf8) {
  for (const std::string& hostile : HostileTexts()) {
    TestOutcome test;
    test.name = hostile;
    test.subject = hostile;
    EvidenceCell cell;
    cell.column = hostile;
    cell.actual = hostile;
    test.evidence.cells = {cell};
    const TestOutcome read = TestOutcomeFromJson(ThroughText(ToJson(test)));
    const bool goodUtf8 = hostile.find('\xFF') == std::string::npos;
    const std::string expected =
        goodUtf8 ? hostile
                 : "bad \xEF\xBF\xBD\xEF\xBF\xBD utf-8 \xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD";
    EXPECT_EQ(read.name, expected);
    EXPECT_EQ(read.subject, expected);
    EXPECT_EQ(read.evidence.cells[0].column, expected);
    EXPECT_EQ(read.evidence.cells[0].actual, expected);
  }
}

TEST(ResultsJson, AnythingElseIsRefusedWithWords) {
  const json good = ToJson(WholeResults());
  const std::vector<std::pair<std::string, json>> changes = {
      {"/format", 2},
      {"/machine", "enormous"},
      {"/started", 7},
      {"/seconds", "long"},
      {"/datafiles", json::object()},
      {"/datafiles/0", "x"},
      {"/datafiles/0/path", 1},
      {"/datafiles/0/outcome", "fine"},
      {"/datafiles/0/tests", 1},
      {"/datafiles/0/tests/1/outcome", "Failed"},
      {"/datafiles/0/tests/1/evidence", "x"},
      {"/datafiles/0/tests/1/evidence/0/row", "four"},
      {"/datafiles/0/tests/1/evidence_kind", "guess"},
      {"/datafiles/0/tests/1/context", 1},
      {"/datafiles/1/tests/5/bound", 1},
      {"/datafiles/6/loss", 1},
      {"/shard", 3},
      {"/shard/index", 4},
      {"/shard/index", 0},
      {"/reports", "x"}};
  for (const auto& [pointer, value] : changes) {
    json changed = good;
    changed[json::json_pointer(pointer)] = value;
    try {
      RunResultsFromJson(changed);
      ADD_FAILURE() << pointer << " = " << value << " was taken";
    } catch (const std::exception& error) {
      EXPECT_NE(std::string(error.what()), "") << pointer;
    }
  }
  EXPECT_THROW(RunResultsFromJson(json::array()), std::exception);
  EXPECT_THROW(RunResultsFromJson(json::object()), std::exception);
  json without = good;
  without["datafiles"][0].erase("tests");
  EXPECT_THROW(RunResultsFromJson(without), std::exception);
}

TEST(ResultsJson, FurtherMembersArePassedOver) {
  json written = ToJson(WholeResults());
  const json plain = written;
  written["later"] = 1;
  written["datafiles"][0]["later"] = json::array();
  EXPECT_EQ(ToJson(RunResultsFromJson(written)), plain);
}

}  // namespace
}  // namespace Tests
