#include "Tabulon/src/text/MUCellText.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <string>

namespace {

int CompareCharacters(const MUCellText& a, const MUCellText& b, std::size_t length) {
  if (a.Narrow() && b.Narrow()) return std::memcmp(a.Narrow(), b.Narrow(), length);
  if (a.Wide() && b.Wide()) return std::wmemcmp(a.Wide(), b.Wide(), length);
  for (std::size_t i = 0; i < length; ++i) {
    if (a[i] != b[i]) return a[i] < b[i] ? -1 : 1;
  }
  return 0;
}

}  // namespace

wxString MUCellText::ToString() const {
  const std::size_t length = Length();
  if (length == 0) return wxString();
  if (IsWide()) return wxString(Wide(), length);
  const auto* const narrow = reinterpret_cast<const unsigned char*>(Narrow());
  wchar_t shortText[128];
  if (length <= sizeof shortText / sizeof *shortText) {
    std::copy(narrow, narrow + length, shortText);  // the numbers are the characters
    return wxString(shortText, length);
  }
  const std::wstring longText(narrow, narrow + length);
  return wxString(longText.data(), longText.size());
}

int MUCellText::Compare(const MUCellText& other) const {
  const int characters = CompareCharacters(*this, other, std::min(Length(), other.Length()));
  if (characters != 0) return characters;
  // The longer text is the greater one if the other begins it.
  return Length() == other.Length() ? 0 : (Length() < other.Length() ? -1 : 1);
}

bool MUCellText::Equals(const wxString& text) const {
  if (text.length() != Length()) return false;
  const auto wide = text.wc_str();
  const wchar_t* characters = wide;
  return CompareCharacters(*this, MUCellText(characters, Length()), Length()) == 0;
}

std::uint64_t MUCellText::SortBits(std::size_t piece) const {
  const std::size_t first = piece * SORT_PIECE_LENGTH;
  std::uint64_t bits = 0;
  for (std::size_t i = first; i < first + SORT_PIECE_LENGTH; ++i) {
    const std::uint64_t character =
        i < Length() ? static_cast<std::uint64_t>((*this)[i]) & 0xFF : std::uint64_t{' '};
    bits = bits << 8 | character;
  }
  return bits;
}

MUWantedText::MUWantedText(const wxString& text) : m_view(text.wc_str(), text.length()) {
  for (std::size_t i = 0; i < m_view.Length(); ++i) {
    const wchar_t character = m_view[i];
    if (static_cast<std::uint32_t>(character) > 255) return;
    m_narrow += static_cast<char>(character);
  }
  m_view = MUCellText(m_narrow.data(), m_narrow.size());
}

double MUSortableNumericHash(const wxString& text) {
  const auto wide = text.wc_str();
  const wchar_t* characters = wide;
  return MUCellText(characters, text.length()).SortKey(0);
}
