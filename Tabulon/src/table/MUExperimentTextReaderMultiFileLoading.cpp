// How a file enters the table, how changes become visible, and the status texts.
#include <wx/translation.h>

#include <algorithm>
#include <memory>

#include "Tabulon/src/reading/MUDataFileInputReaderFactory.h"
#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/table/MUColumnMerge.h"
#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "Tabulon/src/table/MUFileFlags.h"
#include "Tabulon/src/table/MUInterfaceStatusTextPrinterManager.h"
#include "Tabulon/src/table/MUTableEvents.h"
#include "Tabulon/src/text/MUUtilitarianFunctions.h"

namespace {

using Row = MUSingleRowDataPlusRowProperties;

wxString MillisecondsText(unsigned long milliseconds) {
  return wxString::Format(wxGetTranslation(wxT(" %u milliseconds.")),
                          static_cast<unsigned>(milliseconds));
}

}  // namespace

bool MUExperimentTextReaderMultiFile::AddExperimentOcurrence(const wxFileName& file, bool notify) {
  return AddExperimentOcurrence_private(file, notify, false, nullptr);
}

bool MUExperimentTextReaderMultiFile::
    AddExperimentOcurrence_SimulateIdleLoop_UsedWhenNoTabulonWindowIsShown(const wxFileName& file,
                                                                           bool notify,
                                                                           wxFile* openFile) {
  MaintainRunningListOfExperimentFiles(file.GetFullPath(), false, true);
  return AddExperimentOcurrence_private(file, notify, true, openFile);
}

bool MUExperimentTextReaderMultiFile::AddExperimentOcurrence_private(const wxFileName& file,
                                                                     bool notify, bool simulateIdle,
                                                                     wxFile* openFile) {
  const wxString fullPath = file.GetFullPath();
  std::unique_ptr<MUInterfaceExperimentDataFileInputReader> reader(
      MUDataFileInputReaderFactory::GetExperimentDataFileInputReader(
          file, openFile != nullptr ? MU_INPUTFILE_IN_MEMORY : MU_INPUTFILE_TXT, m_errorHandler,
          openFile));
  const bool good = !reader->ErrorStatusIsPresent();
  if (good) {
    // The rows first: a row with more cells than columns adds a column.
    ExtractAll(reader.get());
    MergeNewHeadingsWithOldHeadings(reader.get(), fullPath);
    reader.reset();
    m_scratchFileNames.assign(1, fullPath);
    UnsuppressColumnsBasedOnMultipleFileNames(m_scratchFileNames);
  } else {
    m_files.erase(fullPath);
  }
  if (notify) NotifyMyObservers();
  if (simulateIdle && good) IdleTimeProcessAllNotifications();
  return good;
}

void MUExperimentTextReaderMultiFile::ExtractAll(MUInterfaceExperimentDataFileInputReader* reader) {
  const wxUint32 count = reader->GetDataRowCount();
  reader->GoToDataRow(0);
  // Keys may have started over while rows were there.
  if (!m_allRowKeys.empty() && m_nextRowKey <= m_allRowKeys.back()) m_loadOrder.Forget();
  const bool readerMayKeepRows = !MUDataFileInputReaderFactory::MakesReadersLike(*reader);
  for (wxUint32 i = 0; i < count; ++i) {
    std::unique_ptr<Row> row(reader->CreateAndReturnCurrentRowObject(true));
    if (row == nullptr) break;
    if (readerMayKeepRows) m_loadOrder.Lend(m_nextRowKey);
    if (!m_rows.insert(m_nextRowKey, row.get())) {
      const std::unique_ptr<Row> replaced(m_rows.find(m_nextRowKey));
      m_rows.erase(m_nextRowKey);
      m_rows.insert(m_nextRowKey, row.get());
    }
    row.release();
    ++m_nextRowKey;
  }
}

void MUExperimentTextReaderMultiFile::MergeNewHeadingsWithOldHeadings(
    MUInterfaceExperimentDataFileInputReader* reader, const wxString& fullName) {
  if (!MUDataFileInputReaderFactory::MakesReadersLike(*reader)) m_columnsAreOurs = false;
  const std::unique_ptr<std::deque<MUColumnNamePlusProperties*>> arrivals(
      reader->CreateAndReturnPositionallyOrderedColumnObjects());
  MergeColumnOrders(m_columns, *arrivals, fullName, m_insertNewColumnsInPlace);
}

void MUExperimentTextReaderMultiFile::UnsuppressColumnsBasedOnMultipleFileNames(
    const std::deque<wxString>& fullNames) {
  const MUFileNames names(fullNames.begin(), fullNames.end());
  const bool noShareIsSuppressed =
      RowsAreOurs() && m_columnsAreOurs &&
      std::none_of(names.begin(), names.end(), [this](const wxString& name) {
        return m_filesThatWereSuppressed.count(name) != 0;
      });
  // A walk over all shares for each file that is loaded would make the time of a load grow with their number.
  if (noShareIsSuppressed) {
    ShowColumnsWithALiveShare(m_columns);
    return;
  }
  UnsuppressColumnsForFiles(m_columns, names);
  for (const wxString& name : names) m_filesThatWereSuppressed.erase(name);
}

void MUExperimentTextReaderMultiFile::MaintainRunningListOfExperimentFiles(const wxString& fullName,
                                                                           bool remove,
                                                                           bool active) {
  if (remove) {
    m_files.erase(fullName);
  } else {
    m_files.emplace(fullName, active);
  }
}

std::vector<wxString> MUExperimentTextReaderMultiFile::GetNamesOfActiveFiles() const {
  std::vector<wxString> names;
  for (const auto& [fullName, active] : m_files) {
    if (active) names.push_back(fullName);
  }
  return names;
}

void MUExperimentTextReaderMultiFile::NotifyMyObservers() { m_notificationPending = true; }

void MUExperimentTextReaderMultiFile::IdleTimeProcessAllNotifications() {
  m_sortRanSinceNotification = false;
  RotateQueuedCopiesOfRowCollectionAndColCollection();
  EraseAllCachedStatefulOptimizedStoredData();

  const std::deque<wxString> names =
      FindColumnNamesWherePropertyFlagIsAbsent(MU_NOT_FULLY_SHOWN_MASK);
  m_columnHasText.resize(names.size(), TRI_STATE_UNKNOWN);
  m_currentColumnNames->assign(names.begin(), names.end());
  m_shownRowCount = m_currentShownRowKeys->size();
  m_shownColumnCount = names.size();
  m_activeRowCount = m_activeRowKeys.size();

  IterateThroughTheNotificationLoops();

  if (m_shownRowCount == 0 && m_shownColumnCount == 0) m_emptySearchFinished = true;
  if (m_allRowKeys.empty()) m_nextRowKey = 0;
  if (m_statusPrinter != nullptr) AddPendingEvent(wxCommandEvent(wxEVT_COMMAND_REFRESH_REQUEST));
}

void MUExperimentTextReaderMultiFile::SetLinkToStatusBar(
    MUInterfaceStatusTextPrinterManager* printer) {
  m_statusPrinter = printer;
}

void MUExperimentTextReaderMultiFile::SendStartMessageToStatusBar(const wxString& identifier,
                                                                  const wxString& text, int slot) {
  if (m_statusPrinter == nullptr) return;
  if (slot == -1) slot = m_statusPrinter->GetDefaultStatusSlot();
  MUUtilitarianFunctions::TimeMeProductionRelease(true, identifier, nullptr);
  m_lastStatusMessageId = m_statusPrinter->PrintStatusText(text, slot, -1);
}

void MUExperimentTextReaderMultiFile::SendFinishMessageToStatusBar(const wxString& identifier,
                                                                   const wxString& text) {
  if (m_statusPrinter == nullptr) return;
  unsigned long elapsed = 0;
  MUUtilitarianFunctions::TimeMeProductionRelease(false, identifier, &elapsed);
  m_statusPrinter->PrintStatusText(text + MillisecondsText(elapsed),
                                   m_statusPrinter->GetDefaultStatusSlot(), m_lastStatusMessageId);
}

void MUExperimentTextReaderMultiFile::HandleQueuedEventAfterNotifications(wxCommandEvent&) {
  if (m_sortColumnName.empty() || !m_sortRanSinceNotification || m_statusPrinter == nullptr) return;
  const wxString text = wxGetTranslation(wxT("Finished sorting by \"")) + m_sortColumnName +
                        wxGetTranslation(wxT("\"."));
  m_statusPrinter->PrintStatusText(text + MillisecondsText(m_sortMilliseconds),
                                   m_statusPrinter->GetDefaultStatusSlot(), -1);
}
