// The order of rows under a sort column.
#ifndef OMBRELIA_TABULON_SRC_SORTING_MUROWSORT_H
#define OMBRELIA_TABULON_SRC_SORTING_MUROWSORT_H

#include <wx/string.h>

#include <cstddef>
#include <optional>

#include "Tabulon/src/sorting/MUKeyedSort.h"

class MUColumnDictionary;
struct MUSingleRowDataPlusRowProperties;

// The places of the rows, from 0, in the order of a column's texts. Stable: rows that compare equal keep
// their order, also when descending. There must be fewer than 2 to the power 32 rows.
//
// The order of texts is that of these passes, each of them stable, from first to last, with the functors
// of MUSortFunctors.h: the rows whose text fits its sort keys are put first (descending: last); the others
// are sorted by their full text, and if none fits, that is all; then all are sorted by the third, the
// second and the first sort key. It is made here with fewer steps.
MUScratchArray<MUPlace> SortedPlaces(const MUSingleRowDataPlusRowProperties* const* rows,
                                     std::size_t count, const wxString& column, bool descending);

// The same for rows whose texts stand in a dictionary; by far faster where there are few different ones.
// keys: the rows' keys, each with a row in the dictionary. None if the dictionary does not know all that
// decides; the first way does.
std::optional<MUScratchArray<MUPlace>> SortedPlaces(const MUColumnDictionary& dictionary,
                                                    const unsigned long* keys, std::size_t count,
                                                    bool descending);

// The same in the order of the rows' reaction times, which are numbers.
MUScratchArray<MUPlace> SortedPlacesByReactionTime(
    const MUSingleRowDataPlusRowProperties* const* rows, std::size_t count, bool descending);

#endif
