// The order of rows under a sort column.
#ifndef OMBRELIA_TABULON_SRC_SORTING_MUROWSORT_H
#define OMBRELIA_TABULON_SRC_SORTING_MUROWSORT_H

#include <wx/string.h>

#include <cstddef>
#include <optional>

#include "Tabulon/src/sorting/MUKeyedSort.h"

class MUColumnDictionary;
class MURowStore;

// Effect: each answers the places of the rows, from 0, in the order of a column. Rows that compare equal keep
// their order, also when descending.
// Cost: texts are read once per row; time grows with the bits in which they differ. By a dictionary, the work
// is one pass over the rows' numbers.
// Lifetime: rows and keys are borrowed for the call; the places, which count the keys, are the caller's.
// Threads: one at a time for the rows of a file, because reading a row's own entries writes to it.
// Failure: there must be fewer than 2 to the power 32 keys, ascending and each with a row. A column that no row
// has, or numbers that are none, still give every place once.

// By text. The order is that of these stable passes, with the functors of MUSortFunctors.h:
//   1. the rows whose text fits its sort keys are put first (descending: last);
//   2. the other rows are sorted by their full text; if no row fits, the order is complete;
//   3. all rows are sorted by the third, then by the second, then by the first sort key.
// It is reached here with fewer steps.
MUScratchArray<MUPlace> SortedPlaces(const MURowStore& rows, const unsigned long* keys,
                                     std::size_t count, const wxString& column, bool descending);

// The same for rows whose texts stand in a dictionary; by far faster where there are few different ones.
// No value if the dictionary does not know all that decides; then sort by the rows.
std::optional<MUScratchArray<MUPlace>> SortedPlaces(const MUColumnDictionary& dictionary,
                                                    const unsigned long* keys, std::size_t count,
                                                    bool descending);

// By the rows' reaction times, which are numbers.
MUScratchArray<MUPlace> SortedPlacesByReactionTime(const MURowStore& rows,
                                                   const unsigned long* keys, std::size_t count,
                                                   bool descending);

#endif
