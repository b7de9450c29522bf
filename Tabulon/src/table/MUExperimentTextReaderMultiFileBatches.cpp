// Batches of file requests, observers, and the work of idle moments.
#include <wx/translation.h>

#include <algorithm>
#include <set>
#include <utility>

#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "Tabulon/src/table/MUFileFlags.h"
#include "Tabulon/src/table/MUInterfaceExperimentDataObserver.h"
#include "Tabulon/src/table/MUNearest.h"
#include "Tabulon/src/table/MUTableEvents.h"
#include "Tabulon/src/text/MUUtilitarianFunctions.h"

namespace {

// A file of a batch that is not in the list of files even after the attempt to load it.
void TellDeveloperOfUnlistedFile(const wxString& fullName) {
  MUUtilitarianFunctions::DebugMessageWithMilliseconds(wxString::Format(
      wxT("\n\n%s\n\n...cannot be found in our list of files.  \n\nThis can be **GOOD** or "
          "**BAD** ") wxT("depending on the file.  If that file failed to open due to invalidity "
                          "as a datafile, then ")
          wxT("this message is GOOD NEWS.  Otherwise, this is NOT good.\n\n"),
      fullName));
}

}  // namespace

void MUExperimentTextReaderMultiFile::SimultaneousFileRequestsAddAndRemove(
    const std::deque<DichotomousFileRequest>& requests) {
  std::deque<wxString> toRemove;
  std::deque<wxString> toAdd;
  for (const DichotomousFileRequest& request : requests) {
    const bool known = m_files.count(request.m_fullFileName) != 0;
    if (!request.m_wanted && known) toRemove.push_back(request.m_fullFileName);
    if (request.m_wanted && !known) toAdd.push_back(request.m_fullFileName);
  }
  RemoveMultipleFiles(toRemove);
  AddMultipleFiles(toAdd);
  NotifyMyObservers();
}

void MUExperimentTextReaderMultiFile::AddMultipleFiles(const std::deque<wxString>& fullNames) {
  if (fullNames.empty()) return;
  static const wxString identifier(wxT("MUExperimentTextReaderMultiFile::AddMultipleFiles"));
  const int count = MUNearest<int>(fullNames.size());
  SendStartMessageToStatusBar(
      identifier, wxString::Format(wxGetTranslation(wxT("Adding %d file(s)...")), count), -1);
  for (const wxString& name : fullNames) {
    MaintainRunningListOfExperimentFiles(name, false, true);
    AddExperimentOcurrence(wxFileName(name), false);
  }
  SendFinishMessageToStatusBar(identifier, wxString::Format(wxT("Done adding %d file(s)."), count));
}

void MUExperimentTextReaderMultiFile::RemoveMultipleFiles(const std::deque<wxString>& fullNames) {
  if (fullNames.empty()) return;
  static const wxString identifier(wxT("MUExperimentTextReaderMultiFile::RemoveMultipleFiles"));
  const int count = MUNearest<int>(fullNames.size());
  SendStartMessageToStatusBar(
      identifier, wxString::Format(wxGetTranslation(wxT("Removing %d file(s)...")), count), -1);
  for (const wxString& name : fullNames) m_files.erase(name);
  DeleteAllRows_WhereField_Y_Matches_AnythingFromCollection_Z(
      MUInterfaceExperimentDataFileInputReader::STRING_FOR_FILENAME_SECRET_COL, fullNames, true);
  RemoveColumnsBasedOnMultipleFileNames(fullNames);
  SendFinishMessageToStatusBar(identifier,
                               wxString::Format(wxT("Done removing %d file(s)."), count));
}

void MUExperimentTextReaderMultiFile::RemoveColumnsBasedOnFileName(const wxFileName& file) {
  const wxString fullName = file.GetFullPath();
  m_scratchFileNames.assign(1, fullName);
  SuppressColumnsBasedOnMultipleFileNames(m_scratchFileNames);
  for (MUColumnNamePlusProperties* column : m_columns) {
    column->m_fileStatuses.remove_if([&fullName](const FileStatusStruct& status) {
      return status.FullFileNameMatches(&fullName);
    });
  }
  DeleteColumnsWithoutFile();
}

void MUExperimentTextReaderMultiFile::RemoveColumnsBasedOnMultipleFileNames(
    const std::deque<wxString>& fullNames) {
  SuppressColumnsBasedOnMultipleFileNames(fullNames);
  for (MUColumnNamePlusProperties* column : m_columns) {
    // Each name takes away one entry: a file that was loaded twice has two.
    std::multiset<wxString> remaining(fullNames.begin(), fullNames.end());
    column->m_fileStatuses.remove_if([&remaining](const FileStatusStruct& status) {
      const auto name = remaining.find(status.m_fullFileName);
      if (name == remaining.end()) return false;
      remaining.erase(name);
      return true;
    });
  }
  DeleteColumnsWithoutFile();
}

void MUExperimentTextReaderMultiFile::DeleteColumnsWithoutFile() {
  const auto end =
      std::remove_if(m_columns.begin(), m_columns.end(), [](MUColumnNamePlusProperties* column) {
        if (!column->m_fileStatuses.empty()) return false;
        delete column;
        return true;
      });
  m_columns.erase(end, m_columns.end());
  m_filesThatWereSuppressed = FilesWithASuppressedShare(m_columns);
}

void MUExperimentTextReaderMultiFile::SimultaneousFileRequestsSuppressAndUnsuppress(
    const std::deque<DichotomousFileRequest>& requests) {
  static const wxString identifier(
      wxT("MUExperimentTextReaderMultiFile::SimultaneousFileRequestsSuppressAndUnsuppress"));
  static const wxString startText = wxGetTranslation(wxT("Updating file selection..."));
  static const wxString finishText = wxGetTranslation(wxT("File selection updated."));
  SendStartMessageToStatusBar(identifier, startText, 1);
  for (const DichotomousFileRequest& request : requests) {
    if (m_files.count(request.m_fullFileName) == 0) {
      LastMinuteFileAdditionSoWeCanProceedWithBatchOfRequests(wxFileName(request.m_fullFileName));
    }
  }
  for (const DichotomousFileRequest& request : requests) {
    const auto file = m_files.find(request.m_fullFileName);
    if (file != m_files.end()) {
      file->second = request.m_wanted;
    } else {
      TellDeveloperOfUnlistedFile(request.m_fullFileName);
    }
  }
  SimultaneousColumnsSuppressAndUnsuppress(requests);
  SimultaneousRowsSuppressAndUnsuppress(requests);
  NotifyMyObservers();
  SendFinishMessageToStatusBar(identifier, finishText);
}

void MUExperimentTextReaderMultiFile::LastMinuteFileAdditionSoWeCanProceedWithBatchOfRequests(
    const wxFileName& file) {
  MaintainRunningListOfExperimentFiles(file.GetFullPath(), false, false);
  AddExperimentOcurrence(file, false);
}

bool MUExperimentTextReaderMultiFile::AddObserver(
    MUInterfaceExperimentDataObserver* observer) const {
  m_observers.push_back(observer);
  return true;
}

void MUExperimentTextReaderMultiFile::OnIdle() {
  if (m_notificationPending) {
    IdleTimeProcessAllNotifications();
    m_notificationPending = false;
  } else {
    IdleTimeFreeMemoryUsedForRowCopies();
    PerformOneTimesliceOfEmptyColumnSearch();
  }
}

bool MUExperimentTextReaderMultiFile::IdleWorkRemains() const {
  return m_notificationPending || !m_emptySearchFinished || !m_previousShownRowKeys->empty() ||
         !m_previousColumnNames->empty();
}

void MUExperimentTextReaderMultiFile::IterateThroughTheNotificationLoops() {
  if (m_observers.empty()) return;
  int lastPreservedRow = -1;
  int lastPreservedColumn = -1;
  GetOuterLimitsOfPreservedRange(&lastPreservedRow, &lastPreservedColumn);
  for (MUInterfaceExperimentDataObserver* observer : m_observers) {
    if (observer == nullptr) continue;
    observer->OnDataShapeChanged(MUNearest<unsigned>(m_shownRowCount),
                                 MUNearest<unsigned>(m_shownColumnCount), m_activeRowCount,
                                 lastPreservedRow, lastPreservedColumn);
  }
  for (MUInterfaceExperimentDataObserver* observer : m_observers) {
    if (observer == nullptr) continue;
    wxCommandEvent event(wxEVT_COMMAND_REFRESH_REQUEST);
    observer->OnRefreshRequest(event);
  }
}

void MUExperimentTextReaderMultiFile::IdleTimeFreeMemoryUsedForRowCopies() {
  // Swapped with empty ones: clearing would keep the memory.
  RowKeys().swap(*m_previousShownRowKeys);
  std::vector<wxString>().swap(*m_previousColumnNames);
}

void MUExperimentTextReaderMultiFile::RotateQueuedCopiesOfRowCollectionAndColCollection() {
  std::swap(m_currentShownRowKeys, m_previousShownRowKeys);
  std::swap(m_currentColumnNames, m_previousColumnNames);
}
