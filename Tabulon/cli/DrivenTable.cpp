#include "Tabulon/cli/DrivenTable.h"

#include <algorithm>
#include <deque>

#include "Tabulon/cli/ColumnCells.h"
#include "Tabulon/cli/PlainTable.h"
#include "Tabulon/cli/Text.h"
#include "Tabulon/src/queries/MUInterfaceRowTruthDecider.h"
#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"

namespace TabulonCli {

namespace {

using Reader = MUInterfaceExperimentDataFileInputReader;
using Row = MUSingleRowDataPlusRowProperties;

// Matches the rows that miss one of the conditions.
class MissesDecider : public MUInterfaceRowTruthDecider {
 public:
  MissesDecider(const std::vector<Condition>& conditions, const Inputs& inputs)
      : m_conditions(conditions) {
    for (const Condition& condition : conditions)
      m_cells.emplace_back(condition.WhichColumn(), inputs);
  }
  int DecideRow(Row* row) override {
    for (std::size_t i = 0; i < m_cells.size(); ++i) {
      if (!m_conditions[i].Fits(m_cells[i].TextOf(*row))) return 1;
    }
    return 0;
  }
  bool ResultMayBeCached() override { return false; }
  wxString GetIdentityString() override { return wxString(); }

 private:
  const std::vector<Condition>& m_conditions;
  std::deque<ColumnCells> m_cells;
};

}  // namespace

DrivenTable::DrivenTable(const Inputs& inputs) : m_inputs(inputs), m_table(&m_reports) {
  m_table.AddObserver(this);
  std::vector<wxString> paths;
  for (const auto& path : inputs.Paths()) paths.push_back(TextOf(path));
  Request(paths, true);
  ListLoadedFiles();
  DropPlainTables();
}

// There is no window to resize or to repaint: the table is printed once, at the end.
void DrivenTable::OnDataShapeChanged(unsigned, unsigned, unsigned long, int, int) {}
void DrivenTable::OnRefreshRequest(wxCommandEvent&) {}

void DrivenTable::Request(const std::vector<wxString>& paths, bool wanted) {
  std::deque<DichotomousFileRequest> requests;
  for (const wxString& path : paths) requests.push_back(DichotomousFileRequest{path, wanted});
  m_table.SimultaneousFileRequestsAddAndRemove(requests);
  RunIdleLoop();
}

void DrivenTable::RunIdleLoop() {
  while (m_table.IdleWorkRemains()) m_table.OnIdle();
}

void DrivenTable::ListLoadedFiles() {
  // In load order a file's rows stand side by side.
  const auto count = static_cast<unsigned long>(m_table.GetNumberOfDataRows());
  for (unsigned long i = 0; i < count; i += m_loaded.back().rows) {
    const Row& row = *m_table.GetRowByRowIndexAndVisibilityFilter(
        i, MUExperimentTextReaderMultiFile::ONLY_FULLY_SHOWN_ROWS);
    LoadedFile file;
    file.path = row.m_cells.ValueOrDefault(Reader::STRING_FOR_FILENAME_SECRET_COL);
    file.title = row.m_cells.ValueOrDefault(Reader::STRING_FOR_EXPERIMENT_SECRET_COL);
    file.date = row.m_cells.ValueOrDefault(Reader::STRING_FOR_EXP_DATETIME_SECRET_COL);
    file.participant = row.m_cells.ValueOrDefault(Reader::STRING_FOR_PERSONNAME_SECRET_COL);
    file.rows = row.Block()->RowCount();
    m_loaded.push_back(file);
  }
}

void DrivenTable::DropPlainTables() {
  std::vector<wxString> paths;
  for (const LoadedFile& file : m_loaded) {
    if (!IsPlainTable(file.participant, file.date)) continue;
    paths.push_back(file.path);
    m_reports.AddProblem(file.path, PLAIN_TABLE_MESSAGE);
  }
  if (paths.empty()) return;
  Request(paths, false);
  m_loaded.clear();
  ListLoadedFiles();
}

Columns DrivenTable::MakeColumns(const std::vector<std::string>& mergedPrefixes) {
  std::vector<Column> data;
  for (const auto& info : m_table.FindColumnInformationWherePropertyFlagIsAbsent(0)) {
    Column column;
    column.name = info.m_columnName;
    column.sources = {info.m_columnName};
    column.isCodeValue = m_table.IsColumnCodeValColulmn(info.m_columnName);
    data.push_back(column);
  }
  for (const std::string& prefix : mergedPrefixes) {
    const std::vector<std::size_t> places = Columns(data).FindPrefix(prefix);
    Column merged;
    merged.kind = Column::Kind::Merged;
    merged.name = TextOf(prefix);
    // "Expansion Time(ms): " stands for "Expansion Time(ms)".
    while (!merged.name.empty() && (merged.name.Last() == ' ' || merged.name.Last() == ':'))
      merged.name.RemoveLast();
    for (const std::size_t place : places) {
      merged.sources.insert(merged.sources.end(), data[place].sources.begin(),
                            data[place].sources.end());
    }
    for (auto place = places.rbegin(); place != places.rend(); ++place)
      data.erase(data.begin() + static_cast<std::ptrdiff_t>(*place));
    data.insert(data.begin() + static_cast<std::ptrdiff_t>(places.front()), merged);
  }
  return Columns(std::move(data));
}

void DrivenTable::KeepRowsWhere(const std::vector<Condition>& conditions) {
  if (conditions.empty()) return;
  MissesDecider misses(conditions, m_inputs);
  for (const unsigned long row :
       *m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&misses, false)) {
    m_table.HideOneSingleRowPerArbitraryUserRequest(row);
  }
  RunIdleLoop();
}

void DrivenTable::HideEmptyColumns() {
  m_table.HideEmptyColumnsBasedOnCurrentlyShownRows();
  RunIdleLoop();
}

std::set<wxString> DrivenTable::HiddenColumns() {
  std::set<wxString> hidden;
  for (const auto& column : m_table.FindColumnInformationWherePropertyFlagIsAbsent(0)) {
    if (column.m_hidden) hidden.insert(column.m_columnName);
  }
  return hidden;
}

}  // namespace TabulonCli
