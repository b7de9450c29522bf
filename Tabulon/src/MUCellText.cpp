#include "Tabulon/src/MUCellText.h"

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
  if (m_length == 0) return wxString();
  if (m_wide) return wxString(m_wide, m_length);
  wchar_t shortText[128];
  if (m_length <= sizeof shortText / sizeof *shortText) {
    std::copy(m_narrow, m_narrow + m_length, shortText);  // ASCII: the numbers are the characters
    return wxString(shortText, m_length);
  }
  const std::wstring longText(m_narrow, m_narrow + m_length);
  return wxString(longText.data(), longText.size());
}

int MUCellText::Compare(const MUCellText& other) const {
  const int characters = CompareCharacters(*this, other, std::min(m_length, other.m_length));
  if (characters != 0) return characters;
  // The longer text is the greater one if the other begins it.
  return m_length == other.m_length ? 0 : (m_length < other.m_length ? -1 : 1);
}

bool MUCellText::Equals(const wxString& text) const {
  if (text.length() != m_length) return false;
  const auto wide = text.wc_str();
  const wchar_t* characters = wide;
  return CompareCharacters(*this, MUCellText(characters, m_length), m_length) == 0;
}

std::uint64_t MUCellText::SortBits(std::size_t piece) const {
  const std::size_t first = piece * SORT_PIECE_LENGTH;
  std::uint64_t bits = 0;
  for (std::size_t i = first; i < first + SORT_PIECE_LENGTH; ++i) {
    const std::uint64_t character =
        i < m_length ? static_cast<std::uint64_t>((*this)[i]) & 0xFF : std::uint64_t{' '};
    bits = bits << 8 | character;
  }
  return bits;
}

double MUSortableNumericHash(const wxString& text) {
  const auto wide = text.wc_str();
  const wchar_t* characters = wide;
  return MUCellText(characters, text.length()).SortKey(0);
}
