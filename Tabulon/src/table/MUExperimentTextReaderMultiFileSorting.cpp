// The sorted order of the rows.
#include <optional>
#include <utility>
#include <vector>

#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/sorting/MURowSort.h"
#include "Tabulon/src/sorting/MUSortFunctors.h"
#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "Tabulon/src/text/MUUtilitarianFunctions.h"

namespace {

// Every other column sorts as text.
bool SortsByReactionTime(const wxString& column) {
  using Reader = MUInterfaceExperimentDataFileInputReader;
  return column == Reader::GetStandardizedDataFileStringValue(Reader::RTIME_COLUMN_HEADING);
}

using Row = MUSingleRowDataPlusRowProperties;

// The rows in key order, the fully shown ones apart from the others.
struct PartitionedRows {
  struct KeyedRow {
    unsigned long key;
    Row* row;
  };

  // Writes each row's key into it.
  PartitionedRows(const MURowStore& rows, const UnaryPredPartitionByVisibility& isShown)
      : shownRows(rows.size()), shownKeys(rows.size()) {
    rows.ForEach([&](unsigned long key, Row* row) {
      row->m_rowKey = key;
      if (isShown(row)) {
        shownRows[shownCount] = row;
        shownKeys[shownCount] = key;
        ++shownCount;
      } else {
        others.push_back({key, row});
      }
    });
  }

  MUScratchArray<Row*> shownRows;
  MUScratchArray<unsigned long> shownKeys;
  std::size_t shownCount = 0;
  std::vector<KeyedRow> others;
};

MUScratchArray<MUPlace> SortedPlacesOfShownRows(const PartitionedRows& rows, const wxString& column,
                                                bool descending, const MURowStore& allRows,
                                                MUColumnDictionaries& dictionaries) {
  if (SortsByReactionTime(column)) {
    return SortedPlacesByReactionTime(rows.shownRows.begin(), rows.shownCount, descending);
  }
  // A line without any cell has its own sort keys under the empty name, which no dictionary knows.
  if (!column.empty()) {
    if (const auto dictionary = dictionaries.OfFewTexts(column, allRows)) {
      auto places = SortedPlaces(*dictionary, rows.shownKeys.begin(), rows.shownCount, descending);
      if (places) return *std::move(places);
    }
  }
  return SortedPlaces(rows.shownRows.begin(), rows.shownCount, column, descending);
}

// One counter serves the shown rows in all three lists: they stand first in each.
void WriteShownRows(const PartitionedRows& rows, const MUScratchArray<MUPlace>& places,
                    const MURowKeyLists& lists) {
  lists.shown.resize(rows.shownCount);
  MUScratchArray<MUPlace> indexAtPlace(rows.shownCount);
  for (std::size_t index = 0; index < rows.shownCount; ++index) {
    lists.shown[index] = rows.shownKeys[places[index]];
    indexAtPlace[places[index]] = static_cast<MUPlace>(index);
  }
  lists.all = lists.shown;
  lists.active = lists.shown;
  // Row by row as they lie in memory.
  for (std::size_t place = 0; place < rows.shownCount; ++place) {
    Row& row = *rows.shownRows[place];
    row.m_indexAmongAllRows = row.m_indexAmongShownRows = row.m_indexAmongActiveRows =
        indexAtPlace[place];
  }
}

// In their order, behind the shown ones.
void AppendOtherRows(const PartitionedRows& rows, const MURowKeyLists& lists) {
  for (const auto& [key, row] : rows.others) {
    row->m_indexAmongAllRows = lists.all.size();
    lists.all.push_back(key);
    if ((row->m_rowPropertyFlags & MU_INACTIVE_MASK) != 0) continue;
    row->m_indexAmongActiveRows = lists.active.size();
    lists.active.push_back(key);
  }
}

}  // namespace

void MUExperimentTextReaderMultiFile::SetSortColumn(const wxString& name, bool reverse) {
  if (name == m_sortColumnName && reverse == m_sortReverse) return;
  m_sortColumnName = name;
  m_sortReverse = reverse;
  DropAnswersThatDependOnRowOrder();
  ResetKeysUsingSortSettings();
  wxCommandEvent event;
  HandleQueuedEventAfterNotifications(event);
}

void MUExperimentTextReaderMultiFile::GetSortColumnInfo(wxString& name, bool* reverse) const {
  name = m_sortColumnName;
  *reverse = m_sortReverse;
}

void MUExperimentTextReaderMultiFile::RevertAnyAndAllSortOptions() {
  if (m_sortColumnName.empty()) return;
  m_sortColumnName.clear();
  DropAnswersThatDependOnRowOrder();
  ResetKeysIntoCurrentRowsAll();
}

void MUExperimentTextReaderMultiFile::DropAnswersThatDependOnRowOrder() {
  m_cacheRowIndicesByFlags.clear();
  SafeClearCachesOfRowIndicesSetsPointers();
  SafeClearStoredNonCachedConstPointers();
}

void MUExperimentTextReaderMultiFile::ResetKeysUsingSortSettings() {
  static const wxString identifier(
      wxT("MUExperimentTextReaderMultiFile::ResetKeysUsingSortSettings"));
  m_sortRanSinceNotification = true;
  m_loadOrder.Forget();
  m_currentShownRowKeys->clear();
  m_allRowKeys.clear();
  m_activeRowKeys.clear();
  if (m_rows.empty()) return;
  MUUtilitarianFunctions::TimeMeProductionRelease(true, identifier, nullptr);
  const PartitionedRows rows(m_rows, UnaryPredPartitionByVisibility(m_sortColumnName));
  const MUScratchArray<MUPlace> places = SortedPlacesOfShownRows(
      rows, m_sortColumnName, m_sortReverse, m_rows, m_columnTexts.Dictionaries());
  const MURowKeyLists lists = KeyLists();
  lists.all.reserve(m_rows.size());
  lists.active.reserve(m_rows.size());
  WriteShownRows(rows, places, lists);
  AppendOtherRows(rows, lists);
  MUUtilitarianFunctions::TimeMeProductionRelease(false, identifier, &m_sortMilliseconds);
}
