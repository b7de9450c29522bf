#include "Tabulon/src/sorting/MUKeyedSort.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

// Below this size a comparison sort is as fast as counting.
constexpr std::size_t FEW_PLACES = 256;
// The counters of a digit of this length fit the fastest memory.
constexpr unsigned MOST_DIGIT_BITS = 11;

// Sorts by the key's digits, from the least significant to the most: each pass keeps the order that the one
// before it made. keyOf(entry) must be below 2 to the power bits.
template <typename ENTRY, typename KEY_OF>
void SortByDigits(MUScratchArray<ENTRY>& entries, std::size_t count, unsigned bits, KEY_OF keyOf) {
  const unsigned passes = (bits + MOST_DIGIT_BITS - 1) / MOST_DIGIT_BITS;
  const unsigned digitBits = passes == 0 ? 0 : (bits + passes - 1) / passes;
  const std::size_t digits = std::size_t{1} << digitBits;
  const auto digitOf = [=](const ENTRY& entry, unsigned pass) {
    return static_cast<std::size_t>(keyOf(entry) >> (pass * digitBits)) & (digits - 1);
  };

  std::vector<std::uint32_t> counts(passes * digits);
  for (std::size_t i = 0; i < count; ++i) {
    for (unsigned pass = 0; pass < passes; ++pass) {
      ++counts[pass * digits + digitOf(entries[i], pass)];
    }
  }
  MUScratchArray<ENTRY> sorted(count);
  for (unsigned pass = 0; pass < passes; ++pass) {
    std::uint32_t* const places = &counts[pass * digits];
    if (places[digitOf(entries[0], pass)] == count) continue;
    std::uint32_t next = 0;
    for (std::size_t digit = 0; digit < digits; ++digit) {
      next += std::exchange(places[digit], next);
    }
    for (std::size_t i = 0; i < count; ++i) {
      sorted[places[digitOf(entries[i], pass)]++] = entries[i];
    }
    std::swap(entries, sorted);
  }
}

}  // namespace

template <std::size_t WORDS>
void MUKeyPacking<WORDS>::Finish() {
  m_runs.clear();
  m_bits = 0;
  m_complete = true;
  for (std::size_t word = 0; word < WORDS; ++word) {
    const std::uint64_t differing = m_anySet[word] & ~m_allSet[word] & m_anyUnlikeNext[word];
    for (int bit = 63; bit >= 0; --bit) {
      if ((differing >> bit & 1) == 0) continue;
      if (m_bits == MOST_BITS) {
        m_complete = false;
        return;
      }
      ++m_bits;
      const auto lowestBit = static_cast<unsigned>(bit);
      const bool continues =
          !m_runs.empty() && m_runs.back().word == word && m_runs.back().lowestBit == lowestBit + 1;
      if (!continues) m_runs.push_back({word, lowestBit, 0, 0});
      Run& run = m_runs.back();
      run.lowestBit = lowestBit;
      ++run.length;
      run.mask = run.mask << 1 | 1;
    }
  }
}

template class MUKeyPacking<1>;
template class MUKeyPacking<3>;

MUKeyedSort::MUKeyedSort(std::size_t count, unsigned bits, bool descending)
    : m_bits(bits),
      // Turned over key by key and not sorted and then reversed: ties must keep their order.
      m_flip(descending ? (std::uint64_t{1} << bits) - 1 : 0),
      m_narrow(bits <= NARROW_BITS ? count : 0),
      m_wide(bits <= NARROW_BITS ? 0 : count) {}

void MUKeyedSort::Sort() {
  if (m_count == 0) return;
  const auto narrowKey = [](std::uint64_t entry) { return entry >> NARROW_BITS; };
  const auto wideKey = [](const Entry& entry) { return entry.key; };
  if (m_count >= FEW_PLACES) {
    if (IsNarrow()) {
      SortByDigits(m_narrow, m_count, m_bits, narrowKey);
    } else {
      SortByDigits(m_wide, m_count, m_bits, wideKey);
    }
  } else if (IsNarrow()) {
    std::stable_sort(m_narrow.begin(), m_narrow.begin() + m_count,
                     [&](auto a, auto b) { return narrowKey(a) < narrowKey(b); });
  } else {
    std::stable_sort(m_wide.begin(), m_wide.begin() + m_count,
                     [&](const auto& a, const auto& b) { return wideKey(a) < wideKey(b); });
  }
}

std::uint64_t KeyOfNumber(double number) {
  constexpr std::uint64_t SIGN = std::uint64_t{1} << 63;
  if (number == 0.0) number = 0.0;
  std::uint64_t bits = 0;
  static_assert(sizeof bits == sizeof number, "a double has 64 bits");
  std::memcpy(&bits, &number, sizeof bits);
  // Negative numbers order backwards by their bits, and below all others.
  return (bits & SIGN) != 0 ? ~bits : bits | SIGN;
}
