// Queries of the table of two hundred files. "first" is the first question after loading; "again" is the
// same question once more after the cached answers, and nothing else, were dropped; "sorted" is the first
// question after a sort by many values, which leaves neighbours far apart in memory, and "after_its_sort"
// after one by the column that is asked for. "searched" is the first question after a search by a predicate.
#include <string>
#include <vector>

#include "Tabulon/src/queries/MUInterfaceRowTruthDecider.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "benchmarks/DataFileMaker.h"
#include "benchmarks/ManyRows.h"
#include "benchmarks/ScratchFolder.h"

namespace {

using namespace Bench;

// Reads one cell of each row, as a caller does who knows nothing but the record.
class CellDecider : public MUInterfaceRowTruthDecider {
 public:
  int DecideRow(MUSingleRowDataPlusRowProperties* row) override {
    return row->m_cells[m_column] == m_wanted ? 1 : 0;
  }
  bool ResultMayBeCached() override { return false; }
  wxString GetIdentityString() override { return m_wanted; }

 private:
  const wxString m_column = FEW_VALUES;
  const wxString m_wanted = ONE_OF_FEW_VALUES;
};

void RegisterQuery(const std::string& kind, const std::function<void(Table&)>& query) {
  RegisterOnFreshTable("query/first/" + kind, query);
  RegisterOnFreshTable("query/again/" + kind, query, [=](Table& table) {
    query(table);
    table.EraseCachesOfQueries();
  });
}

void Distinct(Table& table, const wxString& column) {
  std::vector<wxString> values;
  table.SelectDistinctPerColumn(column, values, Table::ALL_ROWS, false);
  benchmark::DoNotOptimize(values.data());
}

void Where(Table& table) {
  benchmark::DoNotOptimize(table.GetAllFromCol_X_WhereField_Y_Matches_Z(MANY_VALUES, FEW_VALUES,
                                                                        ONE_OF_FEW_VALUES, true));
}

void SearchByPredicate(Table& table) {
  CellDecider decider;
  benchmark::DoNotOptimize(table.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, true));
}

// The different texts of one file of the largest size.
void RegisterLetters(const std::string& name, bool alike) {
  static const ScratchFolder folder;
  const std::filesystem::path file = folder.Path() / (alike ? "alike.txt" : "ordinary.txt");
  WriteDataFile(file, MakeFileOfLetters(LARGEST_FILE, alike));
  RegisterOnFreshTable(name, [](Table& table) { Distinct(table, FEW_VALUES); }, nullptr, {file});
}

const bool registered = [] {
  RegisterLetters("query/letters/ordinary", false);
  RegisterLetters("query/letters/alike", true);
  RegisterOnFreshTable("query/first/predicate", SearchByPredicate);
  RegisterOnFreshTable("query/searched/where", Where, SearchByPredicate);
  RegisterOnFreshTable(
      "query/searched/distinct_few", [](Table& table) { Distinct(table, FEW_VALUES); },
      SearchByPredicate);
  RegisterOnFreshTable(
      "query/searched/sort_few", [](Table& table) { table.SetSortColumn(FEW_VALUES, false); },
      SearchByPredicate);
  RegisterOnFreshTable("query/unsearched/sort_few",
                       [](Table& table) { table.SetSortColumn(FEW_VALUES, false); });
  RegisterQuery("distinct_few", [](Table& table) { Distinct(table, FEW_VALUES); });
  RegisterQuery("distinct_many", [](Table& table) { Distinct(table, MANY_VALUES); });
  RegisterQuery("where", Where);
  const auto sort = [](Table& table) { table.SetSortColumn(FEW_VALUES, false); };
  const auto sortFar = [](Table& table) { table.SetSortColumn(MANY_VALUES, false); };
  RegisterOnFreshTable(
      "query/after_its_sort/distinct_few", [](Table& table) { Distinct(table, FEW_VALUES); }, sort);
  RegisterOnFreshTable(
      "query/sorted/distinct_few", [](Table& table) { Distinct(table, FEW_VALUES); }, sortFar);
  RegisterOnFreshTable(
      "query/sorted/distinct_many", [](Table& table) { Distinct(table, MANY_VALUES); }, sortFar);
  RegisterOnFreshTable("query/sorted/where", Where, sortFar);
  RegisterOnFreshTable(
      "query/sorted/read_column",
      [](Table& table) { benchmark::DoNotOptimize(ReadColumn(table, MANY_VALUES)); }, sortFar);
  RegisterOnFreshTable(
      "query/first/read_column",
      [](Table& table) { benchmark::DoNotOptimize(ReadColumn(table, MANY_VALUES)); }, sort);
  RegisterOnFreshTable(
      "query/first/read_column_as_texts",
      [](Table& table) { benchmark::DoNotOptimize(ReadColumnAsTexts(table, MANY_VALUES)); }, sort);

  RegisterOnDuckDb("query/duckdb/distinct_few", [](DuckDb& database) {
    database.SumOfLengths("SELECT DISTINCT Condition FROM t");
  });
  RegisterOnDuckDb("query/duckdb/distinct_many", [](DuckDb& database) {
    database.SumOfLengths("SELECT DISTINCT Stimulus FROM t");
  });
  RegisterOnDuckDb("query/duckdb/where", [](DuckDb& database) {
    database.SumOfLengths("SELECT Stimulus FROM t WHERE Condition = 'condition_07'");
  });
  RegisterOnDuckDb(
      "query/duckdb/read_column",
      [](DuckDb& database) { database.SumOfLengths("SELECT Stimulus FROM sorted"); },
      "CREATE TABLE IF NOT EXISTS sorted AS SELECT * FROM t ORDER BY Condition, rowid");
  return true;
}();

}  // namespace
