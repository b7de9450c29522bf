#include "Tabulon/cli/DrivenTable.h"

#include <algorithm>

#include "Tabulon/cli/Text.h"
#include "Tabulon/src/queries/MUInterfaceRowTruthDecider.h"
#include "Tabulon/src/rows/MUColumnReader.h"

namespace TabulonCli {

namespace {

// Matches the rows whose text in the column is another one.
class DiffersDecider : public MUInterfaceRowTruthDecider {
 public:
  DiffersDecider(const wxString& column, const wxString& value) : m_cells(column), m_value(value) {}
  int DecideRow(MUSingleRowDataPlusRowProperties* row) override {
    return m_cells.TextOf(*row).Equals(m_value) ? 0 : 1;
  }
  bool ResultMayBeCached() override { return false; }
  wxString GetIdentityString() override { return wxString(); }

 private:
  MUColumnReader m_cells;
  const wxString m_value;
};

}  // namespace

DrivenTable::DrivenTable(const std::vector<std::filesystem::path>& files) : m_table(&m_reports) {
  m_table.AddObserver(this);
  std::deque<DichotomousFileRequest> requests;
  for (const auto& file : files) requests.push_back(DichotomousFileRequest{TextOf(file), true});
  m_table.SimultaneousFileRequestsAddAndRemove(requests);
  RunIdleLoop();
}

void DrivenTable::OnDataShapeChanged(unsigned shownRows, unsigned shownColumns, unsigned long, int,
                                     int) {
  m_shownRows = static_cast<int>(shownRows);
  m_shownColumns = static_cast<int>(shownColumns);
}

// There is no window to repaint: the table is printed once, at the end.
void DrivenTable::OnRefreshRequest(wxCommandEvent&) {}

void DrivenTable::RunIdleLoop() {
  while (m_table.IdleWorkRemains()) m_table.OnIdle();
}

ColumnNames DrivenTable::Columns() {
  std::vector<wxString> names;
  for (const auto& column : m_table.FindColumnInformationWherePropertyFlagIsAbsent(0)) {
    names.push_back(column.m_columnName);
  }
  return ColumnNames(std::move(names));
}

void DrivenTable::Arrange(const CommandLine& commandLine) {
  // Every name is looked up before anything changes.
  const ColumnNames names = Columns();
  std::vector<std::pair<wxString, wxString>> conditions;
  for (const auto& condition : commandLine.conditions)
    conditions.push_back(names.SplitCondition(condition));
  std::vector<wxString> hidden;
  for (const auto& column : commandLine.hiddenColumns) hidden.push_back(names.Find(column));
  std::vector<wxString> wanted;
  for (const auto& list : commandLine.columns) {
    for (const wxString& column : names.FindList(list)) wanted.push_back(column);
  }
  const wxString sort =
      commandLine.sortColumn.empty() ? wxString() : names.Find(commandLine.sortColumn);

  for (const auto& [column, value] : conditions) KeepRowsWhere(column, value);
  if (commandLine.hideEmpty) m_table.HideEmptyColumnsBasedOnCurrentlyShownRows();
  if (!wanted.empty()) ShowOnly(wanted);
  for (const wxString& column : hidden) m_table.HideOneSingleColumnPerArbitraryUserRequest(column);
  if (!sort.empty()) m_table.SetSortColumn(sort, commandLine.reverse);
  RunIdleLoop();

  for (const int row : commandLine.flaggedRows) {
    if (row >= m_shownRows) {
      throw RunError(ExitStatus::WrongUse, "--flag: there is no row " + std::to_string(row) + "; " +
                                               std::to_string(m_shownRows) + " rows are shown");
    }
    m_table.SetRowFlag(row, true);
  }
}

void DrivenTable::KeepRowsWhere(const wxString& column, const wxString& value) {
  DiffersDecider differs(column, value);
  for (const unsigned long row :
       *m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&differs, false)) {
    m_table.HideOneSingleRowPerArbitraryUserRequest(row);
  }
  RunIdleLoop();
}

void DrivenTable::ShowOnly(const std::vector<wxString>& columns) {
  for (const wxString& column : columns) {
    m_table.MoveColumnPosition(column, m_table.SPECIAL_CODE_FOR_COL_INSERTION_AT_END, false);
  }
  for (const auto& column : m_table.FindColumnInformationWherePropertyFlagIsAbsent(0)) {
    if (std::find(columns.begin(), columns.end(), column.m_columnName) == columns.end()) {
      m_table.HideOneSingleColumnPerArbitraryUserRequest(column.m_columnName);
    }
  }
}

}  // namespace TabulonCli
