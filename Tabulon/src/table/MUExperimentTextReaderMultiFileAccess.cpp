// The lists of row keys and plain access by row and column.
#include <algorithm>
#include <cstdint>
#include <typeinfo>

#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "Tabulon/src/table/MUNearest.h"

namespace {

// A negative index wraps to a number that is past every end.
std::size_t Place(int index) { return static_cast<std::size_t>(index); }

}  // namespace

void MUExperimentTextReaderMultiFile::ResetKeysIntoCurrentRowsAll() {
  m_loadOrder.Write(m_rows, KeyLists(), RowsAreOurs());
}

// A derived viewer may have written whatever the members allow.
bool MUExperimentTextReaderMultiFile::RowsAreOurs() const {
  return typeid(*this) == typeid(MUExperimentTextReaderMultiFile);
}

void MUExperimentTextReaderMultiFile::EraseAllCachedStatefulOptimizedStoredData() {
  EraseCachesOfQueries();
  m_shownRowCount = 0;
  m_shownColumnCount = 0;
  m_currentColumnNames->clear();
  m_columnTexts.ForgetStale(m_rows);
  m_columnHasText.clear();
  m_emptySearchColumn = 0;
  m_emptySearchRow = 0;
  m_emptySearchFinished = false;
  if (SortColumnHasAnActiveFile()) {
    ResetKeysUsingSortSettings();
  } else {
    ResetKeysIntoCurrentRowsAll();
  }
}

bool MUExperimentTextReaderMultiFile::SortColumnHasAnActiveFile() const {
  if (m_sortColumnName.empty()) return false;
  const MUColumnNamePlusProperties* column = FindColumn(m_sortColumnName);
  if (column == nullptr) return false;
  return std::any_of(column->m_fileStatuses.begin(), column->m_fileStatuses.end(),
                     [this](const FileStatusStruct& status) {
                       const auto file = m_files.find(status.m_fullFileName);
                       return file != m_files.end() && file->second;
                     });
}

int MUExperimentTextReaderMultiFile::GetNumberOfDataRows() const {
  return MUNearest<int>(m_shownRowCount);
}

int MUExperimentTextReaderMultiFile::GetNumberOfDataColumns() const {
  return MUNearest<int>(m_shownColumnCount);
}

wxString MUExperimentTextReaderMultiFile::GetDataCellValue(int row, int column) const {
  return GetDataCellText(row, column).ToString();
}

MUCellText MUExperimentTextReaderMultiFile::GetDataCellText(int row, int column) const {
  MUCellText text;
  GetDataColumnTexts(column, row, 1, &text);
  return text;
}

void MUExperimentTextReaderMultiFile::GetDataColumnTexts(int column, int firstRow, int rowCount,
                                                         MUCellText* texts) const {
  const std::size_t place = Place(column);
  const bool columnIsKnown = place < m_shownColumnCount && place < m_currentColumnNames->size();
  // A sort between two notifications may have left fewer keys than the frozen count says.
  const std::size_t knownRows =
      columnIsKnown ? std::min<std::size_t>(m_shownRowCount, m_currentShownRowKeys->size()) : 0;
  const std::int64_t first = firstRow;
  const std::int64_t end = first + std::max(rowCount, 0);
  const std::int64_t firstKnown = std::min(std::max<std::int64_t>(first, 0), end);
  const std::int64_t endKnown =
      std::max(firstKnown, std::min(end, static_cast<std::int64_t>(knownRows)));

  MUCellText* const known = std::fill_n(texts, firstKnown - first, m_columnTexts.UndefinedText());
  if (endKnown > firstKnown) {
    m_columnTexts.Read(m_rows, m_currentShownRowKeys->data() + firstKnown,
                       static_cast<std::size_t>(endKnown - firstKnown), *m_currentColumnNames,
                       place, known);
  }
  std::fill_n(known + (endKnown - firstKnown), end - endKnown, m_columnTexts.UndefinedText());
}

wxString MUExperimentTextReaderMultiFile::GetColumnNameText(int column) const {
  if (Place(column) < m_shownColumnCount && Place(column) < m_currentColumnNames->size()) {
    return (*m_currentColumnNames)[Place(column)];
  }
  return CELL_STRING_VALUE_WHEN_CELL_IS_UNDEFINED;
}

int MUExperimentTextReaderMultiFile::GetColumnPositionNumberFromText(const wxString& name) const {
  const std::vector<wxString>& names = *m_currentColumnNames;
  const auto found = std::find(names.begin(), names.end(), name);
  if (found == names.end()) return -1;
  return MUNearest<int>(static_cast<std::size_t>(found - names.begin()));
}

std::vector<wxString>* MUExperimentTextReaderMultiFile::GetNamesOfAllCurrentlyDisplayedColumns() {
  return m_currentColumnNames;
}

MUSingleRowDataPlusRowProperties*
MUExperimentTextReaderMultiFile::GetRowByRowIndexAndVisibilityFilter(
    unsigned long index, TARGETED_ROW_SEARCH_SET set) const {
  if (set == CALLER_GIVEN_ROWS) return nullptr;
  const RowKeys* keys = KeysOfSet(set);
  if (keys == nullptr || index >= keys->size()) return nullptr;
  const unsigned long key = (*keys)[index];
  MUSingleRowDataPlusRowProperties* row = m_rows.find(key);
  if (row != nullptr) m_loadOrder.Lend(key);
  return row;
}

// Null for a number that is no set.
const MUExperimentTextReaderMultiFile::RowKeys* MUExperimentTextReaderMultiFile::KeysOfSet(
    TARGETED_ROW_SEARCH_SET set) const {
  switch (set) {
    case ONLY_FULLY_SHOWN_ROWS:
      return m_currentShownRowKeys;
    case ALL_ROWS:
      return &m_allRowKeys;
    case CALLER_GIVEN_ROWS:
      return &m_givenRowKeys;
    case ACTIVE_SHOWN_AND_ACTIVE_SEMIHIDDEN:
      return &m_activeRowKeys;
  }
  return nullptr;
}

// The first column of exactly that name, also a hidden one; null if there is none.
MUColumnNamePlusProperties* MUExperimentTextReaderMultiFile::FindColumn(
    const wxString& name) const {
  for (MUColumnNamePlusProperties* column : m_columns) {
    if (column->m_columnName == name) return column;
  }
  return nullptr;
}

// Null for an index out of range and for a row that has been deleted.
MUSingleRowDataPlusRowProperties* MUExperimentTextReaderMultiFile::FindShownRow(
    int shownRow) const {
  const std::size_t place = Place(shownRow);
  return place < m_currentShownRowKeys->size() ? m_rows.find((*m_currentShownRowKeys)[place])
                                               : nullptr;
}
