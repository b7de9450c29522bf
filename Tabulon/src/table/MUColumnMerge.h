// Merging the column order of one more file into that of the table.
#ifndef OMBRELIA_TABULON_SRC_TABLE_MUCOLUMNMERGE_H
#define OMBRELIA_TABULON_SRC_TABLE_MUCOLUMNMERGE_H

#include <wx/string.h>

#include <deque>

struct MUColumnNamePlusProperties;

// Takes over every object in arrivals, which is empty afterwards. A name that the table has adds the file
// to that column and frees the arrival. A new name goes behind the column that precedes it in the file, or
// to the very front if none does; without insertInPlace it goes to the end. A new column with an empty
// name vanishes.
void MergeColumnOrders(std::deque<MUColumnNamePlusProperties*>& columns,
                       std::deque<MUColumnNamePlusProperties*>& arrivals, const wxString& fileName,
                       bool insertInPlace);

#endif
