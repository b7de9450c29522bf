// The sorted order of the rows.
#include <algorithm>

#include "Tabulon/src/MUExperimentTextReaderMultiFile.h"
#include "Tabulon/src/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/MURowSort.h"
#include "Tabulon/src/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/MUSortFunctors.h"
#include "Tabulon/src/MUUtilitarianFunctions.h"

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

  std::deque<MUSingleRowDataPlusRowProperties*> rows;
  for (const auto& [key, row] : m_rows) {
    row->m_rowKey = key;
    rows.push_back(row);
  }
  const auto endOfShown = std::stable_partition(rows.begin(), rows.end(),
                                                UnaryPredPartitionByVisibility(m_sortColumnName));
  if (endOfShown != rows.begin())
    SortRows(rows.begin(), endOfShown, m_sortColumnName, m_sortReverse);

  // One counter serves the shown rows in all three lists: they stand first in each.
  unsigned long index = 0;
  for (auto place = rows.begin(); place != endOfShown; ++place, ++index) {
    MUSingleRowDataPlusRowProperties* row = *place;
    m_allRowKeys.push_back(row->m_rowKey);
    m_currentShownRowKeys->push_back(row->m_rowKey);
    m_activeRowKeys.push_back(row->m_rowKey);
    row->m_indexAmongAllRows = row->m_indexAmongShownRows = row->m_indexAmongActiveRows = index;
  }
  unsigned long activeIndex = index;
  for (auto place = endOfShown; place != rows.end(); ++place, ++index) {
    MUSingleRowDataPlusRowProperties* row = *place;
    m_allRowKeys.push_back(row->m_rowKey);
    row->m_indexAmongAllRows = index;
    if ((row->m_rowPropertyFlags & MU_INACTIVE_MASK) != 0) continue;
    m_activeRowKeys.push_back(row->m_rowKey);
    row->m_indexAmongActiveRows = activeIndex;
    ++activeIndex;
  }
  MUUtilitarianFunctions::TimeMeProductionRelease(false, identifier, &m_sortMilliseconds);
}
