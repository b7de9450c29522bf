// A predicate over rows that the caller of a search supplies.
#ifndef OMBRELIA_TABULON_SRC_QUERIES_MUINTERFACEROWTRUTHDECIDER_H
#define OMBRELIA_TABULON_SRC_QUERIES_MUINTERFACEROWTRUTHDECIDER_H

#include <wx/string.h>

struct MUSingleRowDataPlusRowProperties;

// Effect: says which rows a search finds. It may search, sort, notify or change flags by itself; the search
// still visits the rows that were there at its start, without those that were deleted meanwhile.
// Cost: called once for every row of a search whose answer is not cached. A call that changed the row's flags, key,
// places or reaction time, or inserted or erased rows, makes the table's next notification a full one. A written cell
// alone does not.
// Lifetime: the table borrows the decider for the search, and the decider the row for the call: it must neither
// write to it later nor keep what it borrowed from the row's maps.
// Threads: called on the thread that searches.
// Failure: an exception ends the search and passes through it; nothing is cached.
class MUInterfaceRowTruthDecider {
 public:
  // 1 for a row that matches; any other value is no match. row: never null; it stays the table's.
  virtual int DecideRow(MUSingleRowDataPlusRowProperties* row) = 0;
  virtual ~MUInterfaceRowTruthDecider() = default;
  // False makes every search run anew: for a decider whose answer may change between two calls.
  virtual bool ResultMayBeCached() = 0;
  // Must differ between deciders that decide differently: two of equal identity share one result.
  virtual wxString GetIdentityString() = 0;
};

#endif
