// The fast look at a file's bytes: is this plain ASCII, and where are its tabs and line ends?
#ifndef OMBRELIA_TABULON_SRC_TEXT_MUPLAINTEXTSCAN_H
#define OMBRELIA_TABULON_SRC_TEXT_MUPLAINTEXTSCAN_H

#include <cstddef>
#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

// Which of sixteen bytes are what; bit 0 stands for the first byte.
struct MUByteMasks {
  std::uint32_t tabs;
  std::uint32_t lineFeeds;
  std::uint32_t carriageReturns;
  std::uint32_t notPlain;  // neither of these, and not from blank to '~'
};

constexpr std::size_t MU_SCAN_WIDTH = 16;

// For any number of bytes up to MU_SCAN_WIDTH.
inline MUByteMasks MUExamineBytesOneByOne(const char* bytes, std::size_t count) {
  MUByteMasks masks = {0, 0, 0, 0};
  for (std::size_t i = 0; i < count; ++i) {
    const std::uint32_t bit = 1u << i;
    const char byte = bytes[i];
    if (byte == '\t')
      masks.tabs |= bit;
    else if (byte == '\n')
      masks.lineFeeds |= bit;
    else if (byte == '\r')
      masks.carriageReturns |= bit;
    else if (byte < ' ' || byte > '~')
      masks.notPlain |= bit;
  }
  return masks;
}

#if defined(__SSE2__)

// The same per byte: all ones where it is so, else 0.
struct MUByteMatches {
  __m128i tabs;
  __m128i lineFeeds;
  __m128i carriageReturns;
  __m128i notPlain;
};

// For MU_SCAN_WIDTH bytes.
inline MUByteMatches MUMatchBytes(const char* bytes) {
  const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
  const auto equalTo = [block](char byte) { return _mm_cmpeq_epi8(block, _mm_set1_epi8(byte)); };
  MUByteMatches matches;
  matches.tabs = equalTo('\t');
  matches.lineFeeds = equalTo('\n');
  matches.carriageReturns = equalTo('\r');
  const __m128i known =
      _mm_or_si128(_mm_or_si128(matches.tabs, matches.lineFeeds), matches.carriageReturns);
  // Compared as signed numbers, bytes above 127 are below a blank too.
  const __m128i odd = _mm_or_si128(_mm_cmplt_epi8(block, _mm_set1_epi8(' ')), equalTo(0x7F));
  matches.notPlain = _mm_andnot_si128(known, odd);
  return matches;
}

inline std::uint32_t MUMaskOf(__m128i matches) {
  return static_cast<std::uint32_t>(_mm_movemask_epi8(matches));
}

#endif

// For MU_SCAN_WIDTH bytes.
inline MUByteMasks MUExamineBytes(const char* bytes) {
#if defined(__SSE2__)
  const MUByteMatches matches = MUMatchBytes(bytes);
  return {MUMaskOf(matches.tabs), MUMaskOf(matches.lineFeeds), MUMaskOf(matches.carriageReturns),
          MUMaskOf(matches.notPlain)};
#else
  return MUExamineBytesOneByOne(bytes, MU_SCAN_WIDTH);
#endif
}

struct MUPlainTextMeasure {
  std::size_t tabs;
  std::size_t lineFeeds;
};

// True if every byte is from blank to '~', a tab, a line feed, or a carriage return directly before a
// line feed: then one byte is one character in any encoding that wxConvAuto may find, and lines end
// where wxTextFile ends them. Fills the measure only then.
bool MUMeasurePlainText(const char* text, std::size_t length, MUPlainTextMeasure* measure);

// Calls take(position) for each tab and line feed at or after the position from, in order.
template <typename Take>
void MUForEachDelimiter(const char* text, std::size_t from, std::size_t length, const Take& take) {
  while (from < length) {
    const std::size_t left = length - from;
    const MUByteMasks masks = left >= MU_SCAN_WIDTH ? MUExamineBytes(text + from)
                                                    : MUExamineBytesOneByOne(text + from, left);
    std::uint32_t delimiters = masks.tabs | masks.lineFeeds;
    for (; delimiters != 0; delimiters &= delimiters - 1) {
      take(from + static_cast<std::size_t>(__builtin_ctz(delimiters)));
    }
    from += MU_SCAN_WIDTH;
  }
}

#endif
