// What the state of files makes of the flags of columns and rows. File names are full paths, compared
// exactly.
#ifndef TABULON_SRC_MUFILEFLAGS_H
#define TABULON_SRC_MUFILEFLAGS_H

#include <wx/string.h>

#include <deque>

#include "Tabulon/src/DichotomousFileRequest.h"

struct MUColumnNamePlusProperties;

// The column's share of the named files is live again. A column that then has a live share is no longer
// suppressed; one without any file is left alone.
void UnsuppressColumnForFiles(MUColumnNamePlusProperties& column, const std::deque<wxString>& fullNames);
// The opposite; a column without any file counts as suppressed.
void SuppressColumnForFiles(MUColumnNamePlusProperties& column, const std::deque<wxString>& fullNames);
// Of two requests for one file the last decides. The column is suppressed if all of its files are, or if
// it has none, and only then.
void HideOrShowBasedOnMultipleFileRequests(MUColumnNamePlusProperties& column,
                                           const std::deque<DichotomousFileRequest>& requests);
// The row flags that a row of that file has after the requests, the first of which for its file decides.
unsigned ApplyEnMasseShowOrHideUsingDichotomousFileRequest(
    unsigned rowFlags, const wxString& fullNameOfRow, const std::deque<DichotomousFileRequest>& requests);

#endif
