// Merging the column order of one more file into that of the table.
#ifndef OMBRELIA_TABULON_SRC_TABLE_MUCOLUMNMERGE_H
#define OMBRELIA_TABULON_SRC_TABLE_MUCOLUMNMERGE_H

#include <wx/string.h>

#include <deque>

struct MUColumnNamePlusProperties;

// Effect: takes over every object in arrivals, which is empty afterwards. A name that the table has adds the
// file to that column and frees the arrival. A new column follows its predecessor in the file, or comes first
// if it has none. Without insertInPlace it comes last. A new column with an empty name is freed.
// Cost: the number of columns times that of arrivals, in comparisons of names.
// Lifetime: both lists own their columns.
// Threads: one at a time.
// Failure: a name that comes twice in a file adds the file twice, or the column twice; nothing is refused.
void MergeColumnOrders(std::deque<MUColumnNamePlusProperties*>& columns,
                       std::deque<MUColumnNamePlusProperties*>& arrivals, const wxString& fileName,
                       bool insertInPlace);

#endif
