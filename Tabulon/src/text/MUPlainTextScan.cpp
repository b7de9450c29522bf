#include "Tabulon/src/text/MUPlainTextScan.h"

#include "Tabulon/src/text/MUCellSplitting.h"

#if MU_HAS_SSE2
#include <emmintrin.h>
#endif

namespace {

// Sixteen bytes are looked at together; in a mask of them the lowest bit stands for the first one.
constexpr std::size_t WIDTH = 16;

// What makes a text other than plain, byte by byte and for sixteen bytes at once.
struct NotPrintableAscii {
  static bool Of(char byte) { return byte < ' ' || byte > '~'; }
#if MU_HAS_SSE2
  // Compared as signed numbers, bytes above 127 are below a blank, too.
  static __m128i Of(__m128i bytes) {
    return _mm_or_si128(_mm_cmplt_epi8(bytes, _mm_set1_epi8(' ')),
                        _mm_cmpeq_epi8(bytes, _mm_set1_epi8(0x7F)));
  }
#endif
};

struct Control {
  static bool Of(char byte) { return MUIsControlCharacter(byte); }
#if MU_HAS_SSE2
  static __m128i Of(__m128i bytes) {
    return _mm_or_si128(AreWithin(bytes, 1, 31), AreWithin(bytes, 127, 33));
  }

 private:
  // Whether the bytes are among count numbers from first on. There is only a signed comparison: from the
  // lowest number on, signed numbers keep the order of the unsigned ones.
  static __m128i AreWithin(__m128i bytes, int first, int count) {
    const __m128i fromLowest = _mm_sub_epi8(bytes, _mm_set1_epi8(static_cast<char>(first + 128)));
    return _mm_cmplt_epi8(fromLowest, _mm_set1_epi8(static_cast<char>(count - 128)));
  }
#endif
};

struct Delimiter {
  static bool Of(char byte) { return byte == '\t' || byte == '\n'; }
#if MU_HAS_SSE2
  static __m128i Of(__m128i bytes) {
    return _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('\t')),
                        _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\n')));
  }
#endif
};

struct OddCharacter {
  static bool Of(char byte) { return Control::Of(byte) && !Delimiter::Of(byte); }
#if MU_HAS_SSE2
  static __m128i Of(__m128i bytes) {
    return _mm_andnot_si128(Delimiter::Of(bytes), Control::Of(bytes));
  }
#endif
};

#if MU_HAS_SSE2

__m128i Load(const char* bytes) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes)); }

MUByteMask MaskOf(__m128i matches) {
  return static_cast<MUByteMask>(static_cast<unsigned>(_mm_movemask_epi8(matches)));
}

#endif

// Masks for up to WIDTH bytes.
template <typename KIND>
MUByteMask MaskOfFew(const char* bytes, std::size_t count) {
  MUByteMask mask = 0;
  for (std::size_t i = 0; i < count; ++i) mask |= MUByteMask{KIND::Of(bytes[i])} << i;
  return mask;
}

template <typename KIND>
MUByteMask MaskOfWidth(const char* bytes) {
#if MU_HAS_SSE2
  return MaskOf(KIND::Of(Load(bytes)));
#else
  return MaskOfFew<KIND>(bytes, WIDTH);
#endif
}

template <typename KIND>
void Mark(const char* bytes, std::size_t count, MUByteMask* masks) {
  for (std::size_t at = 0; at < count; at += WIDTH) {
    const MUByteMask mask = count - at >= WIDTH ? MaskOfWidth<KIND>(bytes + at)
                                                : MaskOfFew<KIND>(bytes + at, count - at);
    const std::size_t place = at % MU_MASK_WIDTH;
    MUByteMask& all = masks[at / MU_MASK_WIDTH];
    all = place == 0 ? mask : all | mask << place;
  }
}

#if MU_HAS_SSE2

// True if every carriage return among these bytes has a line feed behind it.
bool LineFeedsFollow(const char* text, std::size_t from, std::size_t length,
                     MUByteMask carriageReturns) {
  for (; carriageReturns != 0; carriageReturns &= carriageReturns - 1) {
    const std::size_t next = from + MULowestBit(carriageReturns) + 1;
    if (next >= length || text[next] != '\n') return false;
  }
  return true;
}

std::size_t SumOfBytes(__m128i bytes) {
  const __m128i sums = _mm_sad_epu8(bytes, _mm_setzero_si128());
  return static_cast<std::size_t>(_mm_cvtsi128_si64(sums)) +
         static_cast<std::size_t>(_mm_cvtsi128_si64(_mm_unpackhi_epi64(sums, sums)));
}

// Measures as many whole vectors as there are. The counts of matches are kept per byte, for as many vectors
// as a byte can count, and added up only then.
template <typename OTHER>
bool MeasureVectors(const char* text, std::size_t length, std::size_t* from,
                    MUPlainTextMeasure* found) {
  constexpr std::size_t mostVectors = 255;
  while (length - *from >= WIDTH) {
    const std::size_t vectors = std::min((length - *from) / WIDTH, mostVectors);
    __m128i tabCounts = _mm_setzero_si128();
    __m128i lineFeedCounts = _mm_setzero_si128();
    for (std::size_t i = 0; i < vectors; ++i, *from += WIDTH) {
      const __m128i bytes = Load(text + *from);
      const __m128i tabs = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\t'));
      const __m128i lineFeeds = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\n'));
      // A match is all ones, that is -1.
      tabCounts = _mm_sub_epi8(tabCounts, tabs);
      lineFeedCounts = _mm_sub_epi8(lineFeedCounts, lineFeeds);
      const __m128i others = _mm_andnot_si128(_mm_or_si128(tabs, lineFeeds), OTHER::Of(bytes));
      const MUByteMask odd = MaskOf(others);
      if (odd == 0) continue;
      const MUByteMask returns = MaskOf(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('\r')));
      if (odd != returns || !LineFeedsFollow(text, *from, length, returns)) return false;
    }
    found->tabs += SumOfBytes(tabCounts);
    found->lineFeeds += SumOfBytes(lineFeedCounts);
  }
  return true;
}

#endif

// OTHER: tells the bytes that the text must not hold, tabs and line ends aside.
template <typename OTHER>
bool Measure(const char* text, std::size_t length, MUPlainTextMeasure* measure) {
  MUPlainTextMeasure found = {0, 0};
  std::size_t from = 0;
#if MU_HAS_SSE2
  if (!MeasureVectors<OTHER>(text, length, &from, &found)) return false;
#endif
  for (; from < length; ++from) {
    const char byte = text[from];
    if (byte == '\t') {
      ++found.tabs;
    } else if (byte == '\n') {
      ++found.lineFeeds;
    } else if (byte == '\r') {
      if (from + 1 == length || text[from + 1] != '\n') return false;
    } else if (OTHER::Of(byte)) {
      return false;
    }
  }
  *measure = found;
  return true;
}

}  // namespace

bool MUMeasurePlainText(const char* text, std::size_t length, MUPlainTextMeasure* measure) {
  return Measure<NotPrintableAscii>(text, length, measure);
}

bool MUMeasureVisibleText(const char* text, std::size_t length, MUPlainTextMeasure* measure) {
  return Measure<Control>(text, length, measure);
}

void MUMarkDelimiters(const char* bytes, std::size_t count, MUByteMask* masks) {
  Mark<Delimiter>(bytes, count, masks);
}

void MUMarkOddCharacters(const char* bytes, std::size_t count, MUByteMask* masks) {
  Mark<OddCharacter>(bytes, count, masks);
}

void MUMarkControlCharacters(const char* bytes, std::size_t count, MUByteMask* masks) {
  Mark<Control>(bytes, count, masks);
}
