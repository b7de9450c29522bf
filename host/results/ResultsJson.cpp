#include "host/results/ResultsJson.h"

#include <nlohmann/json.hpp>
#include <stdexcept>

#include "host/results/NamedValues.h"
#include "host/results/ResultNames.h"
#include "host/results/WideText.h"

namespace OmbreliaHost {

namespace {

using nlohmann::json;

constexpr int FORMAT = 1;

const std::vector<NamedValue<Evidence::Kind>>& EvidenceKinds() {
  static const std::vector<NamedValue<Evidence::Kind>> kinds = {
      {Evidence::Kind::None, "none"},
      {Evidence::Kind::Cell, "cell"},
      {Evidence::Kind::Length, "length"},
      {Evidence::Kind::MissingText, "missing text"},
      {Evidence::Kind::Row, "row"},
      {Evidence::Kind::Count, "count"},
      {Evidence::Kind::Bound, "bound"},
      {Evidence::Kind::Reader, "reader"},
      {Evidence::Kind::LastReads, "last reads"}};
  return kinds;
}

const std::vector<NamedValue<ToleranceBudget::State>>& ToleranceStates() {
  static const std::vector<NamedValue<ToleranceBudget::State>> states = {
      {ToleranceBudget::State::Kept, "kept"},
      {ToleranceBudget::State::Warns, "warns"},
      {ToleranceBudget::State::Blown, "blown"}};
  return states;
}

// Members that may be absent.

template <typename VALUE>
void Put(json& object, const char* name, const std::optional<VALUE>& value) {
  if (value) object[name] = *value;
}

void Put(json& object, const char* name, const std::string& text) {
  if (!text.empty()) object[name] = text;
}

void Put(json& object, const char* name, const std::vector<std::string>& texts) {
  if (!texts.empty()) object[name] = texts;
}

template <typename VALUE>
void Get(const json& object, const char* name, std::optional<VALUE>& value) {
  if (object.contains(name)) value = object.at(name).get<VALUE>();
}

template <typename VALUE>
void Get(const json& object, const char* name, VALUE& value) {
  if (object.contains(name)) object.at(name).get_to(value);
}

const json& RequireObject(const json& value, const char* what) {
  if (!value.is_object()) throw std::runtime_error(std::string(what) + " is no object");
  return value;
}

const json& RequireArray(const json& value, const char* what) {
  if (!value.is_array()) throw std::runtime_error(std::string(what) + " is no array");
  return value;
}

json ToJson(const EvidenceCell& cell) {
  json object = {{"column", cell.column}};
  Put(object, "row", cell.row);
  Put(object, "line", cell.line);
  Put(object, "actual", cell.actual);
  Put(object, "expected", cell.expected);
  return object;
}

template <typename VALUE>
json ToArray(const std::vector<VALUE>& values) {
  json array = json::array();
  for (const VALUE& value : values) array.push_back(ToJson(value));
  return array;
}

EvidenceCell EvidenceCellFromJson(const json& object) {
  EvidenceCell cell;
  RequireObject(object, "a cell of \"evidence\"").at("column").get_to(cell.column);
  Get(object, "row", cell.row);
  Get(object, "line", cell.line);
  Get(object, "actual", cell.actual);
  Get(object, "expected", cell.expected);
  return cell;
}

json ToJson(const EvidenceContext& context) {
  json rows = json::array();
  for (const EvidenceContext::Row& row : context.rows) {
    json object = {{"row", row.row}, {"line", row.line}, {"cells", row.cells}};
    if (row.decides) object["decides"] = true;
    Put(object, "expected", row.expected);
    rows.push_back(object);
  }
  return {{"columns", context.columns}, {"rows", rows}};
}

EvidenceContext EvidenceContextFromJson(const json& object) {
  EvidenceContext context;
  RequireObject(object, "\"context\"").at("columns").get_to(context.columns);
  for (const json& row : RequireArray(object.at("rows"), "\"rows\"")) {
    EvidenceContext::Row read;
    RequireObject(row, "a row of \"context\"").at("row").get_to(read.row);
    row.at("line").get_to(read.line);
    row.at("cells").get_to(read.cells);
    Get(row, "decides", read.decides);
    Get(row, "expected", read.expected);
    context.rows.push_back(read);
  }
  return context;
}

void PutEvidence(json& object, const Evidence& evidence) {
  if (evidence.kind != Evidence::Kind::None) {
    object["evidence_kind"] = NameIn(EvidenceKinds(), evidence.kind);
  }
  if (!evidence.cells.empty()) object["evidence"] = ToArray(evidence.cells);
  const EvidenceContext& context = evidence.context;
  if (!context.columns.empty() || !context.rows.empty()) object["context"] = ToJson(context);
  Put(object, "words", evidence.words);
  Put(object, "actual_count", evidence.actualCount);
  Put(object, "expected_count", evidence.expectedCount);
}

Evidence EvidenceFromJson(const json& object) {
  Evidence evidence;
  if (object.contains("evidence_kind")) {
    evidence.kind =
        ValueIn(EvidenceKinds(), object.at("evidence_kind").get<std::string>(), "kind of evidence");
  }
  if (object.contains("evidence")) {
    for (const json& cell : RequireArray(object.at("evidence"), "\"evidence\"")) {
      evidence.cells.push_back(EvidenceCellFromJson(cell));
    }
  }
  if (object.contains("context")) evidence.context = EvidenceContextFromJson(object.at("context"));
  Get(object, "words", evidence.words);
  Get(object, "actual_count", evidence.actualCount);
  Get(object, "expected_count", evidence.expectedCount);
  return evidence;
}

json ToJson(const Loss& loss) {
  json object = json::object();
  if (loss.signal != 0) {
    object["signal"] = loss.signal;
  } else {
    object["exit_status"] = loss.exitStatus;
  }
  Put(object, "last_lines", loss.lastLines);
  return object;
}

Loss LossFromJson(const json& object) {
  Loss loss;
  RequireObject(object, "\"loss\"");
  Get(object, "signal", loss.signal);
  Get(object, "exit_status", loss.exitStatus);
  Get(object, "last_lines", loss.lastLines);
  return loss;
}

std::vector<TestOutcome> TestsFromJson(const json& array, const char* what) {
  std::vector<TestOutcome> tests;
  for (const json& test : RequireArray(array, what)) tests.push_back(TestOutcomeFromJson(test));
  return tests;
}

}  // namespace

json ToJson(const TestOutcome& test) {
  json object = {{"name", test.name}, {"outcome", NameOf(test.outcome)}};
  if (test.number != 0) object["number"] = test.number;
  Put(object, "subject", test.subject);
  Put(object, "location", test.location);
  Put(object, "message", test.message);
  PutEvidence(object, test.evidence);
  if (test.bound) {
    object["bound"] = {
        {"min", test.bound->min}, {"max", test.bound->max}, {"actual", test.bound->actual}};
  }
  Put(object, "chance", test.chance);
  return object;
}

TestOutcome TestOutcomeFromJson(const json& object) {
  TestOutcome test;
  RequireObject(object, "a test").at("name").get_to(test.name);
  test.outcome = OutcomeOf(object.at("outcome").get<std::string>());
  Get(object, "number", test.number);
  Get(object, "subject", test.subject);
  Get(object, "location", test.location);
  Get(object, "message", test.message);
  test.evidence = EvidenceFromJson(object);
  if (object.contains("bound")) {
    const json& bound = RequireObject(object.at("bound"), "\"bound\"");
    test.bound = BoundCheck{bound.at("min").get<long>(), bound.at("max").get<long>(),
                            bound.at("actual").get<long>()};
  }
  Get(object, "chance", test.chance);
  return test;
}

json ToJson(const DatafileResult& datafile) {
  json object = {{"path", Utf8OfPath(datafile.path)},
                 {"experiment", datafile.experiment},
                 {"outcome", NameOf(datafile.outcome)},
                 {"seconds", datafile.seconds},
                 {"tests", ToArray(datafile.tests)}};
  Put(object, "digest", datafile.digest);
  if (datafile.position != 0) object["position"] = datafile.position;
  Put(object, "duration_ms", datafile.durationMs);
  Put(object, "expansion_ms", datafile.expansionMs);
  Put(object, "rows", datafile.rows);
  if (datafile.loss) object["loss"] = ToJson(*datafile.loss);
  Put(object, "remarks", datafile.remarks);
  return object;
}

DatafileResult DatafileResultFromJson(const json& object) {
  DatafileResult datafile;
  datafile.path = PathOfUtf8(RequireObject(object, "a data file").at("path").get<std::string>());
  object.at("experiment").get_to(datafile.experiment);
  datafile.outcome = OutcomeOf(object.at("outcome").get<std::string>());
  object.at("seconds").get_to(datafile.seconds);
  datafile.tests = TestsFromJson(object.at("tests"), "\"tests\"");
  Get(object, "digest", datafile.digest);
  Get(object, "position", datafile.position);
  Get(object, "duration_ms", datafile.durationMs);
  Get(object, "expansion_ms", datafile.expansionMs);
  Get(object, "rows", datafile.rows);
  if (object.contains("loss")) datafile.loss = LossFromJson(object.at("loss"));
  Get(object, "remarks", datafile.remarks);
  return datafile;
}

json ToJson(const RunResults& results) {
  json reports = json::array();
  for (const std::filesystem::path& report : results.reports) reports.push_back(Utf8OfPath(report));
  json object = {{"format", FORMAT},
                 {"machine", NameOf(results.machine)},
                 {"started", results.started},
                 {"seconds", results.seconds},
                 {"before_first", ToArray(results.beforeFirst)},
                 {"datafiles", ToArray(results.datafiles)},
                 {"reports", reports}};
  if (results.shard) {
    object["shard"] = {{"index", results.shard->index}, {"count", results.shard->count}};
  }
  Put(object, "faults", results.faults);
  Put(object, "host", results.host);
  Put(object, "verifiers", results.verifiers);
  if (results.tolerance) {
    object["tolerance"] = {{"state", NameIn(ToleranceStates(), results.tolerance->state)},
                           {"words", results.tolerance->words}};
  }
  return object;
}

RunResults RunResultsFromJson(const json& object) {
  RunResults results;
  const json& format = RequireObject(object, "the whole").at("format");
  if (format != FORMAT) {
    throw std::runtime_error("the format is " + format.dump() + ", not " + std::to_string(FORMAT));
  }
  results.machine = MachineKindOf(object.at("machine").get<std::string>());
  object.at("started").get_to(results.started);
  object.at("seconds").get_to(results.seconds);
  if (object.contains("before_first")) {
    results.beforeFirst = TestsFromJson(object.at("before_first"), "\"before_first\"");
  }
  for (const json& datafile : RequireArray(object.at("datafiles"), "\"datafiles\"")) {
    results.datafiles.push_back(DatafileResultFromJson(datafile));
  }
  if (object.contains("reports")) {
    for (const json& report : RequireArray(object.at("reports"), "\"reports\"")) {
      results.reports.push_back(PathOfUtf8(report.get<std::string>()));
    }
  }
  if (object.contains("shard")) {
    const json& shard = RequireObject(object.at("shard"), "\"shard\"");
    results.shard =
        Shard{shard.at("index").get<std::size_t>(), shard.at("count").get<std::size_t>()};
    if (results.shard->index < 1 || results.shard->index > results.shard->count) {
      throw std::runtime_error("there is no shard " + shard.dump());
    }
  }
  Get(object, "faults", results.faults);
  Get(object, "host", results.host);
  Get(object, "verifiers", results.verifiers);
  if (object.contains("tolerance")) {
    const json& tolerance = RequireObject(object.at("tolerance"), "\"tolerance\"");
    results.tolerance = ToleranceBudget{
        ValueIn(ToleranceStates(), tolerance.at("state").get<std::string>(), "state of tolerance"),
        tolerance.at("words").get<std::vector<std::string>>()};
  }
  return results;
}

std::string JsonText(const json& value, int indent) {
  return value.dump(indent, ' ', false, json::error_handler_t::replace);
}

}  // namespace OmbreliaHost
