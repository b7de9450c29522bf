// A stable sort of places by keys of at most 63 bits, and what makes long keys that short.
#ifndef OMBRELIA_TABULON_SRC_SORTING_MUKEYEDSORT_H
#define OMBRELIA_TABULON_SRC_SORTING_MUKEYEDSORT_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "Tabulon/src/memory/MUScratchArray.h"

// Places that are sorted count from 0; there are fewer than 2 to the power 32.
using MUPlace = std::uint32_t;

// Effect: keeps the first 63 of those bits in which the keys of a set differ: short keys that order as the
// long ones do. In most columns the texts are much alike, and few bits are left to sort by.
// Cost: two operations per word to examine a key; one step per run of neighbouring bits to pack it.
// Lifetime: it keeps no key.
// Threads: one at a time; after Finish any number may pack.
// Failure: where more bits differ, IsComplete is false and different keys may be packed alike.
// WORDS: words of a key, the most significant one first.
template <std::size_t WORDS>
class MUKeyPacking {
 public:
  using Key = std::array<std::uint64_t, WORDS>;

  // Examine all keys, then call Finish, then Pack any of them.
  void Examine(const Key& key) {
    for (std::size_t word = 0; word < WORDS; ++word) {
      m_anySet[word] |= key[word];
      m_allSet[word] &= key[word];
    }
  }
  void Finish();
  // Number of bits of a packed key.
  unsigned Bits() const { return m_bits; }
  // Whether different keys give different packed keys.
  bool IsComplete() const { return m_complete; }
  std::uint64_t Pack(const Key& key) const {
    std::uint64_t packed = 0;
    for (const Run& run : m_runs) {
      packed = packed << run.length | (key[run.word] >> run.lowestBit & run.mask);
    }
    return packed;
  }

 private:
  // Neighbouring bits of one word.
  struct Run {
    std::size_t word;
    unsigned lowestBit;
    unsigned length;
    std::uint64_t mask;
  };

  static constexpr unsigned MOST_BITS = 63;  // so that a packed key can be shifted by its length

  Key m_anySet{};
  Key m_allSet = AllOnes();
  std::vector<Run> m_runs;
  unsigned m_bits = 0;
  bool m_complete = true;

  static Key AllOnes() {
    Key key{};
    for (std::uint64_t& word : key) word = ~std::uint64_t{0};
    return key;
  }
};

extern template class MUKeyPacking<1>;
extern template class MUKeyPacking<3>;

// Effect: orders places by their keys. Equal keys keep the order in which they were added.
// Cost: time grows with the number of places times the digits of the keys, a digit having up to 11 bits; few
// places are compared. Takes twice 8 bytes per place, or twice 16 for keys of more than 32 bits.
// Lifetime: out is written and not kept.
// Threads: one at a time.
// Failure: more places than count, or a key of more bits, is not checked and must not be passed.
class MUKeyedSort {
 public:
  // count: how many places will be added at most. bits: of the keys, at most 63. descending: greater keys
  // first.
  MUKeyedSort(std::size_t count, unsigned bits, bool descending);
  void Add(std::uint64_t key, MUPlace place) {
    key ^= m_flip;
    if (IsNarrow()) {
      m_narrow[m_count++] = key << NARROW_BITS | place;
    } else {
      m_wide[m_count++] = {key, place};
    }
  }
  // Writes as many places as were added.
  void WriteSorted(MUPlace* out) {
    WriteSorted(out, [](MUPlace*, MUPlace*) {});
  }
  // Then calls onEqual(begin, end) for every run of two or more written places with the same key; it may put
  // them into another order.
  template <typename ON_EQUAL>
  void WriteSorted(MUPlace* out, ON_EQUAL onEqual) {
    Sort();
    std::size_t first = 0;
    for (std::size_t i = 0; i < m_count; ++i) out[i] = PlaceAt(i);
    for (std::size_t i = 1; i <= m_count; ++i) {
      if (i < m_count && KeyAt(i) == KeyAt(first)) continue;
      if (i - first > 1) onEqual(out + first, out + i);
      first = i;
    }
  }

 private:
  // A key of few bits stands above its place in one word.
  static constexpr unsigned NARROW_BITS = 32;
  struct Entry {
    std::uint64_t key;
    MUPlace place;
  };

  void Sort();
  bool IsNarrow() const { return m_bits <= NARROW_BITS; }
  std::uint64_t KeyAt(std::size_t index) const {
    return IsNarrow() ? m_narrow[index] >> NARROW_BITS : m_wide[index].key;
  }
  MUPlace PlaceAt(std::size_t index) const {
    return IsNarrow() ? static_cast<MUPlace>(m_narrow[index]) : m_wide[index].place;
  }

  unsigned m_bits;
  std::uint64_t m_flip;
  std::size_t m_count = 0;
  MUScratchArray<std::uint64_t> m_narrow;
  MUScratchArray<Entry> m_wide;
};

// A key that orders as the numbers do. -0.0 is 0.0; not-a-number has its own place, at an end.
std::uint64_t KeyOfNumber(double number);

#endif
