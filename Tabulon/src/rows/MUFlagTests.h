// The three tests that searches by property flags make. A mask of no bits asks for nothing.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUFLAGTESTS_H
#define OMBRELIA_TABULON_SRC_ROWS_MUFLAGTESTS_H

constexpr bool HasAllFlags(unsigned flags, unsigned wanted) { return (flags & wanted) == wanted; }
constexpr bool HasNoFlag(unsigned flags, unsigned unwanted) { return (flags & unwanted) == 0; }
constexpr bool HasAllFlagsAndNone(unsigned flags, unsigned wanted, unsigned unwanted) {
  return HasNoFlag(flags, unwanted) && HasAllFlags(flags, wanted);
}

#endif
