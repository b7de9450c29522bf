#include "Tabulon/src/text/MUPlainTextScan.h"

#include <algorithm>

namespace {

// True if every carriage return among these bytes has a line feed behind it.
bool LineFeedsFollow(const char* text, std::size_t from, std::size_t length,
                     std::uint32_t carriageReturns) {
  for (; carriageReturns != 0; carriageReturns &= carriageReturns - 1) {
    const std::size_t next = from + static_cast<std::size_t>(__builtin_ctz(carriageReturns)) + 1;
    if (next >= length || text[next] != '\n') return false;
  }
  return true;
}

std::size_t BitsOf(std::uint32_t mask) {
  return static_cast<std::size_t>(__builtin_popcount(mask));
}

#if defined(__SSE2__)

std::size_t SumOfBytes(__m128i bytes) {
  const __m128i sums = _mm_sad_epu8(bytes, _mm_setzero_si128());
  return static_cast<std::size_t>(_mm_cvtsi128_si64(sums)) +
         static_cast<std::size_t>(_mm_cvtsi128_si64(_mm_unpackhi_epi64(sums, sums)));
}

// The same as below, where there are whole vectors, without taking each vector's masks apart: the
// counts of matches are kept per byte, for as many vectors as a byte can count.
bool MeasureVectors(const char* text, std::size_t length, std::size_t* from,
                    MUPlainTextMeasure* found) {
  const std::size_t mostVectors = 255;
  while (length - *from >= MU_SCAN_WIDTH) {
    const std::size_t vectors = std::min((length - *from) / MU_SCAN_WIDTH, mostVectors);
    __m128i tabs = _mm_setzero_si128();
    __m128i lineFeeds = _mm_setzero_si128();
    for (std::size_t i = 0; i < vectors; ++i, *from += MU_SCAN_WIDTH) {
      const MUByteMatches matches = MUMatchBytes(text + *from);
      // A match is all ones, that is -1.
      tabs = _mm_sub_epi8(tabs, matches.tabs);
      lineFeeds = _mm_sub_epi8(lineFeeds, matches.lineFeeds);
      if (_mm_movemask_epi8(_mm_or_si128(matches.notPlain, matches.carriageReturns)) == 0) continue;
      if (_mm_movemask_epi8(matches.notPlain) != 0 ||
          !LineFeedsFollow(text, *from, length, MUMaskOf(matches.carriageReturns))) {
        return false;
      }
    }
    found->tabs += SumOfBytes(tabs);
    found->lineFeeds += SumOfBytes(lineFeeds);
  }
  return true;
}

#endif

}  // namespace

bool MUMeasurePlainText(const char* text, std::size_t length, MUPlainTextMeasure* measure) {
  MUPlainTextMeasure found = {0, 0};
  std::size_t from = 0;
#if defined(__SSE2__)
  if (!MeasureVectors(text, length, &from, &found)) return false;
#endif
  for (; from < length; from += MU_SCAN_WIDTH) {
    const MUByteMasks masks =
        MUExamineBytesOneByOne(text + from, std::min(length - from, MU_SCAN_WIDTH));
    if (masks.notPlain != 0 || !LineFeedsFollow(text, from, length, masks.carriageReturns)) {
      return false;
    }
    found.tabs += BitsOf(masks.tabs);
    found.lineFeeds += BitsOf(masks.lineFeeds);
  }
  *measure = found;
  return true;
}
