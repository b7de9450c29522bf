// Sorts texts by their sort keys.
#ifndef OMBRELIA_TABULON_SRC_SORTING_MUTEXTSORT_H
#define OMBRELIA_TABULON_SRC_SORTING_MUTEXTSORT_H

#include <array>
#include <cstddef>
#include <cstdint>

#include "Tabulon/src/sorting/MUKeyedSort.h"
#include "Tabulon/src/text/MUCellText.h"

// Effect: orders texts by their three sort keys. Among texts with equal keys, those that the keys cover whole
// come first, then the others by their full text. Texts that are equal in all this keep the order in which
// they were added.
// Cost: 8 bytes per text while all are short, else 24, and 16 more from the first one that its keys do not
// cover; time grows with the bits in which the texts differ.
// Lifetime: texts are borrowed until the last call.
// Threads: one at a time while texts are added, then any number.
// Failure: more texts than count is not checked and must not be passed.
class MUTextSort {
 public:
  // count: how many texts will be added, below 2 to the power 32.
  explicit MUTextSort(std::size_t count);

  void Add(const MUCellText& text);
  // A text whose row has no keys for it: they read as 0, and as if they did not cover it.
  void AddWithoutKeys(const MUCellText& text);

  // Whether the keys of any text cover it.
  bool AnyFits() const { return m_unfitCount < m_count; }
  // Whether all are stored with one byte for a character.
  bool AllAreNarrow() const { return m_allNarrow; }

  // The texts' places, counted from 0 as they were added, in order. descending: the reverse order; equal texts
  // keep theirs.
  MUScratchArray<MUPlace> Sorted(bool descending) const;

 private:
  // The keys' characters, eight a word, one byte each. The last word holds characters 16 and 17, then a bit for
  // uncovered texts. Further characters of narrow uncovered texts follow.
  using Words = MUKeyPacking<3>::Key;

  void Append(const Words& words, const MUCellText& text);
  Words WordsAt(MUPlace place) const {
    if (m_words.size() == 0) return {m_firstWords[place], 0, 0};
    const Words& words = m_words[place];
    return {words[0], words[1], words[2] & m_lastWordMask};
  }
  bool IsUnfit(MUPlace place) const;
  void SortByWords(MUPlace* begin, MUPlace* end, bool descending) const;
  void SortFewByWords(MUPlace* begin, MUPlace* end, bool descending) const;
  void SortByText(MUPlace* begin, MUPlace* end, bool descending) const;

  std::size_t m_capacity;
  std::size_t m_count = 0;
  std::size_t m_unfitCount = 0;
  bool m_allNarrow = true;
  // Where wide texts stand among narrow ones, a byte for a character says too little beyond the keys.
  std::uint64_t m_lastWordMask = ~std::uint64_t{0};
  // Either the first words of texts that are all short, or, from the first other one on, all their words.
  MUScratchArray<std::uint64_t> m_firstWords;
  MUScratchArray<Words> m_words;
  // Made with the first text that its keys do not cover; other texts have no value here.
  MUScratchArray<MUCellText> m_unfitTexts;
};

#endif
