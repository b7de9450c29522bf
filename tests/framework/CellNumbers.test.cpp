#include "framework/CellNumbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace Tests {
namespace {

using Ombrelia::ReadLong;

const long SENTINEL = -999;

// What a sentinel is after the reading of a text.
long AfterReading(const wxString& text) {
  long value = SENTINEL;
  ReadLong(text, value);
  return value;
}

TEST(CellNumbers, ReadsWholeNumbers) {
  long value = SENTINEL;
  EXPECT_TRUE(ReadLong(wxT("1612"), value));
  EXPECT_EQ(value, 1612);
  EXPECT_TRUE(ReadLong(wxT("0"), value));
  EXPECT_EQ(value, 0);
  EXPECT_TRUE(ReadLong(wxT("-121"), value));
  EXPECT_EQ(value, -121);
  EXPECT_TRUE(ReadLong(wxT("+7"), value));
  EXPECT_EQ(value, 7);
}

TEST(CellNumbers, ReadsTenAsTheBaseWhateverTheDigitsLookLike) {
  EXPECT_EQ(AfterReading(wxT("010")), 10);
  EXPECT_EQ(AfterReading(wxT("0x10")), SENTINEL);
}

TEST(CellNumbers, AllowsLeadingBlanksOnly) {
  EXPECT_EQ(AfterReading(wxT("  23")), 23);
  EXPECT_EQ(AfterReading(wxT("23 ")), SENTINEL);
}

TEST(CellNumbers, LeavesTheSentinelOnATextThatIsNoNumber) {
  long value = SENTINEL;
  EXPECT_FALSE(ReadLong(wxT("NR"), value));
  EXPECT_EQ(value, SENTINEL);
  EXPECT_FALSE(ReadLong(wxT(""), value));
  EXPECT_EQ(value, SENTINEL);
  EXPECT_FALSE(ReadLong(wxT("?"), value));
  EXPECT_EQ(value, SENTINEL);
  EXPECT_FALSE(ReadLong(wxT("-"), value));
  EXPECT_EQ(value, SENTINEL);
}

TEST(CellNumbers, LeavesTheSentinelOnATextThatOnlyBeginsWithDigits) {
  EXPECT_EQ(AfterReading(wxT("1612 ms")), SENTINEL);
  EXPECT_EQ(AfterReading(wxT("16.12")), SENTINEL);
  EXPECT_EQ(AfterReading(wxT("16,120")), SENTINEL);
}

TEST(CellNumbers, LeavesTheSentinelBeyondTheRangeOfALong) {
  const long largest = std::numeric_limits<long>::max();
  EXPECT_EQ(AfterReading(wxString::Format(wxT("%ld"), largest)), largest);
  EXPECT_EQ(AfterReading(wxT("99999999999999999999")), SENTINEL);
  EXPECT_EQ(AfterReading(wxT("-99999999999999999999")), SENTINEL);
}

}  // namespace
}  // namespace Tests
