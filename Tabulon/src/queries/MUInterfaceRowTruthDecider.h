// A predicate over rows that the caller of a search supplies.
#ifndef OMBRELIA_TABULON_SRC_QUERIES_MUINTERFACEROWTRUTHDECIDER_H
#define OMBRELIA_TABULON_SRC_QUERIES_MUINTERFACEROWTRUTHDECIDER_H

#include <wx/string.h>

struct MUSingleRowDataPlusRowProperties;

class MUInterfaceRowTruthDecider {
 public:
  // 1 for a row that matches; any other value is no match. The row stays the table's.
  virtual int DecideRow(MUSingleRowDataPlusRowProperties* row) = 0;
  virtual ~MUInterfaceRowTruthDecider() = default;
  // False makes every search run anew: for a decider whose answer may change between two calls.
  virtual bool ResultMayBeCached() = 0;
  // Must differ between deciders that decide differently: two of equal identity share one result.
  virtual wxString GetIdentityString() = 0;
};

#endif
