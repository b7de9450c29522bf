// A set of row keys.
#ifndef OMBRELIA_TABULON_SRC_QUERIES_MUROWKEYSET_H
#define OMBRELIA_TABULON_SRC_QUERIES_MUROWKEYSET_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "Tabulon/src/machine/MUMachine.h"

// Effect: holds keys, and tells the place of each in their ascending order.
// Cost: two bits per possible key, so that questions in any order stay in the cache.
// Lifetime: it keeps the keys and nothing of the rows.
// Threads: one at a time while keys are added, then any number.
// Failure: only memory can run out.
class MURowKeySet {
 public:
  // keyLimit: above every key that will be added.
  explicit MURowKeySet(unsigned long keyLimit)
      : m_bits(keyLimit / WORD_BITS + 1), m_ranks(m_bits.size()) {}

  void Add(unsigned long key) { m_bits[key / WORD_BITS] |= BitOf(key); }
  // Call it when all keys have been added, before any RankOf. Answers how many there are.
  std::size_t CountRanks() {
    std::size_t count = 0;
    for (std::size_t word = 0; word < m_bits.size(); ++word) {
      m_ranks[word] = static_cast<std::uint32_t>(count);
      count += MUCountBits(m_bits[word]);
    }
    return count;
  }

  bool Holds(unsigned long key) const {
    return key / WORD_BITS < m_bits.size() && (m_bits[key / WORD_BITS] & BitOf(key)) != 0;
  }
  // How many lesser keys the set has. key: one of the set.
  std::size_t RankOf(unsigned long key) const {
    return m_ranks[key / WORD_BITS] + MUCountBits(m_bits[key / WORD_BITS] & (BitOf(key) - 1));
  }
  // Calls action(key) for every key, ascending.
  template <typename ACTION>
  void ForEach(ACTION action) const {
    for (std::size_t word = 0; word < m_bits.size(); ++word) {
      for (std::uint64_t bits = m_bits[word]; bits != 0; bits &= bits - 1) {
        action(word * WORD_BITS + MULowestBit(bits));
      }
    }
  }

 private:
  static constexpr unsigned long WORD_BITS = 64;

  static std::uint64_t BitOf(unsigned long key) { return std::uint64_t{1} << key % WORD_BITS; }

  std::vector<std::uint64_t> m_bits;
  std::vector<std::uint32_t> m_ranks;  // of each word's first key
};

#endif
