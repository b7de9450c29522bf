// The three tests that searches by property flags make.
#ifndef TABULON_SRC_MUFLAGTESTS_H
#define TABULON_SRC_MUFLAGTESTS_H

constexpr bool HasAllFlags(unsigned flags, unsigned wanted) { return (flags & wanted) == wanted; }
constexpr bool HasNoFlag(unsigned flags, unsigned unwanted) { return (flags & unwanted) == 0; }
constexpr bool HasAllFlagsAndNone(unsigned flags, unsigned wanted, unsigned unwanted) {
  return HasNoFlag(flags, unwanted) && HasAllFlags(flags, wanted);
}

#endif
