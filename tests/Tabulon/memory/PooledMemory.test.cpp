// Pieces of memory side by side, and their way back to the system.
#include <gtest/gtest.h>

#if defined(__linux__)
#include <malloc.h>
#endif

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <thread>
#include <vector>

#include "Tabulon/src/machine/MUMachine.h"
#include "Tabulon/src/memory/MUPooledMemory.h"
#include "Tabulon/src/memory/MUScratchArray.h"

namespace {

constexpr std::size_t MEBIBYTE = std::size_t{1} << 20;

// The bytes that this process has taken from the heap or in mappings of the heap's, and not given back; 0 where
// that cannot be had.
std::size_t BytesInUse() {
#if defined(__GLIBC__)
  const struct mallinfo2 heap = ::mallinfo2();
  return heap.uordblks + heap.hblkhd;
#else
  return 0;
#endif
}

// One chunk is kept for the next time. A mapping may be twice as long, for its alignment.
constexpr std::size_t MOST_KEPT = 12 * MEBIBYTE;

using Pieces = std::vector<void*>;

Pieces Take(std::size_t count, std::size_t bytes) {
  Pieces pieces;
  for (std::size_t i = 0; i < count; ++i) pieces.push_back(MUAllocatePooled(bytes));
  return pieces;
}

void Free(const Pieces& pieces, std::size_t bytes) {
  for (void* piece : pieces) MUFreePooled(piece, bytes);
}

class MemoryInUse : public testing::Test {
 protected:
  void SetUp() override {
    if (MU_HAS_ADDRESS_SANITIZER) GTEST_SKIP() << "the sanitizer has a heap of its own";
    if (BytesInUse() == 0) GTEST_SKIP() << "no telling here";
  }
};

TEST_F(MemoryInUse, IsGivenBackWithTheLastPiece) {
  for (const std::size_t bytes :
       {std::size_t{48}, std::size_t{1000}, std::size_t{20000}, MEBIBYTE, 5 * MEBIBYTE}) {
    const std::size_t before = BytesInUse();
    for (int round = 0; round < 3; ++round) {
      Pieces pieces = Take(64 * MEBIBYTE / bytes, bytes);
      EXPECT_GT(BytesInUse(), before + 48 * MEBIBYTE) << "the measure sees it";
      if (round == 1) std::reverse(pieces.begin(), pieces.end());
      Free(pieces, bytes);
    }
    EXPECT_LT(BytesInUse(), before + MOST_KEPT) << "pieces of " << bytes;
  }
}

TEST_F(MemoryInUse, IsGivenBackByScratchArrays) {
  const std::size_t before = BytesInUse();
  for (const std::size_t count : {std::size_t{100}, MEBIBYTE, 8 * MEBIBYTE}) {
    for (int round = 0; round < 3; ++round) {
      const MUScratchArray<std::uint64_t> numbers(count);
      EXPECT_EQ(count, numbers.size());
      EXPECT_GE(BytesInUse(), before + 8 * count);
    }
    EXPECT_LT(BytesInUse(), before + MOST_KEPT);
  }
}

TEST_F(MemoryInUse, IsGivenBackForPiecesThatNobodyTook) {
  const std::size_t before = BytesInUse();
  for (std::size_t i = 0; i < 64 * MEBIBYTE / 8000; ++i) {
    MUPooledPieces supply(80);
    MUFreePooled(supply.Take(100), 80);
  }
  EXPECT_LT(BytesInUse(), before + MOST_KEPT);
}

TEST(PooledPieces, LieApartAndOutliveTheirSupply) {
  for (const std::size_t bytes : {0u, 1u, 24u, 80u, 20000u}) {
    std::vector<unsigned char*> pieces;
    {
      MUPooledPieces supply(bytes);
      for (std::size_t left = 700; left > 0; --left) {
        pieces.push_back(static_cast<unsigned char*>(supply.Take(left)));
        EXPECT_EQ(0u, reinterpret_cast<std::uintptr_t>(pieces.back()) % alignof(std::max_align_t));
        std::memset(pieces.back(), static_cast<int>(left % 251), bytes);
      }
    }
    for (std::size_t i = 0; i < pieces.size(); ++i) {
      for (std::size_t at = 0; at < bytes; ++at) ASSERT_EQ((700 - i) % 251, pieces[i][at]) << i;
      MUFreePooled(pieces[i], bytes);
    }
  }
}

TEST(PooledPieces, MayBeMoreThanWasSaid) {
  MUPooledPieces supply(16);
  void* const first = supply.Take(1);
  void* const second = supply.Take(1);
  EXPECT_NE(first, second);
  MUFreePooled(first, 16);
  MUFreePooled(second, 16);
}

TEST(PooledMemory, IsAlignedForEveryType) {
  for (const std::size_t bytes : {0u, 1u, 7u, 8u, 17u, 100000u}) {
    void* const piece = MUAllocatePooled(bytes);
    EXPECT_EQ(0u, reinterpret_cast<std::uintptr_t>(piece) % alignof(std::max_align_t)) << bytes;
    MUFreePooled(piece, bytes);
  }
}

TEST(PooledMemory, NeverOverlaps) {
  std::vector<std::size_t> sizes;
  for (std::size_t i = 0; i < 3000; ++i) sizes.push_back(i * 7919 % 5000);
  sizes[1000] = 5 * MEBIBYTE;
  std::vector<unsigned char*> pieces;
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    // Every third piece is freed at once, so that places are used again.
    if (i % 3 == 2) {
      MUFreePooled(pieces.back(), sizes[i - 1]);
      pieces.back() = nullptr;
    }
    pieces.push_back(static_cast<unsigned char*>(MUAllocatePooled(sizes[i])));
    std::memset(pieces.back(), static_cast<int>(i % 251), sizes[i]);
  }
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    if (pieces[i] == nullptr) continue;
    for (std::size_t at = 0; at < sizes[i]; ++at) ASSERT_EQ(i % 251, pieces[i][at]) << i;
    MUFreePooled(pieces[i], sizes[i]);
  }
}

TEST(PooledMemory, MayBeFreedByAnotherThread) {
  for (int round = 0; round < 20; ++round) {
    Pieces pieces[2] = {Take(5000, 64), Take(5000, 64)};
    std::thread other([&] { Free(pieces[0], 64); });
    Free(pieces[1], 64);
    other.join();
  }
}

TEST(PooledMemory, RefusesWhatCannotBe) {
  EXPECT_THROW(MUAllocatePooled(static_cast<std::size_t>(-1)), std::bad_alloc);
  EXPECT_THROW(MUAllocatePooled(static_cast<std::size_t>(PTRDIFF_MAX)), std::bad_alloc);
  EXPECT_THROW(MUPooledPieces(static_cast<std::size_t>(-1)).Take(1), std::bad_alloc);
  MUPoolVector<std::uint64_t> many;
  EXPECT_THROW(many.reserve(many.max_size() + 1), std::length_error);
}

}  // namespace
