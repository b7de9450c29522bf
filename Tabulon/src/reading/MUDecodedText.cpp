#include "Tabulon/src/reading/MUDecodedText.h"

#include <wx/convauto.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

#include "Tabulon/src/machine/MUMachine.h"

#if MU_HAS_SSE2
#include <emmintrin.h>
#endif

namespace {

using Bytes = MUPoolVector<char>;

// What a look at the bytes tells about the encoding that wxConvAuto will find.
enum class Finding {
  UTF8,    // it is valid, beyond all doubt
  LATIN1,  // it is certainly not UTF-8
  UTF16_LITTLE,
  UTF16_BIG,
  DOUBTFUL  // only the library knows
};

// With fewer bytes than these the library may not know whether there is a mark of the encoding.
constexpr std::size_t FEWEST_BYTES = 4;
constexpr std::size_t UTF8_MARK = 3;

bool StartsWith(const Bytes& bytes, const char* mark, std::size_t length) {
  return bytes.size() >= length && std::memcmp(bytes.data(), mark, length) == 0;
}

std::uint32_t ByteAt(const char* at) { return static_cast<unsigned char>(*at); }
bool IsContinuation(const char* at) { return (ByteAt(at) & 0xC0) == 0x80; }

// Steps over ASCII, eight bytes at once while there are as many.
const char* SkipAscii(const char* at, const char* end) {
  constexpr std::uint64_t HIGH_BITS = 0x8080808080808080u;
  std::uint64_t word = 0;
  while (static_cast<std::size_t>(end - at) >= sizeof word) {
    std::memcpy(&word, at, sizeof word);
    if ((word & HIGH_BITS) != 0) break;
    at += sizeof word;
  }
  while (at != end && ByteAt(at) < 0x80) ++at;
  return at;
}

// What a valid UTF-8 text is made of.
struct Utf8Measure {
  std::size_t characters = 0;
  bool isNarrow = true;
};

Finding ExamineUtf8(const char* at, const char* end, Utf8Measure* measure) {
  for (;;) {
    const char* const ascii = at;
    at = SkipAscii(at, end);
    measure->characters += static_cast<std::size_t>(at - ascii);
    if (at == end) return Finding::UTF8;
    const std::uint32_t lead = ByteAt(at);
    if (lead < 0xC0 || lead >= 0xF8) return Finding::LATIN1;
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    std::uint32_t character = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
      if (at + i == end) return Finding::DOUBTFUL;
      if (!IsContinuation(at + i))
        return lead < 0xC2 || lead > 0xF4 ? Finding::DOUBTFUL : Finding::LATIN1;
      character = character << 6 | (ByteAt(at + i) & 0x3F);
    }
    constexpr std::uint32_t SHORTEST[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = character >= 0xD800 && character < 0xE000;
    if (character < SHORTEST[length] || character > 0x10FFFF || isSurrogate)
      return Finding::DOUBTFUL;
    measure->isNarrow = measure->isNarrow && character < 256;
    ++measure->characters;
    at += length;
  }
}

template <typename CHAR>
void DecodeUtf8(const char* at, const char* end, CHAR* to) {
  while (at != end) {
    const char* const ascii = at;
    at = SkipAscii(at, end);
    to = std::copy(ascii, at, to);
    if (at == end) return;
    const std::uint32_t lead = ByteAt(at);
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    std::uint32_t character = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) character = character << 6 | (ByteAt(at + i) & 0x3F);
    *to++ = static_cast<CHAR>(character);
    at += length;
  }
}

bool HoldsZero(const Bytes& bytes) { return std::memchr(bytes.data(), 0, bytes.size()) != nullptr; }

// The unit at the place, of two bytes.
std::uint32_t UnitAt(const char* at, bool isBigEndian) {
  return isBigEndian ? ByteAt(at) << 8 | ByteAt(at + 1) : ByteAt(at + 1) << 8 | ByteAt(at);
}

// True if no unit has a bit in its high byte: then each is a character below 256.
bool AreNarrowUnits(const char* at, const char* end, bool isBigEndian) {
  constexpr char HIGH_BYTES[] = {'\xFF', 0, '\xFF', 0, '\xFF', 0, '\xFF', 0, '\xFF'};
  std::uint64_t mask = 0;
  std::memcpy(&mask, HIGH_BYTES + (isBigEndian ? 0 : 1), sizeof mask);
  std::uint64_t allBits = 0;
  std::uint64_t word = 0;
  for (; static_cast<std::size_t>(end - at) >= sizeof word; at += sizeof word) {
    std::memcpy(&word, at, sizeof word);
    allBits |= word;
  }
  for (; at != end; at += 2) {
    if (UnitAt(at, isBigEndian) >= 256) return false;
  }
  return (allBits & mask) == 0;
}

void DecodeNarrowUnits(const char* at, const char* end, bool isBigEndian, char* to) {
#if MU_HAS_SSE2
  constexpr std::ptrdiff_t WIDTH = 16;
  const int shift = isBigEndian ? 8 : 0;
  for (; end - at >= 2 * WIDTH; at += 2 * WIDTH, to += WIDTH) {
    const auto* const units = reinterpret_cast<const __m128i*>(at);
    const __m128i first = _mm_srli_epi16(_mm_loadu_si128(units), shift);
    const __m128i second = _mm_srli_epi16(_mm_loadu_si128(units + 1), shift);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm_packus_epi16(first, second));
  }
#endif
  for (at += isBigEndian ? 1 : 0; at < end; at += 2) *to++ = *at;
}

// True, with the text, if every unit is a character by itself.
bool DecodePlainUtf16(const Bytes& bytes, bool isBigEndian, MUDecodedText* text) {
  if (bytes.size() % 2 != 0) return false;
  const std::size_t count = bytes.size() / 2 - 1;
  const char* const first = bytes.data() + 2;
  const char* const end = bytes.data() + bytes.size();
  if (AreNarrowUnits(first, end, isBigEndian)) {
    text->narrow.resize(count);
    DecodeNarrowUnits(first, end, isBigEndian, text->narrow.data());
    return true;
  }
  bool hasSurrogate = false;
  text->wide.resize(count);
  for (std::size_t i = 0; i < count; ++i) {
    const std::uint32_t unit = UnitAt(first + 2 * i, isBigEndian);
    text->wide[i] = static_cast<wchar_t>(unit);
    hasSurrogate = hasSurrogate || (unit & 0xF800) == 0xD800;
  }
  if (hasSurrogate) MUPoolVector<wchar_t>().swap(text->wide);
  return !hasSurrogate;
}

// False, and the bytes are as they were, if only the library knows.
bool DecodeByOurselves(Bytes& bytes, MUDecodedText* text) {
  if (bytes.size() < FEWEST_BYTES || StartsWith(bytes, "\xFF\xFE\0\0", 4) ||
      StartsWith(bytes, "\0\0\xFE\xFF", 4)) {
    return false;
  }
  if (StartsWith(bytes, "\xFF\xFE", 2)) return DecodePlainUtf16(bytes, false, text);
  if (StartsWith(bytes, "\xFE\xFF", 2)) return DecodePlainUtf16(bytes, true, text);
  const bool isMarked = StartsWith(bytes, "\xEF\xBB\xBF", UTF8_MARK);
  const char* const begin = bytes.data() + (isMarked ? UTF8_MARK : 0);
  const char* const end = bytes.data() + bytes.size();
  Utf8Measure measure;
  switch (ExamineUtf8(begin, end, &measure)) {
    case Finding::UTF8:
      if (measure.isNarrow) {
        // No character becomes longer, so there is room for all in place.
        DecodeUtf8(begin, end, bytes.data());
        bytes.resize(measure.characters);
        text->narrow = std::move(bytes);
      } else {
        text->wide.resize(measure.characters);
        DecodeUtf8(begin, end, text->wide.data());
      }
      return true;
    case Finding::LATIN1:
      if (isMarked || wxConvAuto::GetFallbackEncoding() != wxFONTENCODING_ISO8859_1 ||
          HoldsZero(bytes)) {
        return false;
      }
      text->narrow = std::move(bytes);
      return true;
    default:
      return false;
  }
}

bool IsNarrow(const MUPoolVector<wchar_t>& text) {
  std::uint32_t allBits = 0;
  for (const wchar_t character : text) allBits |= static_cast<std::uint32_t>(character);
  return allBits < 256;
}

MUDecodedText DecodeByLibrary(const Bytes& bytes) {
  MUDecodedText text;
  const wxConvAuto conversion;
  const std::size_t length = conversion.ToWChar(nullptr, 0, bytes.data(), bytes.size());
  if (length == wxCONV_FAILED || length == 0) return text;
  text.wide.resize(length);
  if (conversion.ToWChar(text.wide.data(), length, bytes.data(), bytes.size()) == wxCONV_FAILED) {
    text.wide.clear();
    return text;
  }
  if (IsNarrow(text.wide)) {
    text.narrow.resize(length);
    std::transform(text.wide.begin(), text.wide.end(), text.narrow.begin(),
                   [](wchar_t character) { return static_cast<char>(character); });
    MUPoolVector<wchar_t>().swap(text.wide);
  }
  return text;
}

}  // namespace

MUDecodedText MUDecode(Bytes& bytes) {
  MUDecodedText text;
  if (!DecodeByOurselves(bytes, &text)) text = DecodeByLibrary(bytes);
  return text;
}
