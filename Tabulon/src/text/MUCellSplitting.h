// How a line falls into cells, and how the control characters of a cell become visible.
//
// Cost: one pass over the characters each. Lifetime: the characters are borrowed for the call.
// Threads: any number. Failure: throws only what take or out throws; any characters will do.
#ifndef OMBRELIA_TABULON_SRC_TEXT_MUCELLSPLITTING_H
#define OMBRELIA_TABULON_SRC_TEXT_MUCELLSPLITTING_H

#include <algorithm>
#include <cstddef>
#include <cstdint>

// The number of a character. A narrow one is a byte of Latin-1.
constexpr std::uint32_t MUNumberOf(char character) { return static_cast<unsigned char>(character); }
constexpr std::uint32_t MUNumberOf(wchar_t character) {
  return static_cast<std::uint32_t>(character);
}

// Calls take(begin, end) for each cell of the line [begin, end), left to right, exactly as
// wxStringTokenizer splits at tabs in mode wxTOKEN_RET_EMPTY: empty cells between tabs count, empty cells at
// the line's end do not, a line of tabs alone has one empty cell and an empty line has none.
// One pass over the line, where the library's tokenizer looks ahead for every token: its cost grows with the
// square of a run of tabs, and a file could stall the host with it.
template <typename CHAR, typename TAKE>
void MUForEachCell(const CHAR* begin, const CHAR* end, const TAKE& take) {
  if (begin == end) return;
  while (end != begin && end[-1] == CHAR('\t')) --end;
  for (;;) {
    const CHAR* tab = std::find(begin, end, CHAR('\t'));
    take(begin, tab);
    if (tab == end) return;
    begin = tab + 1;
  }
}

// True for 1 to 31 and 127 to 159: the characters that MUAppendVisibleForm has another form for.
template <typename CHAR>
constexpr bool MUIsControlCharacter(CHAR character) {
  const std::uint32_t number = MUNumberOf(character);
  return number - 1 < 31 || number - 127 < 33;
}

// True for the pair that has one form together: an escape and a character from '@' to '_'.
template <typename CHAR>
constexpr bool MUBeginsEscapePair(const CHAR* at, const CHAR* end) {
  return *at == CHAR(0x1B) && end - at > 1 && at[1] >= CHAR('@') && at[1] <= CHAR('_');
}

// Appends the visible form of the control character at, of a text that ends at end, to out, a container of
// characters. An escape before '@' to '_' becomes "0x1B 0x" and two hexadecimal digits of the second
// character, any other character from 1 to 31 a caret and a letter, 127 "^?", and 128 to 159 "0x" and two
// digits. Returns where the rest of the text begins.
template <typename CHAR, typename OUT>
const CHAR* MUAppendVisibleForm(const CHAR* at, const CHAR* end, OUT& out) {
  using OutChar = typename OUT::value_type;
  const auto append = [&out](const char* text) {
    for (; *text; ++text) out.push_back(OutChar(*text));
  };
  const auto appendHexadecimal = [&out](std::uint32_t number) {
    out.push_back(OutChar("0123456789abcdef"[number / 16]));
    out.push_back(OutChar("0123456789abcdef"[number % 16]));
  };
  if (MUBeginsEscapePair(at, end)) {
    append("0x1B 0x");
    appendHexadecimal(MUNumberOf(at[1]));
    return at + 2;
  }
  const std::uint32_t number = MUNumberOf(*at);
  if (number < 32) {
    out.push_back(OutChar('^'));
    out.push_back(OutChar(number + 64));
  } else if (number == 127) {
    append("^?");
  } else {
    append("0x");
    appendHexadecimal(number);
  }
  return at + 1;
}

// What decides how a text is to be stored. Added up over pieces of the text that do not separate an escape
// from the character behind it.
struct MUVisibleMeasure {
  std::size_t characters = 0;  // once all control characters but the tabs are visible
  std::size_t tabs = 0;
  bool isNarrow = true;  // no character needs more than one byte

  // One pass over [begin, end).
  template <typename CHAR>
  void Add(const CHAR* begin, const CHAR* end) {
    std::size_t tabsHere = 0;
    std::uint32_t allBits = 0;
    characters += static_cast<std::size_t>(end - begin);
    for (; begin != end; ++begin) {
      allBits |= MUNumberOf(*begin);
      const bool isTab = *begin == CHAR('\t');
      tabsHere += isTab;
      if (isTab || !MUIsControlCharacter(*begin)) continue;
      // A pair takes nine characters instead of two.
      characters += MUBeginsEscapePair(begin, end) ? 7 : MUNumberOf(*begin) < 128 ? 1 : 3;
    }
    tabs += tabsHere;
    isNarrow = isNarrow && allBits < 256;
  }
};

#endif
