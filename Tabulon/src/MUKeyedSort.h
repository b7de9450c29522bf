// A stable sort of places by 64-bit keys.
#ifndef TABULON_SRC_MUKEYEDSORT_H
#define TABULON_SRC_MUKEYEDSORT_H

#include <cstdint>
#include <vector>

struct MUKeyedPlace {
  std::uint64_t key;
  std::uint32_t place;
};

using MUKeyedPlaces = std::vector<MUKeyedPlace>;

// Ascending by key; equal keys keep their order. Linear in the number of places: bytes in which all keys
// agree cost nothing beyond one look. scratch is overwritten; kept by the caller, it need not grow again.
void StableSortByKey(MUKeyedPlaces::iterator begin, MUKeyedPlaces::iterator end,
                     MUKeyedPlaces& scratch);

// A key that orders as the numbers do. -0.0 is 0.0; not-a-number has a place of its own, at an end.
std::uint64_t KeyOfNumber(double number);

#endif
