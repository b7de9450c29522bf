// The lists of row keys and plain access by row and column.
#include <algorithm>
#include <array>
#include <optional>

#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUColumnReader.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"

namespace {

// A negative index wraps to a number that is past every end.
std::size_t Place(int index) { return static_cast<std::size_t>(index); }

// Finds the run that holds a key. Keys that are asked for one after the other are often of the same one.
class MURowRunFinder {
 public:
  using Runs = std::vector<MURowStore::Run>;

  // runs: may be null for none.
  explicit MURowRunFinder(const Runs* runs) : m_runs(runs != nullptr ? *runs : NO_RUNS) {}

  // Null if there is none.
  const MURowStore::Run* Find(unsigned long key) {
    if (m_last == nullptr || !Holds(*m_last, key)) {
      const auto found = std::upper_bound(
          m_runs.begin(), m_runs.end(), key,
          [](unsigned long wanted, const MURowStore::Run& run) { return wanted < run.endKey; });
      m_last = found != m_runs.end() && Holds(*found, key) ? &*found : nullptr;
    }
    return m_last;
  }

 private:
  static bool Holds(const MURowStore::Run& run, unsigned long key) {
    return run.firstKey <= key && key < run.endKey;
  }

  static const Runs NO_RUNS;
  const Runs& m_runs;
  const MURowStore::Run* m_last = nullptr;
};

const MURowRunFinder::Runs MURowRunFinder::NO_RUNS;

}  // namespace

void MUExperimentTextReaderMultiFile::ResetKeysIntoCurrentRowsAll() {
  if (UnsortedOrderOnlyGrew()) {
    const RowKeys& shownKeys = *m_unsortedOrder.m_shownKeys;
    if (&shownKeys != m_currentShownRowKeys) {
      // The buffer of the notification before the last has the beginning already.
      RowKeys& keys = *m_currentShownRowKeys;
      if (keys.size() != m_unsortedOrder.m_previousKeyCount || keys.size() > shownKeys.size())
        keys.clear();
      keys.insert(keys.end(),
                  shownKeys.begin() + static_cast<RowKeys::difference_type>(keys.size()),
                  shownKeys.end());
      m_unsortedOrder.m_previousKeyCount = shownKeys.size();
    }
  } else {
    ForgetRowOrder();
    m_unsortedOrder.m_nextKey = 0;
    m_allRowKeys.reserve(m_rows.size());
    m_activeRowKeys.reserve(m_rows.size());
    m_currentShownRowKeys->reserve(m_rows.size());
  }
  for (auto place = m_rows.from(m_unsortedOrder.m_nextKey); place != m_rows.end(); ++place) {
    const auto [key, row] = *place;
    row->m_indexAmongAllRows = m_allRowKeys.size();
    m_allRowKeys.push_back(key);
    if ((row->m_rowPropertyFlags & MU_INACTIVE_MASK) != 0) continue;
    row->m_indexAmongActiveRows = m_activeRowKeys.size();
    m_activeRowKeys.push_back(key);
    if ((row->m_rowPropertyFlags & MU_NOT_FULLY_SHOWN_MASK) != 0) continue;
    row->m_indexAmongShownRows = m_currentShownRowKeys->size();
    m_currentShownRowKeys->push_back(key);
  }
  m_unsortedOrder.m_stands = true;
  m_unsortedOrder.m_nextKey = m_nextRowKey;
  m_unsortedOrder.m_shownKeys = m_currentShownRowKeys;
  m_unsortedOrder.m_shownKeyCount = m_currentShownRowKeys->size();
}

// Whether the lists of keys are those of load order, complete but for rows that have arrived since.
bool MUExperimentTextReaderMultiFile::UnsortedOrderOnlyGrew() const {
  return m_unsortedOrder.m_stands && !m_rowRecordsWereHandedOut &&
         m_unsortedOrder.m_shownKeys->size() == m_unsortedOrder.m_shownKeyCount;
}

void MUExperimentTextReaderMultiFile::EraseAllCachedStatefulOptimizedStoredData() {
  EraseCachesOfQueries();
  m_shownRowCount = 0;
  m_shownColumnCount = 0;
  m_currentColumnNames->clear();
  m_cellPositions.Clear();
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

void MUExperimentTextReaderMultiFile::ForgetRowOrder() {
  m_unsortedOrder.m_stands = false;
  m_unsortedOrder.m_previousKeyCount = 0;
  m_currentShownRowKeys->clear();
  m_allRowKeys.clear();
  m_activeRowKeys.clear();
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
  return static_cast<int>(m_shownRowCount);
}

int MUExperimentTextReaderMultiFile::GetNumberOfDataColumns() const {
  return static_cast<int>(m_shownColumnCount);
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
  constexpr std::size_t ROWS_AT_ONCE = 64;
  struct PlainCell {
    const MUDataFileBlock* block;  // null for a cell that is not read this way
    std::size_t row;
    std::size_t position;
  };
  std::array<PlainCell, ROWS_AT_ONCE> cells;
  const std::vector<wxString>& names = *m_currentColumnNames;
  const RowKeys& keys = *m_currentShownRowKeys;
  const std::size_t place = Place(column);
  // A sort between two notifications may have left fewer keys than the frozen count says.
  const std::size_t knownRows = place < m_shownColumnCount && place < names.size()
                                    ? std::min<std::size_t>(m_shownRowCount, keys.size())
                                    : 0;
  const std::size_t total = rowCount > 0 ? static_cast<std::size_t>(rowCount) : 0;
  MURowRunFinder runs(m_rows.StandingRuns());
  std::optional<MUColumnReader> reader;
  const MUDataFileBlock* block = nullptr;  // the last one, and where the column is in it
  std::size_t position = MUCellPositions::HIDDEN;
  for (std::size_t done = 0; done < total; done += ROWS_AT_ONCE) {
    const std::size_t count = std::min(ROWS_AT_ONCE, total - done);
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t row = Place(firstRow) + done + i;
      cells[i] = {nullptr, 0, 0};
      if (row >= knownRows) continue;
      const MURowStore::Run* const run = runs.Find(keys[row]);
      if (run == nullptr || run->block == nullptr) continue;
      if (run->block != block) {
        block = run->block;
        const std::vector<std::size_t>& positions = m_cellPositions.In(*block, names);
        position = place < positions.size() ? positions[place] : MUCellPositions::HIDDEN;
      }
      if (position == MUCellPositions::HIDDEN) continue;
      cells[i] = {block, run->firstRow + (keys[row] - run->firstKey), position};
      block->PrefetchRow(cells[i].row);
    }
    for (std::size_t i = 0; i < count; ++i) {
      if (cells[i].block != nullptr) cells[i].block->PrefetchCell(cells[i].row, cells[i].position);
    }
    for (std::size_t i = 0; i < count; ++i, ++texts) {
      if (cells[i].block != nullptr) {
        *texts = cells[i].block->Cell(cells[i].row, cells[i].position);
        continue;
      }
      const std::size_t index = Place(firstRow) + done + i;
      const auto* const row = index < knownRows ? m_rows.find(keys[index]) : nullptr;
      if (row == nullptr) {
        *texts = MUColumnReader::ViewOf(CELL_STRING_VALUE_WHEN_CELL_IS_UNDEFINED);
      } else {
        if (!reader) reader.emplace(names[place]);
        *texts = reader->TextOf(*row);
      }
    }
  }
}

wxString MUExperimentTextReaderMultiFile::GetColumnNameText(int column) const {
  if (Place(column) < m_shownColumnCount && Place(column) < m_currentColumnNames->size()) {
    return (*m_currentColumnNames)[Place(column)];
  }
  return CELL_STRING_VALUE_WHEN_CELL_IS_UNDEFINED;
}

int MUExperimentTextReaderMultiFile::GetColumnPositionNumberFromText(const wxString& name) const {
  const auto found = std::find(m_currentColumnNames->begin(), m_currentColumnNames->end(), name);
  return found == m_currentColumnNames->end()
             ? -1
             : static_cast<int>(std::distance(m_currentColumnNames->begin(), found));
}

std::vector<wxString>* MUExperimentTextReaderMultiFile::GetNamesOfAllCurrentlyDisplayedColumns() {
  return m_currentColumnNames;
}

MUSingleRowDataPlusRowProperties*
MUExperimentTextReaderMultiFile::GetRowByRowIndexAndVisibilityFilter(
    unsigned long index, TARGETED_ROW_SEARCH_SET set) const {
  if (set == CALLER_GIVEN_ROWS) return nullptr;
  m_rowRecordsWereHandedOut = true;
  const RowKeys* keys = KeysOfSet(set);
  return keys != nullptr && index < keys->size() ? m_rows.find((*keys)[index]) : nullptr;
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
