// What is seen: hiding, suppression by file, empty columns, red flags, the place of a column, deletion.
#include <wx/app.h>
#include <wx/translation.h>

#include <algorithm>
#include <unordered_set>

#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUColumnReader.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "Tabulon/src/table/MUFileFlags.h"
#include "Tabulon/src/table/MUNearest.h"
#include "Tabulon/src/table/MUTableEvents.h"
#include "Tabulon/src/text/MUTrimmedText.h"

namespace {

constexpr unsigned CELLS_PER_SLICE = 2000;
// Guards against a search that does not get on; never reached.
constexpr unsigned long COLUMN_STEPS_PER_SLICE = 99999999;

wxString LeftTrimmed(const wxString& text) {
  wxString trimmed(text);
  return trimmed.Trim(false);
}

// The length of what both begin with, minus 1. known: the number of first items that are known to be equal.
template <typename LIST>
int LastEqualPlace(const LIST& current, const LIST& previous, std::size_t known = 0) {
  constexpr std::size_t ITEMS_AT_ONCE = 512;
  const std::size_t shorter = std::min(current.size(), previous.size());
  const auto* const left = current.data();
  const auto* const right = previous.data();
  std::size_t equal = std::min(known, shorter);
  // Whole pieces first: long lists of numbers are compared as memory.
  while (shorter - equal >= ITEMS_AT_ONCE &&
         std::equal(left + equal, left + equal + ITEMS_AT_ONCE, right + equal)) {
    equal += ITEMS_AT_ONCE;
  }
  while (equal < shorter && left[equal] == right[equal]) ++equal;
  return equal == 0 ? -1 : MUNearest<int>(equal - 1);
}

// Calls decide(full name of the file) and then apply(row, decision) for the rows of the file that follow
// each other: a decision is made once per file and not once per row.
template <typename ROWS, typename DECIDE, typename APPLY>
void ForEachRowByFile(const ROWS& rows, DECIDE decide, APPLY apply) {
  MUColumnReader files(MUInterfaceExperimentDataFileInputReader::STRING_FOR_FILENAME_SECRET_COL);
  wxString fullName;
  auto decision = decide(fullName);
  for (const auto& entry : rows) {
    const MUCellText text = files.TextOf(*entry.second);
    if (!text.Equals(fullName)) {
      fullName = text.ToString();
      decision = decide(fullName);
    }
    apply(*entry.second, decision);
  }
}

}  // namespace

void MUExperimentTextReaderMultiFile::HideOneSingleRowPerArbitraryUserRequest(
    unsigned long shownRow) {
  if (shownRow < m_currentShownRowKeys->size()) {
    MUSingleRowDataPlusRowProperties* row = m_rows.find((*m_currentShownRowKeys)[shownRow]);
    if (row != nullptr) row->m_rowPropertyFlags |= MU_ROW_FLAG_HIDDEN_BY_USER;
  }
  m_loadOrder.Forget();
  NotifyMyObservers();
}

void MUExperimentTextReaderMultiFile::
    RemoveUserDesignatedRowHiddennessBasedOnCurrentlyActiveFiles() {
  const auto isActive = [this](const wxString& fullName) {
    const auto file = m_files.find(fullName);
    return file != m_files.end() && file->second;
  };
  ForEachRowByFile(m_rows, isActive, [](MUSingleRowDataPlusRowProperties& row, bool active) {
    if (active) row.m_rowPropertyFlags &= ~MU_ROW_FLAG_HIDDEN_BY_USER;
  });
  m_loadOrder.Forget();
  NotifyMyObservers();
}

void MUExperimentTextReaderMultiFile::HideOneSingleColumnPerArbitraryUserRequest(
    const wxString& name) {
  MUColumnNamePlusProperties* column = FindColumn(name);
  if (column == nullptr) return;
  column->m_columnPropertyFlags |= MU_COL_FLAG_HIDDEN_BY_USER;
  NotifyMyObservers();
}

void MUExperimentTextReaderMultiFile::UnhideOneSingleColumnPerArbitraryUserRequest(
    const wxString& name) {
  MUColumnNamePlusProperties* column = FindColumn(name);
  if (column == nullptr) return;
  column->m_columnPropertyFlags &= ~MU_COL_FLAG_HIDDEN_BY_USER;
  NotifyMyObservers();
}

void MUExperimentTextReaderMultiFile::SimultaneousColumnsSuppressAndUnsuppress(
    const std::deque<DichotomousFileRequest>& requests) {
  const MUFileDecisions decisions = LastDecisions(requests);
  for (const auto& [fullName, wanted] : decisions) {
    if (!wanted) m_filesThatWereSuppressed.insert(fullName);
  }
  for (MUColumnNamePlusProperties* column : m_columns) {
    HideOrShowBasedOnMultipleFileRequests(*column, decisions);
  }
}

void MUExperimentTextReaderMultiFile::SimultaneousRowsSuppressAndUnsuppress(
    const std::deque<DichotomousFileRequest>& requests) {
  const auto requestFor = [&requests](const wxString& fullName) {
    return FirstRequestFor(fullName, requests);
  };
  ForEachRowByFile(
      m_rows, requestFor,
      [](MUSingleRowDataPlusRowProperties& row, const DichotomousFileRequest* request) {
        row.m_rowPropertyFlags =
            ApplyEnMasseShowOrHideUsingDichotomousFileRequest(row.m_rowPropertyFlags, request);
      });
  m_loadOrder.Forget();
}

void MUExperimentTextReaderMultiFile::SuppressColumnsBasedOnMultipleFileNames(
    const std::deque<wxString>& fullNames) {
  const MUFileNames names(fullNames.begin(), fullNames.end());
  m_filesThatWereSuppressed.insert(names.begin(), names.end());
  for (MUColumnNamePlusProperties* column : m_columns) SuppressColumnForFiles(*column, names);
}

void MUExperimentTextReaderMultiFile::HideEmptyColumnsBasedOnCurrentlyShownRows() {
  static const wxString identifier(
      wxT("MUExperimentTextReaderMultiFile::HideEmptyColumnsBasedOnCurrentlyShownRows"));
  static const wxString startText = wxGetTranslation(wxT("Hiding empty columns..."));
  SendStartMessageToStatusBar(identifier, startText, 1);

  std::size_t hidden = 0;
  if (m_shownRowCount > 0 && m_shownColumnCount > 0) {
    // Sizes and names are read anew for each column: a hook of a derived viewer may change them.
    for (std::size_t i = 0; i < m_columnHasText.size() && i < m_currentColumnNames->size(); ++i) {
      const wxString name = (*m_currentColumnNames)[i];
      TRI_STATE_TRUE_FALSE_UNKNOWN hasText = m_columnHasText[i];
      if (hasText == TRI_STATE_UNKNOWN) {
        std::vector<wxString> values;
        SelectDistinctPerColumn(name, values, ONLY_FULLY_SHOWN_ROWS, true);
        const bool empty = values.size() == 1 && values.front().empty();
        hasText = empty ? TRI_STATE_FALSE : TRI_STATE_TRUE;
        if (i < m_columnHasText.size()) m_columnHasText[i] = hasText;
      }
      if (hasText == TRI_STATE_FALSE) {
        HideOneSingleColumnPerArbitraryUserRequest(name);
        ++hidden;
      }
    }
  }
  m_emptySearchFinished = true;
  SendFinishMessageToStatusBar(
      identifier,
      wxString::Format(wxGetTranslation(wxT("%d columns hidden.")), MUNearest<int>(hidden)));
}

void MUExperimentTextReaderMultiFile::PerformOneTimesliceOfEmptyColumnSearch() {
  if (m_emptySearchFinished) return;
  unsigned examined = 0;
  const RowKeys& keys = *m_currentShownRowKeys;
  for (unsigned long steps = 0; steps < COLUMN_STEPS_PER_SLICE && examined < CELLS_PER_SLICE;
       ++steps) {
    if (m_emptySearchColumn >= m_currentColumnNames->size() ||
        m_emptySearchColumn >= m_columnHasText.size()) {
      m_emptySearchFinished = true;
      return;
    }
    MUColumnReader cells((*m_currentColumnNames)[m_emptySearchColumn]);
    bool textFound = false;
    while (!textFound && m_emptySearchRow < keys.size() && examined < CELLS_PER_SLICE) {
      const MUSingleRowDataPlusRowProperties* row = m_rows.find(keys[m_emptySearchRow]);
      ++m_emptySearchRow;
      if (row == nullptr) continue;
      ++examined;
      const MUCellText text = cells.TextOf(*row);
      textFound = !(TRIM_WHITESPACE_DURING_EMPTYSEARCH ? TrimmedText(text) : text).IsEmpty();
    }
    // A column that the budget cut short stays as it was and is taken up again at its next row.
    if (!textFound && m_emptySearchRow < keys.size()) return;
    m_columnHasText[m_emptySearchColumn] = textFound ? TRI_STATE_TRUE : TRI_STATE_FALSE;
    m_emptySearchRow = 0;
    ++m_emptySearchColumn;
  }
}

bool MUExperimentTextReaderMultiFile::GetRowFlagStatus(int shownRow) const {
  const MUSingleRowDataPlusRowProperties* row = FindShownRow(shownRow);
  return row != nullptr && (row->m_rowPropertyFlags & MU_ROW_FLAG_RED_FLAG) != 0;
}

void MUExperimentTextReaderMultiFile::SetRowFlag(int shownRow, bool value) {
  ClearRowRedFlagCacheMemory();
  if (MUSingleRowDataPlusRowProperties* row = FindShownRow(shownRow)) {
    if (value) {
      row->m_rowPropertyFlags |= MU_ROW_FLAG_RED_FLAG;
    } else {
      row->m_rowPropertyFlags &= ~MU_ROW_FLAG_RED_FLAG;
    }
  }
  // Not wxTheApp: in a console program the application object is no wxApp.
  if (wxAppConsole* app = wxAppConsole::GetInstance()) {
    app->AddPendingEvent(wxCommandEvent(wxEVT_FLAGGED_ROW_COUNT_CHANGED, -1));
  }
}

void MUExperimentTextReaderMultiFile::ToggleRowFlag(int shownRow) {
  SetRowFlag(shownRow, !GetRowFlagStatus(shownRow));
}

void MUExperimentTextReaderMultiFile::ClearRowRedFlagCacheMemory() {
  for (const MUCachingKeySelectedData& key : m_redFlagDependentKeys)
    m_cacheRowIndicesByFlags.erase(key);
  m_redFlagDependentKeys.clear();
}

void MUExperimentTextReaderMultiFile::MoveColumnPosition(const wxString& moved,
                                                         const wxString& beforeWhich, bool trim) {
  // Only the left side is trimmed: what the user sees indented is found, a blank at the end counts.
  const auto find = [&](const wxString& wanted) {
    const wxString trimmed = LeftTrimmed(wanted);
    return std::find_if(m_columns.begin(), m_columns.end(),
                        [&](const MUColumnNamePlusProperties* column) {
                          return trim ? LeftTrimmed(column->m_columnName) == trimmed
                                      : column->m_columnName == wanted;
                        });
  };
  const auto place = find(moved);
  if (place == m_columns.end()) return;
  MUColumnNamePlusProperties* column = *place;
  m_columns.erase(place);
  m_columns.insert(find(beforeWhich), column);
  NotifyMyObservers();
}

void MUExperimentTextReaderMultiFile::GetOuterLimitsOfPreservedRange(int* row, int* column) const {
  *row = m_shownRowCount == 0 ? -1
                              : LastEqualPlace(*m_currentShownRowKeys, *m_previousShownRowKeys,
                                               m_loadOrder.CommonKeyCount());
  *column =
      m_shownColumnCount == 0 ? -1 : LastEqualPlace(*m_currentColumnNames, *m_previousColumnNames);
}

bool MUExperimentTextReaderMultiFile::DeleteAllRows_WhereField_Y_Matches_Z(const wxString& fieldY,
                                                                           const wxString& valueZ) {
  m_scratchFileNames.assign(1, valueZ);
  return DeleteAllRows_WhereField_Y_Matches_AnythingFromCollection_Z(fieldY, m_scratchFileNames,
                                                                     true);
}

bool MUExperimentTextReaderMultiFile::DeleteAllRows_WhereField_Y_Matches_AnythingFromCollection_Z(
    const wxString& fieldY, const std::deque<wxString>& valuesZ, bool notify) {
  const std::unordered_set<wxString, wxStringHash> values(valuesZ.begin(), valuesZ.end());
  // The rows of one file often have the same text in one column, its name above all.
  wxString lastText;
  bool lastMatches = values.count(lastText) != 0;
  std::vector<MUSingleRowDataPlusRowProperties*> doomed;
  MUColumnReader cells(fieldY);
  for (const auto& entry : m_rows) {
    const MUCellText text = cells.TextOf(*entry.second);
    if (!text.Equals(lastText)) {
      lastText = text.ToString();
      lastMatches = values.count(lastText) != 0;
    }
    if (!lastMatches) continue;
    m_rows.erase(entry.first);
    doomed.push_back(entry.second);
  }
  // Not before the end of the walk: the reader of the column looks at the last row's file.
  for (const MUSingleRowDataPlusRowProperties* row : doomed) delete row;
  if (!doomed.empty()) m_loadOrder.Forget();
  if (notify) NotifyMyObservers();
  return true;
}
