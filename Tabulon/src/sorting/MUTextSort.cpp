#include "Tabulon/src/sorting/MUTextSort.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "Tabulon/src/machine/MUMachine.h"

namespace {

constexpr std::size_t WORD_LENGTH = MUCellText::WORD_LENGTH;
constexpr std::size_t KEYS_LENGTH = MUCellText::SORT_PIECES * MUCellText::SORT_PIECE_LENGTH;
static_assert(KEYS_LENGTH == 2 * WORD_LENGTH + 2, "two words and two characters of the third");

constexpr std::uint64_t BLANKS = 0x2020202020202020u;
// The last word has two characters of the keys, the bit of a text that they do not cover, and then five
// characters of such a text.
constexpr std::uint64_t LAST_KEY_CHARACTERS = 0xFFFF000000000000u;
constexpr std::uint64_t UNFIT = 0x0000800000000000u;
constexpr unsigned FURTHER_TEXT_SHIFT = 17;
constexpr std::uint64_t SECOND_WORD_OF_SHORT_TEXT = BLANKS;
constexpr std::uint64_t LAST_WORD_OF_SHORT_TEXT = BLANKS & LAST_KEY_CHARACTERS;
// Words of sorted places lie anywhere and are fetched this far ahead.
constexpr std::ptrdiff_t PLACES_AHEAD = 32;
// Up to this number, places are sorted one by one.
constexpr std::ptrdiff_t FEW_PLACES = 24;

// The word of the text with blanks where the text has ended.
std::uint64_t PaddedWordOf(const MUCellText& text, std::size_t first) {
  const std::size_t length = text.Length() > first ? text.Length() - first : 0;
  return text.Word(first) | (length < WORD_LENGTH ? BLANKS >> (8 * length) : 0);
}

// The length of what two narrow texts both begin with, at most longest.
std::size_t LengthOfCommonStart(const MUCellText& a, const MUCellText& b, std::size_t longest) {
  const std::size_t end = std::min({a.Length(), b.Length(), longest});
  if (MUCellText(a.Narrow(), end) == MUCellText(b.Narrow(), end)) return end;
  std::size_t length = 0;
  while (length < end && a[length] == b[length]) ++length;
  return length;
}

}  // namespace

MUTextSort::MUTextSort(std::size_t count)
    : m_capacity(count), m_firstWords(count), m_words(0), m_unfitTexts(0) {}

void MUTextSort::Add(const MUCellText& text) {
  m_allNarrow = m_allNarrow && text.Wide() == nullptr;
  Words words = {PaddedWordOf(text, 0), SECOND_WORD_OF_SHORT_TEXT, LAST_WORD_OF_SHORT_TEXT};
  if (text.Length() > WORD_LENGTH) {
    words[1] = PaddedWordOf(text, WORD_LENGTH);
    words[2] = PaddedWordOf(text, 2 * WORD_LENGTH) & LAST_KEY_CHARACTERS;
    if (!text.FitsInSortKeys()) {
      words[2] |= UNFIT;
      if (text.Narrow() != nullptr) words[2] |= text.Word(KEYS_LENGTH) >> FURTHER_TEXT_SHIFT;
    }
  }
  Append(words, text);
}

void MUTextSort::AddWithoutKeys(const MUCellText& text) {
  m_allNarrow = m_allNarrow && text.Wide() == nullptr;
  Append({0, 0, UNFIT}, text);
}

void MUTextSort::Append(const Words& words, const MUCellText& text) {
  const bool isShort = words[1] == SECOND_WORD_OF_SHORT_TEXT && words[2] == LAST_WORD_OF_SHORT_TEXT;
  if (m_words.size() != 0) {
    m_words[m_count] = words;
  } else if (isShort) {
    m_firstWords[m_count] = words[0];
  } else {
    m_words = MUScratchArray<Words>(m_capacity);
    for (std::size_t i = 0; i < m_count; ++i) {
      m_words[i] = {m_firstWords[i], SECOND_WORD_OF_SHORT_TEXT, LAST_WORD_OF_SHORT_TEXT};
    }
    m_words[m_count] = words;
  }
  if ((words[2] & UNFIT) != 0) {
    if (m_unfitCount == 0) m_unfitTexts = MUScratchArray<MUCellText>(m_capacity);
    m_unfitTexts[m_count] = text;
    ++m_unfitCount;
  }
  ++m_count;
  if (!m_allNarrow) m_lastWordMask = LAST_KEY_CHARACTERS | UNFIT;
}

MUScratchArray<MUPlace> MUTextSort::Sorted(bool descending) const {
  MUScratchArray<MUPlace> places(m_count);
  std::iota(places.begin(), places.end(), MUPlace{0});
  SortByWords(places.begin(), places.end(), descending);
  return places;
}

bool MUTextSort::IsUnfit(MUPlace place) const {
  return m_words.size() != 0 && (m_words[place][2] & UNFIT) != 0;
}

void MUTextSort::SortByWords(MUPlace* begin, MUPlace* end, bool descending) const {
  if (end - begin <= FEW_PLACES) {
    SortFewByWords(begin, end, descending);
    return;
  }
  MUKeyPacking<3> packing;
  for (const MUPlace* place = begin; place != end; ++place) packing.Examine(WordsAt(*place));
  packing.Finish();
  MUKeyedSort sort(static_cast<std::size_t>(end - begin), packing.Bits(), descending);
  for (const MUPlace* place = begin; place != end; ++place) {
    sort.Add(packing.Pack(WordsAt(*place)), *place);
  }
  if (packing.IsComplete() && m_unfitCount == 0) {
    sort.WriteSorted(begin);
    return;
  }
  sort.WriteSorted(begin, [&](MUPlace* first, MUPlace* last) {
    if (end - last > PLACES_AHEAD) {
      for (const MUPlace* place = first; place != last; ++place) {
        MUPrefetch(&m_words[place[PLACES_AHEAD]]);
      }
    }
    if (!packing.IsComplete()) {
      SortByWords(first, last, descending);  // among these fewer bits differ
    } else if (IsUnfit(*first)) {
      SortByText(first, last, descending);
    }
  });
}

void MUTextSort::SortFewByWords(MUPlace* begin, MUPlace* end, bool descending) const {
  struct Entry {
    Words words;
    MUPlace place;
  };
  std::array<Entry, FEW_PLACES> entries;
  std::size_t count = 0;
  for (const MUPlace* place = begin; place != end; ++place, ++count) {
    const Entry entry = {WordsAt(*place), *place};
    std::size_t to = count;
    for (; to > 0; --to) {
      const Words& before = entries[to - 1].words;
      if (descending ? !(before < entry.words) : !(entry.words < before)) break;
      entries[to] = entries[to - 1];
    }
    entries[to] = entry;
  }
  for (std::size_t i = 0; i < count; ++i) begin[i] = entries[i].place;
  std::size_t first = 0;
  for (std::size_t i = 1; i <= count; ++i) {
    if (i < count && entries[i].words == entries[first].words) continue;
    if (i - first > 1 && IsUnfit(begin[first])) SortByText(begin + first, begin + i, descending);
    first = i;
  }
}

void MUTextSort::SortByText(MUPlace* begin, MUPlace* end, bool descending) const {
  const auto compareTexts = [&](MUPlace a, MUPlace b) {
    const int order = m_unfitTexts[a].Compare(m_unfitTexts[b]);
    return descending ? order > 0 : order < 0;
  };
  if (end - begin == 2) {
    if (compareTexts(begin[1], begin[0])) std::swap(begin[0], begin[1]);
    return;
  }
  if (end - begin <= FEW_PLACES || !m_allNarrow) {
    std::stable_sort(begin, end, compareTexts);
    return;
  }
  // Texts often begin alike, as paths do: the next word is taken from where they differ.
  const MUCellText& text = m_unfitTexts[*begin];
  std::size_t common = text.Length();
  bool sameLength = true;
  for (const MUPlace* place = begin; place != end; ++place) {
    common = LengthOfCommonStart(text, m_unfitTexts[*place], common);
    sameLength = sameLength && m_unfitTexts[*place].Length() == text.Length();
  }
  if (sameLength && common == text.Length()) return;
  const auto wordOf = [&](MUPlace place) { return m_unfitTexts[place].Word(common); };
  MUKeyPacking<1> packing;
  for (const MUPlace* place = begin; place != end; ++place) packing.Examine({wordOf(*place)});
  packing.Finish();
  if (packing.Bits() == 0 || !packing.IsComplete()) {
    std::stable_sort(begin, end, compareTexts);  // zero bytes, which look like the end of a text
    return;
  }
  MUKeyedSort sort(static_cast<std::size_t>(end - begin), packing.Bits(), descending);
  for (const MUPlace* place = begin; place != end; ++place) {
    sort.Add(packing.Pack({wordOf(*place)}), *place);
  }
  sort.WriteSorted(begin,
                   [&](MUPlace* first, MUPlace* last) { SortByText(first, last, descending); });
}
