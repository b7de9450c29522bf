// The bounds of every verifier on every kind of machine, held against the one table of all bounds.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "plugin/DataHookOutputTestingPluginImpl.h"
#include "tests/BuildPaths.h"
#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

struct Bound {
  std::string call;
  int min;
  int max;
  bool IsExpansion() const { return call.rfind("expansion", 0) == 0; }
};

// The words of the table, explained at its head.
const std::set<std::string> CALLS = {"duration",     "duration_server", "duration_testbox",
                                     "duration_all", "expansion",       "expansion_server",
                                     "expansion_all"};

using Table = std::map<std::string, std::vector<Bound>>;

Table ReadTable() {
  Table table;
  std::ifstream in(std::string(OMBRELIA_SOURCE_DIR) + "/tests/verifiers/bounds.tsv");
  std::string line;
  while (std::getline(in, line)) {
    if (line.rfind('#', 0) == 0) continue;
    std::istringstream cells(line);
    std::string experiment;
    Bound bound;
    std::getline(cells, experiment, '\t');
    std::getline(cells, bound.call, '\t');
    cells >> bound.min >> bound.max;
    EXPECT_FALSE(cells.fail()) << line;
    EXPECT_EQ(CALLS.count(bound.call), 1u) << "no such call: " << line;
    table[experiment].push_back(bound);
  }
  return table;
}

// Which calls count on which machine.
const std::map<std::string, std::set<std::string>> CALLS_THAT_COUNT = {
    {ORDINARY_MACHINE, {"duration", "expansion", "duration_all", "expansion_all"}},
    {SERVER_MACHINE, {"duration_server", "expansion_server", "duration_all", "expansion_all"}},
    {TESTBOX_MACHINE, {"duration_testbox", "duration_all", "expansion_all"}},
    {BOTH_MACHINES,
     {"duration_server", "duration_testbox", "expansion_server", "duration_all", "expansion_all"}}};

// The lines that these bounds give for these two times.
Lines Expected(const std::string& experiment, const std::vector<Bound>& bounds,
               const std::string& machine, long duration, long expansion) {
  Lines lines;
  for (const Bound& bound : bounds) {
    if (CALLS_THAT_COUNT.at(machine).count(bound.call) == 0) continue;
    const long value = bound.IsExpansion() ? expansion : duration;
    if (bound.min <= value && value <= bound.max) {
      lines.push_back(
          (bound.IsExpansion() ? "pass Expansion_duration_" : "pass Experiment_duration_") +
          experiment);
    } else {
      const auto outOfBounds = bound.IsExpansion() ? ExpansionOutOfBounds : DurationOutOfBounds;
      lines.push_back(outOfBounds(experiment, bound.min, bound.max, std::to_string(value)));
    }
  }
  return lines;
}

Lines BoundLines(const Lines& lines, const std::string& experiment) {
  Lines found;
  for (const std::string& line : lines) {
    if (line.find(" Experiment_duration_" + experiment) != std::string::npos ||
        line.find(" Expansion_duration_" + experiment) != std::string::npos) {
      found.push_back(line);
    }
  }
  return found;
}

// Every bound of the table at min - 1, min, max and max + 1, on each machine on which it counts.
TEST(Bounds, HoldOnEachKindOfMachine) {
  for (const auto& [experiment, bounds] : ReadTable()) {
    SCOPED_TRACE(experiment);
    const DataFile sample = DataFile::Sample(experiment);
    for (const auto& [machine, calls] : CALLS_THAT_COUNT) {
      SCOPED_TRACE(machine);
      for (const Bound& bound : bounds) {
        if (calls.count(bound.call) == 0) continue;
        for (const long value : {bound.min - 1, bound.min, bound.max, bound.max + 1}) {
          const long duration = bound.IsExpansion() ? 1234 : value;
          const long expansion = bound.IsExpansion() ? value : 123;
          DataFile file = sample;
          file.SetDuration(std::to_string(duration)).SetExpansion(std::to_string(expansion));
          EXPECT_EQ(BoundLines(file.Verify(machine), experiment),
                    Expected(experiment, bounds, machine, duration, expansion));
        }
      }
    }
  }
}

// A verifier that is not in the table, or has no call for a machine, bounds nothing there.
TEST(Bounds, AreOnlyThoseOfTheTable) {
  const Table table = ReadTable();
  for (const auto& [key, info] :
       Ombrelia::DataHookOutputTestingPlugin::PrivateImpl::m_static_verifiers()) {
    const std::string experiment = info.name.ToStdString();
    SCOPED_TRACE(experiment);
    DataFile sample = DataFile::Sample(experiment);
    if (sample.RowCount() == 0) continue;  // leaves no readable data file
    sample.SetDuration("1234").SetExpansion("123");
    const auto found = table.find(experiment);
    const std::vector<Bound> bounds = found == table.end() ? std::vector<Bound>() : found->second;
    for (const auto& [machine, calls] : CALLS_THAT_COUNT) {
      SCOPED_TRACE(machine);
      EXPECT_EQ(BoundLines(sample.Verify(machine), experiment),
                Expected(experiment, bounds, machine, 1234, 123))
          << "tests/verifiers/bounds.tsv has " << bounds.size() << " bounds of " << experiment
          << "; each call of its verifier needs a line there";
    }
  }
}

// Numbers that are none fail by their sentinels.
TEST(Bounds, FailOnTextsThatAreNoNumbers) {
  const std::string experiment = "2012_3_9_tolmey_2668_macro_skip_trial.om4";
  EXPECT_EQ(DataFile::Sample(experiment).SetDuration("1609 ms").SetExpansion("soon").Failures(),
            (Lines{DurationOutOfBounds(experiment, 1600, 1620, "-999"),
                   ExpansionOutOfBounds(experiment, 0, 5000, "-123")}));
}

}  // namespace
}  // namespace Tests
