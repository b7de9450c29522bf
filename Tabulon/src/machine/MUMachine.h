// What depends on the compiler and the machine. OMBRELIA_PORTABLE leaves all but symbols to the language.
//
// Cost: an instruction or two per function; without builtins, a step per bit or byte. Lifetime: nothing is kept.
// Threads: any number. Failure: none.
#ifndef OMBRELIA_TABULON_SRC_MACHINE_MUMACHINE_H
#define OMBRELIA_TABULON_SRC_MACHINE_MUMACHINE_H

#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__GNUC__) && !defined(OMBRELIA_PORTABLE)  // clang defines it, too
#define MU_HAS_BUILTINS 1
#else
#define MU_HAS_BUILTINS 0
#endif

// Puts before a declaration that the library shows the symbol although all others are hidden.
#if defined(__GNUC__)
#define MU_EXPORTED __attribute__((visibility("default")))
#else
#define MU_EXPORTED
#endif

// 1 if a source may include <emmintrin.h> and work on sixteen bytes at once. Headers never do.
#if defined(__SSE2__) && defined(__x86_64__) && !defined(OMBRELIA_PORTABLE)
#define MU_HAS_SSE2 1
#else
#define MU_HAS_SSE2 0
#endif

// 1 in a build that watches every piece of memory.
#define MU_HAS_ADDRESS_SANITIZER 0
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#undef MU_HAS_ADDRESS_SANITIZER
#define MU_HAS_ADDRESS_SANITIZER 1
#endif
#elif defined(__SANITIZE_ADDRESS__)
#undef MU_HAS_ADDRESS_SANITIZER
#define MU_HAS_ADDRESS_SANITIZER 1
#endif

// Before the definition of a variable: the build ends unless it has its value before any initialiser runs.
#if defined(__clang__)
#define MU_CONSTANT_INITIALIZED __attribute__((require_constant_initialization))
#elif defined(__GNUC__)
#define MU_CONSTANT_INITIALIZED __constinit
#else
#define MU_CONSTANT_INITIALIZED
#endif

// Calls the memory at an address up into the cache; any address will do, since nothing is read.
inline void MUPrefetch(const void* address) {
#if MU_HAS_BUILTINS
  __builtin_prefetch(address);
#else
  static_cast<void>(address);
#endif
}

// The place of the lowest set bit, counted from 0. At least one bit must be set.
inline unsigned MULowestBit(std::uint64_t bits) {
#if MU_HAS_BUILTINS
  return static_cast<unsigned>(__builtin_ctzll(bits));
#else
  unsigned place = 0;
  for (; (bits & 1) == 0; bits >>= 1) ++place;
  return place;
#endif
}

// How many bits are set.
inline unsigned MUCountBits(std::uint64_t bits) {
#if MU_HAS_BUILTINS
  return static_cast<unsigned>(__builtin_popcountll(bits));
#else
  unsigned count = 0;
  for (; bits != 0; bits &= bits - 1) ++count;
  return count;
#endif
}

// The number that the bytes make with the first one as the most significant. The bytes need no alignment.
template <typename WORD>
WORD MULoadFirstByteHighest(const unsigned char* bytes) {
  static_assert(sizeof(WORD) == 4 || sizeof(WORD) == 8);
#if MU_HAS_BUILTINS
  WORD word = 0;
  std::memcpy(&word, bytes, sizeof word);
#if __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
  if constexpr (sizeof(WORD) == 8)
    word = __builtin_bswap64(word);
  else
    word = __builtin_bswap32(word);
#endif
  return word;
#else
  WORD word = 0;
  for (std::size_t i = 0; i < sizeof word; ++i) word = word << 8 | bytes[i];
  return word;
#endif
}

#endif
