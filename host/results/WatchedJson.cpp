#include "host/results/WatchedJson.h"

#include <nlohmann/json.hpp>
#include <string>

#include "host/results/NamedValues.h"
#include "host/results/ResultNames.h"
#include "host/results/WideText.h"

namespace OmbreliaHost {

namespace {

using nlohmann::json;

constexpr int FORMAT = 1;

std::string NameOf(ChangeOutcome outcome) {
  static const std::vector<NamedValue<ChangeOutcome>> names = {
      {ChangeOutcome::Unnoticed, "unnoticed"},
      {ChangeOutcome::Noticed, "noticed"},
      {ChangeOutcome::NeverEnds, "never ends"},
      {ChangeOutcome::Crashes, "crashes"}};
  return NameIn(names, outcome);
}

char LetterOf(ChangeOutcome outcome) {
  switch (outcome) {
    case ChangeOutcome::Unnoticed:
      return '.';
    case ChangeOutcome::NeverEnds:
      return 'e';
    case ChangeOutcome::Crashes:
      return 'c';
    case ChangeOutcome::Noticed:
      break;
  }
  return 'n';
}

// One letter per row.
std::string MapOf(const std::vector<ChangeOutcome>& outcomes) {
  std::string map;
  for (const ChangeOutcome outcome : outcomes) map += LetterOf(outcome);
  return map;
}

std::string MapOf(const WatchedColumn& column, std::optional<ChangeOutcome> WatchedCell::*change) {
  std::string map;
  for (const WatchedCell& cell : column.cells) {
    const std::optional<ChangeOutcome>& outcome = cell.*change;
    map += outcome ? LetterOf(*outcome) : ' ';
  }
  return map;
}

json ToJson(const WatchedColumn& column) {
  json object = {{"name", column.name},
                 {"cells", column.cells.size()},
                 {"noticed", column.CountOf(Share::All)},
                 {"noticed_in_part", column.CountOf(Share::Some)},
                 {"near", MapOf(column, &WatchedCell::near)},
                 {"other", MapOf(column, &WatchedCell::other)},
                 {"empty", MapOf(column, &WatchedCell::empty)}};
  if (column.emptied) object["column_emptied"] = NameOf(*column.emptied);
  if (column.removed) object["column_removed"] = NameOf(*column.removed);
  return object;
}

json ToJson(const std::vector<ChangeOutcome>& rows) {
  return {{"rows", rows.size()}, {"noticed", CountNoticed(rows)}, {"map", MapOf(rows)}};
}

json ToJson(const WatchedBound& bound) {
  return {{"test", bound.test},
          {"machine", OmbreliaHost::NameOf(bound.machine)},
          {"min", bound.min},
          {"max", bound.max},
          {"noticed", bound.IsNoticed()},
          {"fails_below", bound.failsBelow},
          {"passes_at_min", bound.passesAtMin},
          {"passes_at_max", bound.passesAtMax},
          {"fails_above", bound.failsAbove}};
}

json ToJson(const WatchedDatafile& datafile) {
  json columns = json::array();
  for (const WatchedColumn& column : datafile.columns) columns.push_back(ToJson(column));
  json bounds = json::array();
  for (const WatchedBound& bound : datafile.bounds) bounds.push_back(ToJson(bound));
  json object = {{"experiment", datafile.experiment},
                 {"verifier", datafile.className},
                 {"datafile", Utf8OfPath(datafile.datafile)},
                 {"changes", datafile.changes},
                 {"columns", columns},
                 {"rows_dropped", ToJson(datafile.dropped)},
                 {"rows_doubled", ToJson(datafile.doubled)},
                 {"bounds", bounds}};
  if (datafile.added) object["row_added"] = NameOf(*datafile.added);
  return object;
}

}  // namespace

json ToJson(const std::vector<WatchedDatafile>& datafiles) {
  json experiments = json::array();
  for (const WatchedDatafile& datafile : datafiles) experiments.push_back(ToJson(datafile));
  return {{"format", FORMAT}, {"watched", experiments}};
}

}  // namespace OmbreliaHost
