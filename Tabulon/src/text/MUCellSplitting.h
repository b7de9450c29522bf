// How a line falls into cells, and how the control characters of a cell become visible.
#ifndef OMBRELIA_TABULON_SRC_TEXT_MUCELLSPLITTING_H
#define OMBRELIA_TABULON_SRC_TEXT_MUCELLSPLITTING_H

#include <algorithm>
#include <cstddef>

// Calls take(begin, end) for each cell of the line [begin, end), left to right, exactly as
// wxStringTokenizer splits at tabs in mode wxTOKEN_RET_EMPTY: empty cells between tabs count, empty
// cells at the line's end do not, a line of tabs alone has one empty cell and an empty line has none.
// The library's tokenizer looks ahead for every token, so its cost grows with the square of a run of
// tabs; a file could stall the host with it.
template <typename Char, typename Take>
void MUForEachCell(const Char* begin, const Char* end, const Take& take) {
  if (begin == end) return;
  while (end != begin && end[-1] == Char('\t')) --end;
  for (;;) {
    const Char* tab = std::find(begin, end, Char('\t'));
    take(begin, tab);
    if (tab == end) return;
    begin = tab + 1;
  }
}

// True for a character that MUAppendVisibleForm has another form for.
template <typename Char>
bool MUIsControlCharacter(Char character) {
  const auto number = static_cast<unsigned long>(character);
  return number - 1 < 31 || number - 127 < 33;
}

// Appends the visible form of the control character at, of a text that ends at end, to out, a container
// of characters: of an escape before '@' to '_' "0x1B 0x" and two hexadecimal digits of the second
// character, of others from 1 to 31 a caret and a letter, of 127 "^?", of 128 to 159 "0x" and two
// digits. Answers where the text goes on.
template <typename Char, typename Out>
const Char* MUAppendVisibleForm(const Char* at, const Char* end, Out& out) {
  using OutChar = typename Out::value_type;
  const auto append = [&out](const char* text) {
    for (; *text; ++text) out.push_back(OutChar(*text));
  };
  const auto appendHexadecimal = [&out](long number) {
    out.push_back(OutChar("0123456789abcdef"[number / 16]));
    out.push_back(OutChar("0123456789abcdef"[number % 16]));
  };
  const long number = static_cast<long>(*at++);
  if (number == 0x1B && at != end && *at >= Char(64) && *at <= Char(95)) {
    append("0x1B 0x");
    appendHexadecimal(static_cast<long>(*at++));
  } else if (number < 32) {
    out.push_back(OutChar('^'));
    out.push_back(OutChar(number + 64));
  } else if (number == 127) {
    append("^?");
  } else {
    append("0x");
    appendHexadecimal(number);
  }
  return at;
}

// What of a text decides how it is to be stored.
struct MUVisibleMeasure {
  std::size_t characters =
      0;  // how long it can become when its control characters are made visible
  std::size_t tabs = 0;
  bool hasControlCharacters = false;  // other than tabs
  bool isNarrow = true;               // no character needs more than one byte

  template <typename Char>
  void Add(const Char* begin, const Char* end) {
    std::size_t tabsHere = 0;
    unsigned long allBits = 0;
    characters += static_cast<std::size_t>(end - begin);
    for (; begin != end; ++begin) {
      allBits |= static_cast<unsigned long>(*begin);
      const bool isTab = *begin == Char('\t');
      tabsHere += isTab;
      if (isTab || !MUIsControlCharacter(*begin)) continue;
      hasControlCharacters = true;
      characters += *begin == Char(0x1B) ? 8 : *begin < Char(127) ? 1 : 3;
    }
    tabs += tabsHere;
    isNarrow = isNarrow && allBits < 256;
  }
};

#endif
