// The order of rows under a sort column.
#ifndef TABULON_SRC_MUROWSORT_H
#define TABULON_SRC_MUROWSORT_H

#include <wx/string.h>

#include <deque>

struct MUSingleRowDataPlusRowProperties;

using MURowIterator = std::deque<MUSingleRowDataPlusRowProperties*>::iterator;

// Sorts the rows by a column, stably: rows that are equal in all respects keep the order in which they
// come, also when descending. The reaction-time column sorts as a number, every other one as text.
void SortRows(MURowIterator begin, MURowIterator end, const wxString& column, bool reverse);

// The same order for a text column, made by the passes that define it: a partition, a comparison of the
// long texts and three passes over the sort keys. Slower, and it asks nothing of the rows but their maps.
void SortRowsByPasses(MURowIterator begin, MURowIterator end, const wxString& column, bool reverse);

#endif
