#include "Tabulon/src/MUFileFlags.h"

#include <algorithm>

#include "Tabulon/src/MUColumnNamePlusProperties.h"
#include "Tabulon/src/MUPropertyFlags.h"

namespace {

bool IsIn(const std::deque<wxString>& names, const wxString& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

bool AllSharesSuppressed(const MUColumnNamePlusProperties& column) {
  return std::all_of(column.m_fileStatuses.begin(), column.m_fileStatuses.end(),
                     [](const FileStatusStruct& status) { return status.m_suppressed == 1; });
}

}  // namespace

void UnsuppressColumnForFiles(MUColumnNamePlusProperties& column, const std::deque<wxString>& fullNames) {
  if (column.m_fileStatuses.empty()) return;
  for (FileStatusStruct& status : column.m_fileStatuses) {
    if (IsIn(fullNames, status.m_fullFileName)) status.m_suppressed = 0;
  }
  if (!AllSharesSuppressed(column)) column.m_columnPropertyFlags &= ~MU_COL_FLAG_SUPPRESSED_BY_FILE;
}

void SuppressColumnForFiles(MUColumnNamePlusProperties& column, const std::deque<wxString>& fullNames) {
  for (FileStatusStruct& status : column.m_fileStatuses) {
    if (IsIn(fullNames, status.m_fullFileName)) status.m_suppressed = 1;
  }
  // True also where there is no share at all.
  if (AllSharesSuppressed(column)) column.m_columnPropertyFlags |= MU_COL_FLAG_SUPPRESSED_BY_FILE;
}

void HideOrShowBasedOnMultipleFileRequests(MUColumnNamePlusProperties& column,
                                           const std::deque<DichotomousFileRequest>& requests) {
  for (FileStatusStruct& status : column.m_fileStatuses) {
    for (const DichotomousFileRequest& request : requests) {
      if (request.m_fullFileName == status.m_fullFileName) status.m_suppressed = request.m_wanted ? 0 : 1;
    }
  }
  if (AllSharesSuppressed(column)) {
    column.m_columnPropertyFlags |= MU_COL_FLAG_SUPPRESSED_BY_FILE;
  } else {
    column.m_columnPropertyFlags &= ~MU_COL_FLAG_SUPPRESSED_BY_FILE;
  }
}

unsigned ApplyEnMasseShowOrHideUsingDichotomousFileRequest(
    unsigned rowFlags, const wxString& fullNameOfRow,
    const std::deque<DichotomousFileRequest>& requests) {
  const auto first =
      std::find_if(requests.begin(), requests.end(), [&](const DichotomousFileRequest& request) {
        return request.m_fullFileName == fullNameOfRow;
      });
  if (first == requests.end()) return rowFlags;
  return first->m_wanted ? rowFlags & ~MU_ROW_FLAG_SUPPRESSED_BY_FILE
                         : rowFlags | MU_ROW_FLAG_SUPPRESSED_BY_FILE;
}
