// The text of one cell, borrowed from the block of its file.
#ifndef OMBRELIA_TABULON_SRC_TEXT_MUCELLTEXT_H
#define OMBRELIA_TABULON_SRC_TEXT_MUCELLTEXT_H

#include <wx/string.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "Tabulon/src/machine/MUMachine.h"

// Effect: a view of a text that somebody else owns. A narrow text has one byte per character, as Latin-1 does; a
// wide one has the characters themselves. All operations give the same answers for the same characters, however
// wide they are stored.
// Cost: a pointer and a length to copy; comparing, hashing and copying the text are one pass over it.
// Lifetime: a view is valid as long as its characters are: those of a cell of a row as long as a row of that file
// lives.
// Threads: any number may read the same text.
// Failure: only ToString and CopyInto take memory, and throw std::bad_alloc.
class MUCellText {
 public:
  // A column's sort keys cover SORT_PIECES pieces of SORT_PIECE_LENGTH characters each.
  static constexpr std::size_t SORT_PIECES = 3;
  static constexpr std::size_t SORT_PIECE_LENGTH = 6;
  static constexpr std::size_t WORD_LENGTH = 8;

  MUCellText() : m_text(nullptr), m_size(0) {}
  MUCellText(const char* text, std::size_t length) : m_text(text), m_size(length << 1) {}
  MUCellText(const wchar_t* text, std::size_t length) : m_text(text), m_size(length << 1 | WIDE) {}

  std::size_t Length() const { return m_size >> 1; }
  bool IsEmpty() const { return Length() == 0; }

  // Calls the text's beginning up into the cache.
  void Prefetch() const { MUPrefetch(m_text); }

  // Null unless the text is stored in that width; not terminated.
  const char* Narrow() const { return IsWide() ? nullptr : static_cast<const char*>(m_text); }
  const wchar_t* Wide() const { return IsWide() ? static_cast<const wchar_t*>(m_text) : nullptr; }

  // The character at an index below Length().
  wchar_t operator[](std::size_t index) const {
    // NOLINTBEGIN(clang-analyzer-core.NullDereference): only an empty text is null
    return IsWide() ? static_cast<const wchar_t*>(m_text)[index]
                    : static_cast<wchar_t>(static_cast<const unsigned char*>(m_text)[index]);
    // NOLINTEND(clang-analyzer-core.NullDereference)
  }

  // The low eight bits of up to eight characters as one number, the first character as its most significant
  // byte; zeros stand where the text has ended. first: index of the first character, may be beyond the end.
  std::uint64_t Word(std::size_t first) const {
    const std::size_t length = Length() > first ? Length() - first : 0;
    const std::size_t count = length < WORD_LENGTH ? length : WORD_LENGTH;
    if (count == 0) return 0;
    const unsigned unused = 8 * static_cast<unsigned>(WORD_LENGTH - count);
    if (!IsWide() && Length() >= HALF_WORD) {
      const auto* const narrow = static_cast<const unsigned char*>(m_text);
      // A whole word that ends where the wanted characters do, or two overlapping halves.
      if (Length() >= WORD_LENGTH) {
        return MULoadFirstByteHighest<std::uint64_t>(narrow + first + count - WORD_LENGTH)
               << unused;
      }
      if (count >= HALF_WORD) {
        const std::uint64_t high = MULoadFirstByteHighest<std::uint32_t>(narrow + first);
        const std::uint64_t low =
            MULoadFirstByteHighest<std::uint32_t>(narrow + first + count - HALF_WORD);
        return high << 32 | low << unused;
      }
    }
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < count; ++i) {
      word = word << 8 | (static_cast<std::uint64_t>((*this)[first + i]) & 0xFF);
    }
    return word << unused;
  }

  // A copy of the characters.
  wxString ToString() const;
  // The same in a text that is there; a wxString that is moved would be copied once more.
  void CopyInto(wxString& text) const;

  bool operator==(const MUCellText& other) const {
    if (Length() != other.Length()) return false;
    if (IsWide() || other.IsWide()) return Compare(other) == 0;
    return EqualBytes(static_cast<const char*>(m_text), static_cast<const char*>(other.m_text),
                      Length());
  }
  bool operator!=(const MUCellText& other) const { return !(*this == other); }

  // Below, at or above 0, as wxString::compare orders the two texts.
  int Compare(const MUCellText& other) const;
  // Covers all of every character. The same within one process and another one in the next, so that nobody can
  // choose texts for their hashes; no order that others see may depend on it.
  std::size_t Hash() const;
  bool Equals(const wxString& text) const;

  // Six characters as one number whose order is the text's order; piece is 0, 1 or 2 and begins at
  // character 6 * piece. Each character gives its low eight bits, most significant first; where the
  // text has ended a blank stands in. Below 2 to the power 48.
  std::uint64_t SortBits(std::size_t piece) const;
  // SortBits times 65,536, which a double holds exactly.
  double SortKey(std::size_t piece) const { return static_cast<double>(SortBits(piece)) * 65536.0; }
  // True when the three pieces cover the whole text.
  bool FitsInSortKeys() const { return Length() < SORT_PIECES * SORT_PIECE_LENGTH + 1; }

 private:
  static constexpr std::size_t WIDE = 1;
  static constexpr std::size_t HALF_WORD = 4;
  template <typename WORD>
  static bool EqualWords(const char* a, const char* b) {
    return std::memcmp(a, b, sizeof(WORD)) == 0;  // which compilers turn into one comparison
  }
  // Cells are short: a call would take longer than the comparison.
  static bool EqualBytes(const char* a, const char* b, std::size_t count) {
    if (count >= WORD_LENGTH) {
      for (std::size_t i = 0; i + WORD_LENGTH < count; i += WORD_LENGTH) {
        if (!EqualWords<std::uint64_t>(a + i, b + i)) return false;
      }
      return EqualWords<std::uint64_t>(a + count - WORD_LENGTH, b + count - WORD_LENGTH);
    }
    if (count >= HALF_WORD) {
      return EqualWords<std::uint32_t>(a, b) &&
             EqualWords<std::uint32_t>(a + count - HALF_WORD, b + count - HALF_WORD);
    }
    for (std::size_t i = 0; i < count; ++i) {
      if (a[i] != b[i]) return false;
    }
    return true;
  }
  bool IsWide() const { return (m_size & WIDE) != 0; }

  const void* m_text;
  std::size_t m_size;  // twice the length, and one more if the text is wide
};

// A text to compare many cells with, made narrow where it can be, as cells are.
class MUWantedText {
 public:
  // Borrows the text, which must neither change nor go while this lives. One pass over it.
  explicit MUWantedText(const wxString& text);
  MUWantedText(const MUWantedText&) = delete;
  MUWantedText& operator=(const MUWantedText&) = delete;

  // Narrow if every character is below 256. Valid as long as this.
  const MUCellText& View() const { return m_view; }
  bool Equals(const MUCellText& cell) const {
    return cell.Length() == m_view.Length() && cell == m_view;
  }

 private:
  std::string m_narrow;
  MUCellText m_view;
};

struct MUCellTextHash {
  std::size_t operator()(const MUCellText& text) const { return text.Hash(); }
};

// The sort key of the first six characters of a text; see MUCellText::SortBits.
double MUSortableNumericHash(const wxString& text);

#endif
