// The documented schema of the results, held against what the program writes.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "host/results/ResultsJson.h"
#include "tests/BuildPaths.h"
#include "tests/host/VerifyDatafiles.h"
#include "tests/host/WholeResults.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;
using nlohmann::json;

class ResultsSchemaTest : public VerifyDatafilesTest {
 protected:
  // What a validator of another hand says of the files; nothing if they are as the schema says.
  Finished Validate(const std::vector<std::string>& names) {
    std::vector<std::string> command = {
        "/usr/bin/python3", std::string(OMBRELIA_SOURCE_DIR) + "/tests/host/validate_json.py",
        std::string(OMBRELIA_SOURCE_DIR) + "/docs/results.schema.json"};
    for (const std::string& name : names) command.push_back(m_folder / name);
    return RunProgram(command);
  }
  std::string JsonFile(const std::string& name, const json& value) {
    return File(name, JsonText(value));
  }
};

TEST_F(ResultsSchemaTest, HoldsForAllThatTheModelCanSay) {
  const Finished whole = Validate({JsonFile("whole.json", ToJson(WholeResults()))});
  EXPECT_EQ(whole.status, 0) << whole.out << whole.err;
  RunResults empty;
  empty.started = "2026-03-01T12:00:00Z";
  empty.datafiles.resize(1);
  empty.beforeFirst.resize(1);
  const Finished least = Validate({JsonFile("empty.json", ToJson(empty))});
  EXPECT_EQ(least.status, 0) << least.out << least.err;
}

TEST_F(ResultsSchemaTest, HoldsForWhatTheProgramWrites) {
  JsonFile("whole.json", ToJson(WholeResults()));
  EXPECT_EQ(Verify({"merge", "whole.json", "--json", "merged.json"}).status, 3);
  const Finished merged = Validate({"merged.json"});
  EXPECT_EQ(merged.status, 0) << merged.out << merged.err;
}

// Every rule of it can be broken.
TEST_F(ResultsSchemaTest, RefusesAnythingElse) {
  const json good = ToJson(WholeResults());
  const std::vector<std::pair<std::string, json>> changes = {
      {"/format", 2},
      {"/machine", "huge"},
      {"/started", "2026-03-01 12:00"},
      {"/seconds", -1},
      {"/unheard_of", 1},
      {"/shard/index", 0},
      {"/shard/unheard_of", 1},
      {"/faults", json::array()},
      {"/before_first/0/number", 0},
      {"/datafiles/0/path", 1},
      {"/datafiles/0/digest", "XYZ"},
      {"/datafiles/0/position", 0},
      {"/datafiles/0/outcome", "fine"},
      {"/datafiles/0/unheard_of", 1},
      {"/datafiles/0/tests/1/outcome", "crashed"},
      {"/datafiles/0/tests/1/unheard_of", 1},
      {"/datafiles/0/tests/1/evidence_kind", "none"},
      {"/datafiles/0/tests/1/evidence", json::array()},
      {"/datafiles/0/tests/1/evidence/0/line", 0},
      {"/datafiles/0/tests/1/evidence/0/row", "4"},
      {"/datafiles/0/tests/1/evidence/0/unheard_of", 1},
      {"/datafiles/0/tests/1/context/rows/0/decides", false},
      {"/datafiles/0/tests/1/context/rows/0/line", 0},
      {"/datafiles/1/tests/5/bound/min", 1.5},
      {"/datafiles/6/loss/exit_status", 1},
      {"/host", ""},
      {"/verifiers", 1},
      {"/tolerance/state", "fine"},
      {"/tolerance/words", json::array()},
      {"/tolerance/unheard_of", 1},
      {"/datafiles/3/rows", 1.5},
      {"/datafiles/3/tests/1/chance", ""},
      {"/reports/0", 1}};
  std::vector<std::string> files;
  for (const auto& [pointer, value] : changes) {
    json changed = good;
    changed[json::json_pointer(pointer)] = value;
    files.push_back(JsonFile(std::to_string(files.size()) + ".json", changed));
  }
  const Finished finished = Validate(files);
  EXPECT_EQ(finished.status, 1) << finished.err;
  for (std::size_t i = 0; i < changes.size(); ++i) {
    EXPECT_NE(finished.out.find("/" + files[i] + ": "), std::string::npos)
        << changes[i].first << " = " << changes[i].second << " was taken";
  }
}

}  // namespace
}  // namespace Tests
