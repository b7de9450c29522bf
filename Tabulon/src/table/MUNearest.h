// Counts as the smaller integers that operations are to answer.
//
// Cost: an instruction. Lifetime: nothing is kept. Threads: any number. Failure: none.
#ifndef OMBRELIA_TABULON_SRC_TABLE_MUNEAREST_H
#define OMBRELIA_TABULON_SRC_TABLE_MUNEAREST_H

#include <limits>

// The count, or the greatest INTEGER if the count lies beyond that.
template <typename INTEGER>
constexpr INTEGER MUNearest(unsigned long count) {
  constexpr unsigned long greatest = std::numeric_limits<INTEGER>::max();
  return static_cast<INTEGER>(count < greatest ? count : greatest);
}

#endif
