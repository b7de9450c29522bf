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

constexpr std::size_t ROWS_AHEAD = 16;  // are fetched into the cache

// Writes the keys of the fully shown rows, ascending. Answers those of all others.
std::vector<unsigned long> PartitionKeys(const MURowStore& rows,
                                         const UnaryPredPartitionByVisibility& isShown,
                                         MURowKeyLists::RowKeys& shownKeys) {
  std::vector<unsigned long> otherKeys;
  shownKeys.resize(rows.size());
  std::size_t shownCount = 0;
  rows.ForEach([&](unsigned long key, const Row* row) {
    if (isShown(row)) {
      shownKeys[shownCount++] = key;
    } else {
      otherKeys.push_back(key);
    }
  });
  shownKeys.resize(shownCount);
  return otherKeys;
}

MUScratchArray<MUPlace> SortedPlacesOf(const MURowKeyLists::RowKeys& keys, const wxString& column,
                                       bool descending, const MURowStore& rows,
                                       MUColumnDictionaries& dictionaries) {
  if (SortsByReactionTime(column)) {
    return SortedPlacesByReactionTime(rows, keys.data(), keys.size(), descending);
  }
  // A line without any cell has its own sort keys under the empty name, which no dictionary knows.
  if (!column.empty()) {
    if (const auto dictionary = dictionaries.OfFewTexts(column, rows)) {
      auto places = SortedPlaces(*dictionary, keys.data(), keys.size(), descending);
      if (places) return *std::move(places);
    }
  }
  return SortedPlaces(rows, keys.data(), keys.size(), column, descending);
}

// One counter serves the shown rows in all three lists: they stand first in each. lists.active: the shown rows'
// keys, of which the places are.
void WriteShownRows(const MURowStore& rows, const MUScratchArray<MUPlace>& places,
                    const MURowKeyLists& lists) {
  const std::size_t count = lists.active.size();
  lists.shown.resize(count);
  MUScratchArray<MUPlace> indexAtPlace(count);
  for (std::size_t index = 0; index < count; ++index) {
    lists.shown[index] = lists.active[places[index]];
    indexAtPlace[places[index]] = static_cast<MUPlace>(index);
  }
  // Row by row as they lie in memory.
  for (std::size_t place = 0; place < count; ++place) {
    if (place + ROWS_AHEAD < count) rows.Prefetch(lists.active[place + ROWS_AHEAD]);
    Row& row = *rows.find(lists.active[place]);
    row.m_rowKey = lists.active[place];
    row.m_indexAmongAllRows = row.m_indexAmongShownRows = row.m_indexAmongActiveRows =
        indexAtPlace[place];
  }
  lists.all = lists.shown;
  lists.active = lists.shown;
}

// In their order, behind the shown ones.
void AppendOtherRows(const MURowStore& rows, const std::vector<unsigned long>& keys,
                     const MURowKeyLists& lists) {
  for (const unsigned long key : keys) {
    Row& row = *rows.find(key);
    row.m_rowKey = key;
    row.m_indexAmongAllRows = lists.all.size();
    lists.all.push_back(key);
    if ((row.m_rowPropertyFlags & MU_INACTIVE_MASK) != 0) continue;
    row.m_indexAmongActiveRows = lists.active.size();
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
  const MURowKeyLists lists = KeyLists();
  const bool allAreShown = m_loadOrder.HoldsAllRowsAsShown(m_rows, lists, RowsAreOurs());
  m_loadOrder.Forget();
  lists.shown.clear();
  lists.all.clear();
  if (!allAreShown) lists.active.clear();
  if (m_rows.empty()) return;
  MUUtilitarianFunctions::TimeMeProductionRelease(true, identifier, nullptr);
  lists.all.reserve(m_rows.size());
  lists.active.reserve(m_rows.size());
  std::vector<unsigned long> otherKeys;
  if (!allAreShown) {
    otherKeys =
        PartitionKeys(m_rows, UnaryPredPartitionByVisibility(m_sortColumnName), lists.active);
  }
  const MUScratchArray<MUPlace> places = SortedPlacesOf(
      lists.active, m_sortColumnName, m_sortReverse, m_rows, m_columnTexts.Dictionaries());
  WriteShownRows(m_rows, places, lists);
  AppendOtherRows(m_rows, otherKeys, lists);
  MUUtilitarianFunctions::TimeMeProductionRelease(false, identifier, &m_sortMilliseconds);
}
