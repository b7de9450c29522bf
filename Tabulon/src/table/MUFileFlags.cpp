#include "Tabulon/src/table/MUFileFlags.h"

#include <algorithm>
#include <list>
#include <vector>

#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUPropertyFlags.h"

namespace {

// From the back: what arrived last is most often live.
bool AllSharesSuppressed(const MUColumnNamePlusProperties& column) {
  return std::all_of(column.m_fileStatuses.rbegin(), column.m_fileStatuses.rend(),
                     [](const FileStatusStruct& status) { return status.m_suppressed == 1; });
}

}  // namespace

void UnsuppressColumnsForFiles(const std::deque<MUColumnNamePlusProperties*>& columns,
                               const MUFileNames& fullNames) {
  struct Walk {
    std::list<FileStatusStruct>::iterator place;
    std::list<FileStatusStruct>::iterator end;
  };
  std::vector<Walk> walks;
  walks.reserve(columns.size());
  for (MUColumnNamePlusProperties* column : columns) {
    walks.push_back({column->m_fileStatuses.begin(), column->m_fileStatuses.end()});
  }
  // Side by side, because a file's shares of all columns lie together in memory. The state is looked at
  // first: of thousands of shares nearly all are live.
  for (bool someAreLeft = true; someAreLeft;) {
    someAreLeft = false;
    for (Walk& walk : walks) {
      if (walk.place == walk.end) continue;
      someAreLeft = true;
      FileStatusStruct& status = *walk.place;
      if (status.m_suppressed != 0 && fullNames.count(status.m_fullFileName) != 0) {
        status.m_suppressed = 0;
      }
      ++walk.place;
    }
  }
  ShowColumnsWithALiveShare(columns);
}

void ShowColumnsWithALiveShare(const std::deque<MUColumnNamePlusProperties*>& columns) {
  for (MUColumnNamePlusProperties* column : columns) {
    const bool isSuppressed = (column->m_columnPropertyFlags & MU_COL_FLAG_SUPPRESSED_BY_FILE) != 0;
    if (isSuppressed && !AllSharesSuppressed(*column)) {
      column->m_columnPropertyFlags &= ~MU_COL_FLAG_SUPPRESSED_BY_FILE;
    }
  }
}

MUFileNames FilesWithASuppressedShare(const std::deque<MUColumnNamePlusProperties*>& columns) {
  MUFileNames names;
  for (const MUColumnNamePlusProperties* column : columns) {
    for (const FileStatusStruct& status : column->m_fileStatuses) {
      if (status.m_suppressed != 0) names.insert(status.m_fullFileName);
    }
  }
  return names;
}

void SuppressColumnForFiles(MUColumnNamePlusProperties& column, const MUFileNames& fullNames) {
  for (FileStatusStruct& status : column.m_fileStatuses) {
    if (fullNames.count(status.m_fullFileName) != 0) status.m_suppressed = 1;
  }
  // True also where there is no share at all.
  if (AllSharesSuppressed(column)) column.m_columnPropertyFlags |= MU_COL_FLAG_SUPPRESSED_BY_FILE;
}

MUFileDecisions LastDecisions(const std::deque<DichotomousFileRequest>& requests) {
  MUFileDecisions decisions;
  for (const DichotomousFileRequest& request : requests) {
    decisions[request.m_fullFileName] = request.m_wanted;
  }
  return decisions;
}

void HideOrShowBasedOnMultipleFileRequests(MUColumnNamePlusProperties& column,
                                           const MUFileDecisions& decisions) {
  for (FileStatusStruct& status : column.m_fileStatuses) {
    const auto decision = decisions.find(status.m_fullFileName);
    if (decision != decisions.end()) status.m_suppressed = decision->second ? 0 : 1;
  }
  if (AllSharesSuppressed(column)) {
    column.m_columnPropertyFlags |= MU_COL_FLAG_SUPPRESSED_BY_FILE;
  } else {
    column.m_columnPropertyFlags &= ~MU_COL_FLAG_SUPPRESSED_BY_FILE;
  }
}

const DichotomousFileRequest* FirstRequestFor(const wxString& fullName,
                                              const std::deque<DichotomousFileRequest>& requests) {
  for (const DichotomousFileRequest& request : requests) {
    if (request.m_fullFileName == fullName) return &request;
  }
  return nullptr;
}

unsigned ApplyEnMasseShowOrHideUsingDichotomousFileRequest(unsigned rowFlags,
                                                           const DichotomousFileRequest* request) {
  if (request == nullptr) return rowFlags;
  return request->m_wanted ? rowFlags & ~MU_ROW_FLAG_SUPPRESSED_BY_FILE
                           : rowFlags | MU_ROW_FLAG_SUPPRESSED_BY_FILE;
}
