#ifndef OMBRELIA_TABULON_SRC_TABLE_TRISTATETRUEFALSEUNKNOWN_H
#define OMBRELIA_TABULON_SRC_TABLE_TRISTATETRUEFALSEUNKNOWN_H

// What the search for empty columns has found out about one column: whether it has text.
enum TRI_STATE_TRUE_FALSE_UNKNOWN {
  TRI_STATE_FALSE = 0,
  TRI_STATE_TRUE = 1,
  TRI_STATE_UNKNOWN = 2
};

#endif
