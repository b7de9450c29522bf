#include "host/results/HistoryLine.h"

#include <algorithm>
#include <ctime>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "host/results/Manifest.h"
#include "host/results/ResultNames.h"
#include "host/results/ResultsJson.h"
#include "host/results/StableNames.h"

namespace OmbreliaHost {

namespace {

using nlohmann::json;

constexpr int FORMAT = 1;

void AddOnce(std::vector<std::string>& names, const std::string& name) {
  if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
}

HistoryLine HistoryLineOf(const RunResults& results, const DatafileResult& datafile) {
  HistoryLine line;
  line.time = results.started;
  line.machine = results.machine;
  line.host = results.host;
  line.verifiers = results.verifiers;
  line.experiment = datafile.experiment;
  line.digest = datafile.digest;
  line.outcome = datafile.outcome;
  line.rows = datafile.rows;
  line.durationMs = datafile.durationMs;
  line.expansionMs = datafile.expansionMs;
  for (const TestOutcome& test : datafile.tests) {
    const std::string name = StableName(datafile.experiment, test.name);
    if (test.outcome == Outcome::Failed) AddOnce(line.failed, name);
    if (test.outcome == Outcome::Tolerated) AddOnce(line.tolerated, name);
    if (test.bound) line.bounds.push_back({name, *test.bound});
    if (FindChance(datafile.experiment, name) != nullptr)
      line.trials.push_back({name, test.outcome != Outcome::Passed});
  }
  return line;
}

// The number whose digits stand at these places. Throws std::runtime_error if anything else stands there.
int NumberAt(const std::string& text, std::size_t begin, std::size_t count) {
  int number = 0;
  for (std::size_t i = begin; i < begin + count; ++i) {
    if (text[i] < '0' || text[i] > '9') throw std::runtime_error("\"time\" is no time in UTC");
    number = number * 10 + (text[i] - '0');
  }
  return number;
}

double SecondsOf(const std::string& time) {
  const std::string form = "0000-00-00T00:00:00Z";
  if (time.size() != form.size()) throw std::runtime_error("\"time\" is no time in UTC");
  for (std::size_t i = 0; i < form.size(); ++i) {
    if (form[i] != '0' && form[i] != time[i])
      throw std::runtime_error("\"time\" is no time in UTC");
  }
  std::tm parts{};
  parts.tm_year = NumberAt(time, 0, 4) - 1900;
  parts.tm_mon = NumberAt(time, 5, 2) - 1;
  parts.tm_mday = NumberAt(time, 8, 2);
  parts.tm_hour = NumberAt(time, 11, 2);
  parts.tm_min = NumberAt(time, 14, 2);
  parts.tm_sec = NumberAt(time, 17, 2);
  return static_cast<double>(timegm(&parts));
}

long LongOf(const json& value, const char* name) {
  if (!value.is_number_integer())
    throw std::runtime_error("\"" + std::string(name) + "\" is no whole number");
  return value.get<long>();
}

void Get(const json& object, const char* name, std::optional<long>& value) {
  if (object.contains(name)) value = LongOf(object.at(name), name);
}

void Get(const json& object, const char* name, std::string& value) {
  if (object.contains(name)) object.at(name).get_to(value);
}

void Get(const json& object, const char* name, std::vector<std::string>& value) {
  if (object.contains(name)) object.at(name).get_to(value);
}

json ArrayOf(const json& object, const char* name) {
  json array = object.value(name, json::array());
  if (!array.is_array()) throw std::runtime_error("\"" + std::string(name) + "\" is no array");
  return array;
}

template <typename VALUE>
void Put(json& object, const char* name, const VALUE& value) {
  if (!value.empty()) object[name] = value;
}

void Put(json& object, const char* name, const std::optional<long>& value) {
  if (value) object[name] = *value;
}

}  // namespace

std::vector<HistoryLine> HistoryLinesOf(const RunResults& results) {
  std::vector<HistoryLine> lines;
  for (const DatafileResult& datafile : results.datafiles) {
    const bool notVerified = datafile.outcome == Outcome::Lost && !datafile.loss;
    if (!notVerified) lines.push_back(HistoryLineOf(results, datafile));
  }
  return lines;
}

std::string TextOf(const HistoryLine& line) {
  json object = {{"format", FORMAT},
                 {"time", line.time},
                 {"machine", NameOf(line.machine)},
                 {"experiment", line.experiment},
                 {"outcome", NameOf(line.outcome)}};
  Put(object, "host", line.host);
  Put(object, "verifiers", line.verifiers);
  Put(object, "digest", line.digest);
  Put(object, "failed", line.failed);
  Put(object, "tolerated", line.tolerated);
  Put(object, "rows", line.rows);
  Put(object, "duration_ms", line.durationMs);
  Put(object, "expansion_ms", line.expansionMs);
  for (const HistoryLine::Trial& trial : line.trials) {
    object["trials"].push_back({{"test", trial.test}, {"failed", trial.failed}});
  }
  for (const HistoryLine::Bound& bound : line.bounds) {
    object["bounds"].push_back({{"test", bound.test},
                                {"min", bound.check.min},
                                {"max", bound.check.max},
                                {"actual", bound.check.actual}});
  }
  return JsonText(object, -1);
}

HistoryLine HistoryLineOf(const std::string& text) {
  const json object = json::parse(text);
  if (!object.is_object()) throw std::runtime_error("it is no object");
  const json& format = object.at("format");
  if (format != FORMAT) {
    throw std::runtime_error("the format is " + JsonText(format, -1) + ", not " +
                             std::to_string(FORMAT));
  }
  HistoryLine line;
  object.at("time").get_to(line.time);
  line.seconds = SecondsOf(line.time);
  line.machine = MachineKindOf(object.at("machine").get<std::string>());
  object.at("experiment").get_to(line.experiment);
  line.outcome = OutcomeOf(object.at("outcome").get<std::string>());
  Get(object, "host", line.host);
  Get(object, "verifiers", line.verifiers);
  Get(object, "digest", line.digest);
  Get(object, "failed", line.failed);
  Get(object, "tolerated", line.tolerated);
  Get(object, "rows", line.rows);
  Get(object, "duration_ms", line.durationMs);
  Get(object, "expansion_ms", line.expansionMs);
  for (const json& trial : ArrayOf(object, "trials")) {
    line.trials.push_back({trial.at("test").get<std::string>(), trial.at("failed").get<bool>()});
  }
  for (const json& bound : ArrayOf(object, "bounds")) {
    line.bounds.push_back({bound.at("test").get<std::string>(),
                           {LongOf(bound.at("min"), "min"), LongOf(bound.at("max"), "max"),
                            LongOf(bound.at("actual"), "actual")}});
  }
  return line;
}

}  // namespace OmbreliaHost
