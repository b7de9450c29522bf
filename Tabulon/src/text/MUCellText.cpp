#include "Tabulon/src/text/MUCellText.h"

// All of it is compiled in here: cells are short, and no library is needed at run time.
#define XXH_INLINE_ALL
#include <xxhash.h>

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <random>
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

std::uint64_t RandomNumber() {
  std::random_device device;
  return std::uint64_t{device()} << 32 | device();
}

std::size_t HashOfBytes(const void* bytes, std::size_t count) {
  static const std::uint64_t seed = RandomNumber();
  return static_cast<std::size_t>(XXH3_64bits_withSeed(bytes, count, seed));
}

bool FitsInByte(wchar_t character) { return static_cast<std::uint32_t>(character) < 256; }

}  // namespace

wxString MUCellText::ToString() const {
  wxString text;
  CopyInto(text);
  return text;
}

void MUCellText::CopyInto(wxString& text) const {
  const std::size_t length = Length();
  if (IsWide() || length == 0) {
    text.assign(length == 0 ? wxT("") : Wide(), length);
    return;
  }
  const auto* const narrow = reinterpret_cast<const unsigned char*>(Narrow());
  wchar_t shortText[128];
  if (length <= sizeof shortText / sizeof *shortText) {
    std::copy(narrow, narrow + length, shortText);  // the numbers are the characters
    text.assign(shortText, length);
  } else {
    const std::wstring longText(narrow, narrow + length);
    text.assign(longText.data(), length);
  }
}

int MUCellText::Compare(const MUCellText& other) const {
  const int characters = CompareCharacters(*this, other, std::min(Length(), other.Length()));
  if (characters != 0) return characters;
  // The longer text is the greater one if the other begins it.
  return Length() == other.Length() ? 0 : (Length() < other.Length() ? -1 : 1);
}

std::size_t MUCellText::Hash() const {
  if (!IsWide()) return HashOfBytes(m_text, Length());
  if (!std::all_of(Wide(), Wide() + Length(), FitsInByte)) {
    return HashOfBytes(m_text, Length() * sizeof(wchar_t));
  }
  // The same characters may stand in another file with one byte each.
  std::string narrow(Length(), '\0');
  for (std::size_t i = 0; i < Length(); ++i) narrow[i] = static_cast<char>((*this)[i]);
  return HashOfBytes(narrow.data(), narrow.size());
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
    if (!FitsInByte(character)) return;
    m_narrow += static_cast<char>(character);
  }
  m_view = MUCellText(m_narrow.data(), m_narrow.size());
}

double MUSortableNumericHash(const wxString& text) {
  const auto wide = text.wc_str();
  const wchar_t* characters = wide;
  return MUCellText(characters, text.length()).SortKey(0);
}
