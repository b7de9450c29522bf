// How the state of files decides about the flags of columns and rows. File names are full paths, compared
// exactly.
//
// Cost: one step per share of a column, or per request; a hash of a name where one has to be found.
// Lifetime: nothing is kept; only FirstRequestFor lends what it was given. Threads: one at a time for a column.
// Failure: a name that nothing has is without effect.
#ifndef OMBRELIA_TABULON_SRC_TABLE_MUFILEFLAGS_H
#define OMBRELIA_TABULON_SRC_TABLE_MUFILEFLAGS_H

#include <wx/hashmap.h>
#include <wx/string.h>

#include <deque>
#include <unordered_map>
#include <unordered_set>

#include "Tabulon/src/table/DichotomousFileRequest.h"

struct MUColumnNamePlusProperties;

using MUFileNames = std::unordered_set<wxString, wxStringHash>;
using MUFileDecisions = std::unordered_map<wxString, bool, wxStringHash>;

// Makes the columns' shares of the named files live again. A column that then has a live share is no longer
// suppressed; one without any file is left alone.
void UnsuppressColumnsForFiles(const std::deque<MUColumnNamePlusProperties*>& columns,
                               const MUFileNames& fullNames);
// The second half of that alone, where no share has to become live.
void ShowColumnsWithALiveShare(const std::deque<MUColumnNamePlusProperties*>& columns);
// The names of all files of which a column has a suppressed share.
MUFileNames FilesWithASuppressedShare(const std::deque<MUColumnNamePlusProperties*>& columns);
// Suppresses one column's shares of the named files. A column without a live share, or without any file, is
// then suppressed.
void SuppressColumnForFiles(MUColumnNamePlusProperties& column, const MUFileNames& fullNames);

// What each named file is wanted to be: the last of two requests for one file decides.
MUFileDecisions LastDecisions(const std::deque<DichotomousFileRequest>& requests);
// The column is suppressed if all of its files are, or if it has none, and only then.
void HideOrShowBasedOnMultipleFileRequests(MUColumnNamePlusProperties& column,
                                           const MUFileDecisions& decisions);

// The first request for the file, which decides for rows, unlike for columns. Borrowed; null if there is none.
const DichotomousFileRequest* FirstRequestFor(const wxString& fullName,
                                              const std::deque<DichotomousFileRequest>& requests);
// The flags that a row with these flags has after that request. request: may be null.
unsigned ApplyEnMasseShowOrHideUsingDichotomousFileRequest(unsigned rowFlags,
                                                           const DichotomousFileRequest* request);

#endif
