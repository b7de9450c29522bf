// The functions that depend on compiler and machine give the same answers with and without their help.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>

#include "Tabulon/src/machine/MUMachine.h"

namespace {

constexpr std::uint64_t ONE = 1;
constexpr std::uint64_t ALL = ~std::uint64_t{0};

TEST(Machine, TheLowestBitIsFoundAtEveryPlace) {
  for (unsigned place = 0; place < 64; ++place) {
    EXPECT_EQ(MULowestBit(ONE << place), place);
    EXPECT_EQ(MULowestBit(ALL << place), place);
  }
}

TEST(Machine, BitsAreCounted) {
  EXPECT_EQ(MUCountBits(0), 0u);
  EXPECT_EQ(MUCountBits(ALL), 64u);
  EXPECT_EQ(MUCountBits(0x8000000000000001), 2u);
  EXPECT_EQ(MUCountBits(0x0123456789ABCDEF), 32u);
  for (unsigned place = 0; place < 64; ++place) EXPECT_EQ(MUCountBits(ONE << place), 1u);
}

TEST(Machine, TheFirstByteOfAWordIsTheMostSignificantWhereverItStands) {
  const unsigned char bytes[] = {0xFF, 0x81, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x88, 0xFE};
  EXPECT_EQ(MULoadFirstByteHighest<std::uint32_t>(bytes + 1), 0x81020304u);
  EXPECT_EQ(MULoadFirstByteHighest<std::uint32_t>(bytes + 2), 0x02030405u);
  EXPECT_EQ(MULoadFirstByteHighest<std::uint64_t>(bytes + 1), 0x8102030405060788u);
  EXPECT_EQ(MULoadFirstByteHighest<std::uint64_t>(bytes + 2), 0x02030405060788FEu);
}

TEST(Machine, AnyAddressMayBePrefetched) {
  MUPrefetch(nullptr);
  MUPrefetch(reinterpret_cast<const void*>(std::uintptr_t{1}));
}

// The environment says so, because a test that looked at the definition would pass without it.
TEST(Machine, ThePresetWithoutVectorCodeHasNone) {
  if (std::getenv("OMBRELIA_EXPECT_PORTABLE") == nullptr) {
    GTEST_SKIP() << "OMBRELIA_EXPECT_PORTABLE is not set";
  }
  EXPECT_EQ(MU_HAS_SSE2, 0);
  EXPECT_EQ(MU_HAS_BUILTINS, 0);
}

}  // namespace
