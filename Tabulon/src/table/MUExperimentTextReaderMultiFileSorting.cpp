// The sorted order of the rows.
#include <optional>
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
  ForgetRowOrder();
  if (m_rows.empty()) return;
  MUUtilitarianFunctions::TimeMeProductionRelease(true, identifier, nullptr);

  using Row = MUSingleRowDataPlusRowProperties;
  struct KeyedRow {
    unsigned long key;
    Row* row;
  };
  const UnaryPredPartitionByVisibility isShown(m_sortColumnName);
  MUScratchArray<Row*> shownRows(m_rows.size());
  MUScratchArray<unsigned long> shownKeys(m_rows.size());
  std::size_t shownCount = 0;
  std::vector<KeyedRow> otherRows;
  m_rows.ForEach([&](unsigned long key, Row* row) {
    row->m_rowKey = key;
    if (isShown(row)) {
      shownRows[shownCount] = row;
      shownKeys[shownCount] = key;
      ++shownCount;
    } else {
      otherRows.push_back({key, row});
    }
  });
  std::optional<MUScratchArray<MUPlace>> places;
  // A line without any cell has sort keys of its own under the empty name, which no dictionary knows.
  if (SortsByReactionTime(m_sortColumnName)) {
    places = SortedPlacesByReactionTime(shownRows.begin(), shownCount, m_sortReverse);
  } else if (!m_sortColumnName.empty()) {
    if (const auto dictionary = m_dictionaries.OfFewTexts(m_sortColumnName, m_rows)) {
      places = SortedPlaces(*dictionary, shownKeys.begin(), shownCount, m_sortReverse);
    }
  }
  if (!places) {
    places = SortedPlaces(shownRows.begin(), shownCount, m_sortColumnName, m_sortReverse);
  }

  // One counter serves the shown rows in all three lists: they stand first in each.
  m_currentShownRowKeys->resize(shownCount);
  m_allRowKeys.reserve(m_rows.size());
  m_activeRowKeys.reserve(m_rows.size());
  MUScratchArray<MUPlace> indexAtPlace(shownCount);
  for (std::size_t index = 0; index < shownCount; ++index) {
    (*m_currentShownRowKeys)[index] = shownKeys[(*places)[index]];
    indexAtPlace[(*places)[index]] = static_cast<MUPlace>(index);
  }
  m_allRowKeys = *m_currentShownRowKeys;
  m_activeRowKeys = *m_currentShownRowKeys;
  // Row by row as they lie in memory.
  for (std::size_t place = 0; place < shownCount; ++place) {
    Row& row = *shownRows[place];
    row.m_indexAmongAllRows = row.m_indexAmongShownRows = row.m_indexAmongActiveRows =
        indexAtPlace[place];
  }
  for (const auto& [key, row] : otherRows) {
    row->m_indexAmongAllRows = m_allRowKeys.size();
    m_allRowKeys.push_back(key);
    if ((row->m_rowPropertyFlags & MU_INACTIVE_MASK) != 0) continue;
    row->m_indexAmongActiveRows = m_activeRowKeys.size();
    m_activeRowKeys.push_back(key);
  }
  MUUtilitarianFunctions::TimeMeProductionRelease(false, identifier, &m_sortMilliseconds);
}
