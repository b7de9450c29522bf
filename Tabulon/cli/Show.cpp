#include "Tabulon/cli/Show.h"

#include <algorithm>
#include <iostream>

#include "Tabulon/cli/RowResult.h"
#include "Tabulon/cli/SortKeys.h"
#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"

namespace TabulonCli {

namespace {

const char* const MARK = "*";
const char* const MARK_HEADING = "Flag";
const char* const ROW_NUMBER_HEADING = "row";

ResultColumn UncountedColumn(const char* name) {
  ResultColumn column;
  column.name = name;
  column.upper = name;
  column.lower = "";
  column.counted = false;
  return column;
}

class Showing {
 public:
  Showing(const CommandLine& commandLine, DrivenTable& driven)
      : m_line(commandLine),
        m_driven(driven),
        m_columns(driven.MakeColumns(commandLine.mergedPrefixes)) {}

  void Run() {
    ResolveNames();
    m_driven.KeepRowsWhere(m_conditions);
    if (m_line.hideEmpty) m_driven.HideEmptyColumns();
    m_rows = m_keys.empty() ? ShownRows(m_driven.Table())
                            : SortedRows(m_driven.Table(), m_keys, m_driven.Files());
    TellOfNumbersSortedAsText();
    FlagRows(m_driven, m_line.flaggedRows, m_rows);
    Print();
  }

 private:
  // Every name is looked up before anything changes.
  void ResolveNames() {
    for (const std::string& condition : m_line.conditions)
      m_conditions.emplace_back(condition, m_columns);
    for (const std::string& list : m_line.hiddenColumns) {
      for (const Column* column : m_columns.FindList(list)) m_hidden.push_back(column);
    }
    for (const std::string& list : m_line.columns) {
      for (const Column* column : m_columns.FindList(list)) m_wanted.push_back(column);
    }
    if (!m_line.sort) return;
    m_keys = ParseSortKeys(*m_line.sort, m_columns);
    for (SortKey& key : m_keys) key.descending = key.descending != m_line.reverse;
  }

  std::vector<const Column*> ChooseColumns(bool forMachines) {
    std::vector<const Column*> chosen;
    const bool origin = m_line.origin || (forMachines && !m_line.noOrigin && m_wanted.empty());
    for (const Column& column : m_columns.All()) {
      if (origin && column.IsOrigin()) chosen.push_back(&column);
    }
    if (m_wanted.empty()) {
      for (const Column& column : m_columns.All()) {
        if (!column.IsOrigin()) chosen.push_back(&column);
      }
    }
    for (const Column* column : m_wanted) {
      if (!origin || !column->IsOrigin()) chosen.push_back(column);
    }
    const std::set<wxString> hiddenInTable = m_driven.HiddenColumns();
    const auto isHidden = [&](const Column* column) {
      return std::find(m_hidden.begin(), m_hidden.end(), column) != m_hidden.end() ||
             (!column->sources.empty() &&
              std::all_of(column->sources.begin(), column->sources.end(),
                          [&](const wxString& source) { return hiddenInTable.count(source) > 0; }));
    };
    chosen.erase(std::remove_if(chosen.begin(), chosen.end(), isHidden), chosen.end());
    return chosen;
  }

  void TellOfNumbersSortedAsText() {
    for (const SortKey& key : m_keys) {
      const wxString& reactionTime =
          MUInterfaceExperimentDataFileInputReader::GetStandardizedDataFileStringValue(
              MUInterfaceExperimentDataFileInputReader::RTIME_COLUMN_HEADING);
      if (key.asNumbers || key.column->kind == Column::Kind::Line ||
          key.column->name == reactionTime)
        continue;
      ColumnCells cells(*key.column, m_driven.Files());
      if (!HoldsOnlyNumbers(cells, m_rows,
                            [](const MUCellText& text) { return NumberIn(text).has_value(); }))
        continue;
      std::cerr << "tabulon-cli: --sort: \"" << key.column->label
                << "\" holds only numbers and was sorted as text; \"" << key.column->label
                << ":n\" sorts by number\n";
    }
  }

  // The rows to print, as places.
  std::pair<std::size_t, std::size_t> Window() const {
    std::size_t first = 0;
    std::size_t end = m_rows.size();
    if (m_line.rows) {
      end = std::min(
          end, m_line.rows->last == static_cast<std::size_t>(-1) ? end : m_line.rows->last + 1);
      first = std::min(m_line.rows->first, end);
    }
    if (m_line.last) first = std::max(first, end - std::min(end, *m_line.last));
    return {first, end};
  }

  void Print() {
    PrintOptions options = m_line.print;
    if ((m_line.rows || m_line.last) && !options.limit) options.limit = 0;
    const std::unique_ptr<ResultPrinter> printer = MakePrinter(options);
    RowResult result(ChooseColumns(printer->IsForMachines()), m_driven.Files());
    if (printer->TellsNumbers()) result.TellNumbers(m_rows);
    const bool marks = !m_line.flaggedRows.empty();
    std::vector<ResultColumn> headings = result.Headings();
    if (m_line.rowNumbers) headings.insert(headings.begin(), UncountedColumn(ROW_NUMBER_HEADING));
    if (marks) headings.insert(headings.begin(), UncountedColumn(MARK_HEADING));
    printer->Begin(headings);
    const auto [first, end] = Window();
    ResultRow cells;
    for (std::size_t i = first; i < end; ++i) {
      cells.clear();
      const bool isFlagged = (m_rows[i]->m_rowPropertyFlags & MU_ROW_FLAG_RED_FLAG) != 0;
      if (marks) cells.push_back({isFlagged ? MARK : "", ResultCell::Kind::Mark});
      const std::string number = std::to_string(i);
      if (m_line.rowNumbers) cells.push_back({number, ResultCell::Kind::Number});
      result.AppendCells(*m_rows[i], cells);
      printer->Row(cells);
    }
    printer->End(m_rows.size());
  }

  const CommandLine& m_line;
  DrivenTable& m_driven;
  const Columns m_columns;
  std::vector<Condition> m_conditions;
  std::vector<const Column*> m_hidden;
  std::vector<const Column*> m_wanted;
  std::vector<SortKey> m_keys;
  std::vector<DataRow*> m_rows;
};

}  // namespace

void Show(const CommandLine& commandLine, DrivenTable& driven) {
  Showing(commandLine, driven).Run();
}

void FlagRows(DrivenTable& driven, const std::vector<std::size_t>& numbers,
              const std::vector<DataRow*>& rows) {
  for (const std::size_t number : numbers) {
    if (number >= rows.size()) {
      throw RunError(ExitStatus::WrongUse, "--flag: there is no row " + std::to_string(number) +
                                               "; " + std::to_string(rows.size()) +
                                               " rows are shown");
    }
    driven.Table().SetRowFlag(static_cast<int>(rows[number]->m_indexAmongShownRows), true);
  }
}

}  // namespace TabulonCli
