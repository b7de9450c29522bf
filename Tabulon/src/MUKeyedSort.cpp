#include "Tabulon/src/MUKeyedSort.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr std::size_t BYTES = sizeof(std::uint64_t);
// Below this size a comparison sort is as fast as counting.
constexpr std::ptrdiff_t FEW_PLACES = 256;

using Counts = std::array<std::array<std::uint32_t, 256>, BYTES>;

std::size_t ByteOf(std::uint64_t key, std::size_t byte) { return key >> (8 * byte) & 0xFF; }

}  // namespace

void StableSortByKey(MUKeyedPlaces::iterator begin, MUKeyedPlaces::iterator end,
                     MUKeyedPlaces& scratch) {
  if (end - begin < FEW_PLACES) {
    std::stable_sort(begin, end,
                     [](const MUKeyedPlace& a, const MUKeyedPlace& b) { return a.key < b.key; });
    return;
  }
  const auto count = static_cast<std::size_t>(end - begin);
  Counts counts{};
  for (auto entry = begin; entry != end; ++entry) {
    for (std::size_t byte = 0; byte < BYTES; ++byte) ++counts[byte][ByteOf(entry->key, byte)];
  }
  if (scratch.size() < count) scratch.resize(count);

  // From the least significant byte to the most: each pass keeps the order that the one before it made.
  auto from = begin;
  auto to = scratch.begin();
  for (std::size_t byte = 0; byte < BYTES; ++byte) {
    auto& places = counts[byte];
    if (places[ByteOf(begin->key, byte)] == count) continue;
    std::uint32_t next = 0;
    for (std::uint32_t& place : places) {
      const std::uint32_t size = place;
      place = next;
      next += size;
    }
    for (std::size_t i = 0; i < count; ++i) {
      const MUKeyedPlace& entry = from[static_cast<std::ptrdiff_t>(i)];
      to[places[ByteOf(entry.key, byte)]++] = entry;
    }
    std::swap(from, to);
  }
  if (from != begin) std::copy(from, from + static_cast<std::ptrdiff_t>(count), begin);
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
