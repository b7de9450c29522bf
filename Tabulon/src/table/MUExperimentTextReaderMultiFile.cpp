// Life and flags.
#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"

#include "Tabulon/src/queries/MUQueryCachingBroker.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/table/MUTableEvents.h"

const bool MUExperimentTextReaderMultiFile::TRIM_WHITESPACE_DURING_EMPTYSEARCH = true;

MUExperimentTextReaderMultiFile::MUExperimentTextReaderMultiFile(
    MUInterfaceDataFileInputErrorHandler* errorHandler)
    : m_errorHandler(errorHandler) {
  PerformSetup(wxFileName());
  m_shownRowCount = 0;
  m_shownColumnCount = 0;
}

MUExperimentTextReaderMultiFile::~MUExperimentTextReaderMultiFile() {
  while (!m_columns.empty()) {
    delete m_columns.back();
    m_columns.pop_back();
  }
  for (const auto& entry : m_rows) delete entry.second;
  m_broker->EmptyAllCachedData();
  delete m_broker;
  SafeClearCachesOfRowIndicesSetsPointers();
  for (const auto& entry : m_cacheRowIndexHolders) delete entry.second;
  SafeClearStoredNonCachedConstPointers();
  for (const auto* holder : m_nonCachedHolders) delete holder;
}

bool MUExperimentTextReaderMultiFile::PerformSetup(const wxFileName&) {
  const wxEventTypeTag<wxCommandEvent> refreshRequest(wxEVT_COMMAND_REFRESH_REQUEST);
  // A derived viewer may set up anew: one binding and one broker must be left.
  Unbind(refreshRequest, &MUExperimentTextReaderMultiFile::HandleQueuedEventAfterNotifications,
         this, wxID_ANY);
  Bind(refreshRequest, &MUExperimentTextReaderMultiFile::HandleQueuedEventAfterNotifications, this,
       wxID_ANY);
  m_currentShownRowKeys = &m_shownRowKeysA;
  m_previousShownRowKeys = &m_shownRowKeysB;
  m_currentColumnNames = &m_columnNamesA;
  m_previousColumnNames = &m_columnNamesB;
  m_sortRanSinceNotification = false;
  m_sortMilliseconds = 0;
  m_sortColumnName.clear();
  m_statusPrinter = nullptr;
  m_emptySearchColumn = 0;
  m_emptySearchRow = 0;
  m_emptySearchFinished = false;
  m_lastStatusMessageId = -1;
  if (m_broker != nullptr) {
    m_broker->EmptyAllCachedData();
    delete m_broker;
  }
  m_broker = new MUQueryCachingBroker;
  m_insertNewColumnsInPlace = true;
  return true;
}

bool MUExperimentTextReaderMultiFile::CheckColumnForFlagBits(const wxString& name,
                                                             unsigned int bits) const {
  const MUColumnNamePlusProperties* column = FindColumn(name);
  return column != nullptr && (column->m_columnPropertyFlags & bits) == bits;
}

bool MUExperimentTextReaderMultiFile::IsColumnTrialVarColumn(const wxString& name) const {
  return CheckColumnForFlagBits(name, MU_COL_FLAG_TRIAL_VARIABLE);
}

bool MUExperimentTextReaderMultiFile::IsColumnCodeValColulmn(const wxString& name) const {
  return CheckColumnForFlagBits(name, MU_COL_FLAG_CODE_VALUE);
}
