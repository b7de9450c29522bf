// How a line falls into cells, and how a cell's text becomes visible.
#ifndef TABULON_MUCELLSPLITTING_H
#define TABULON_MUCELLSPLITTING_H

#include <algorithm>

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

// True for a character that MUAppendVisibly writes in another form.
template <typename Char>
bool MUIsControlCharacter(Char character) {
  return (character >= Char(1) && character <= Char(31)) ||
         (static_cast<long>(character) >= 127 && static_cast<long>(character) <= 159);
}

// Appends [begin, end) to out, a container of characters, with every non-printing character in visible
// form: an escape before '@' to '_' as "0x1B 0x" and two hexadecimal digits of the second character,
// other characters from 1 to 31 as a caret and a letter, 127 as "^?", 128 to 159 as "0x" and two digits.
template <typename Char, typename Out>
void MUAppendVisibly(const Char* begin, const Char* end, Out& out) {
  using OutChar = typename Out::value_type;
  const Char* copied = begin;
  const auto append = [&out](const char* text) {
    for (; *text; ++text) out.push_back(OutChar(*text));
  };
  const auto appendHexadecimal = [&out](long number) {
    out.push_back(OutChar("0123456789abcdef"[number / 16]));
    out.push_back(OutChar("0123456789abcdef"[number % 16]));
  };
  for (const Char* at = begin; at != end; ++at) {
    if (!MUIsControlCharacter(*at)) continue;
    out.insert(out.end(), copied, at);
    const long number = static_cast<long>(*at);
    if (number == 0x1B && at + 1 != end && at[1] >= Char(64) && at[1] <= Char(95)) {
      ++at;
      append("0x1B 0x");
      appendHexadecimal(static_cast<long>(*at));
    } else if (number < 32) {
      out.push_back(OutChar('^'));
      out.push_back(OutChar(number + 64));
    } else if (number == 127) {
      append("^?");
    } else {
      append("0x");
      appendHexadecimal(number);
    }
    copied = at + 1;
  }
  out.insert(out.end(), copied, end);
}

#endif
