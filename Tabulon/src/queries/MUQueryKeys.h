// The keys under which the answers to queries are cached, one function for each kind of query.
//
// Effect: the same question gives the same key; different questions give different keys, but for the two
// cases that are named below. Cost: the texts are copied and joined. Lifetime: the key is the caller's.
// Threads: any. Failure: none; the arguments need not name anything that exists.
#ifndef OMBRELIA_TABULON_SRC_QUERIES_MUQUERYKEYS_H
#define OMBRELIA_TABULON_SRC_QUERIES_MUQUERYKEYS_H

#include <deque>

#include "Tabulon/src/queries/MUCachingKeySelectedData.h"
#include "Tabulon/src/queries/MUQueryWords.h"

namespace MUQueryKeys {

using RowSet = MUQueryWords::TARGETED_ROW_SEARCH_SET;

MUCachingKeySelectedData RowsByFlag(unsigned flags, RowSet set);
MUCachingKeySelectedData RowsByAbsentFlag(unsigned flags, RowSet set);
MUCachingKeySelectedData RowsByFlagAndAbsentFlag(unsigned x, unsigned y);
MUCachingKeySelectedData RowsByPredicate(const wxString& identity, RowSet set, unsigned first,
                                         unsigned last);

MUCachingKeySelectedData ColumnNamesByFlag(unsigned flags);
MUCachingKeySelectedData ColumnNamesByAbsentFlag(unsigned flags);
MUCachingKeySelectedData ColumnNamesByFlagAndAbsentFlag(unsigned x, unsigned y);

// The next two fill one cache: where all three parts happen to be equal, they share an entry.
MUCachingKeySelectedData DistinctValues(const wxString& column, RowSet set, bool trim);
MUCachingKeySelectedData OneColumnWhere(const wxString& columnX, const wxString& fieldY,
                                        const wxString& valueZ, bool includeAllRows);

// The same columns in another order give the same key, and so does any field when every row matches.
MUCachingKeySelectedData SeveralColumnsWhere(const std::deque<wxString>& columnsX,
                                             const wxString& fieldY, const wxString& valueZ,
                                             bool includeAllRows);

}  // namespace MUQueryKeys

#endif
