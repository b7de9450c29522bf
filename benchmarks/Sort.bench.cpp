// Sorts of the table of two hundred files. "first" is the first sort after loading; "again" is the other
// direction of a column that was sorted before. The peer makes the same: the order of the rows, ties in
// load order.
#include <string>

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "benchmarks/DataFileMaker.h"
#include "benchmarks/ManyRows.h"

namespace {

using namespace Bench;

void RegisterSort(const std::string& kind, const wxString& column, const std::string& peerOrder) {
  RegisterOnFreshTable("sort/first/" + kind,
                       [=](Table& table) { table.SetSortColumn(column, false); });
  RegisterOnFreshTable(
      "sort/again/" + kind, [=](Table& table) { table.SetSortColumn(column, true); },
      [=](Table& table) { table.SetSortColumn(column, false); });
  RegisterOnDuckDb("sort/duckdb/" + kind, [=](DuckDb& database) {
    database.Run("SELECT rowid FROM t ORDER BY " + peerOrder + ", rowid");
  });
  RegisterOnDuckDb("sort/duckdb_any_ties/" + kind, [=](DuckDb& database) {
    database.Run("SELECT rowid FROM t ORDER BY " + peerOrder);
  });
}

const bool registered = [] {
  RegisterSort("few", FEW_VALUES, "Condition");
  RegisterSort("many", MANY_VALUES, "Stimulus");
  RegisterSort("long", LONG_TEXTS, "Sentence");
  RegisterSort("reaction_time", REACTION_TIME, "TRY_CAST(\"Time\" AS DOUBLE)");
  return true;
}();

}  // namespace
