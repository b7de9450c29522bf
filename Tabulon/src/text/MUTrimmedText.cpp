#include "Tabulon/src/text/MUTrimmedText.h"

#include <wx/wxcrt.h>

namespace {

// As wxString::Trim: only ASCII blanks are trimmed.
bool IsBlank(wchar_t character) { return character < 127 && wxIsspace(character); }

}  // namespace

MUCellText TrimmedText(const MUCellText& text) {
  std::size_t first = 0;
  std::size_t end = text.Length();
  while (end > first && IsBlank(text[end - 1])) --end;
  while (first < end && IsBlank(text[first])) ++first;
  if (text.Narrow() != nullptr) return {text.Narrow() + first, end - first};
  if (text.Wide() != nullptr) return {text.Wide() + first, end - first};
  return {};
}
