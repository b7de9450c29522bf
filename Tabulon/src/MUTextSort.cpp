#include "Tabulon/src/MUTextSort.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr std::size_t WORD_LENGTH = MUCellText::WORD_LENGTH;
constexpr std::size_t KEYS_LENGTH = MUCellText::SORT_PIECES * MUCellText::SORT_PIECE_LENGTH;
static_assert(KEYS_LENGTH == 2 * WORD_LENGTH + 2, "two words and two characters of the third");

constexpr std::uint64_t BLANKS = 0x2020202020202020u;
// Of the last word: two characters of the keys, the bit of a text that they do not cover, five characters.
constexpr std::uint64_t LAST_KEY_CHARACTERS = 0xFFFF000000000000u;
constexpr std::uint64_t UNFIT = 0x0000800000000000u;
constexpr unsigned FURTHER_TEXT_SHIFT = 17;
constexpr std::array<std::uint64_t, 2> FURTHER_WORDS_OF_SHORT_TEXT = {BLANKS,
                                                                      BLANKS& LAST_KEY_CHARACTERS};
// Below this size a comparison sort is as fast as counting.
constexpr std::ptrdiff_t FEW_PLACES = 64;

// The word of the text with blanks where the text has ended.
std::uint64_t PaddedWordOf(const MUCellText& text, std::size_t first) {
  const std::size_t length = text.Length() > first ? text.Length() - first : 0;
  return text.Word(first) | (length < WORD_LENGTH ? BLANKS >> (8 * length) : 0);
}

// Of two narrow texts, at most as much as longest.
std::size_t LengthOfCommonStart(const MUCellText& a, const MUCellText& b, std::size_t longest) {
  const std::size_t end = std::min({a.Length(), b.Length(), longest});
  if (MUCellText(a.Narrow(), end) == MUCellText(b.Narrow(), end)) return end;
  std::size_t length = 0;
  while (length < end && a[length] == b[length]) ++length;
  return length;
}

// Calls action(begin, end) for every run of two or more places with the same key.
template <typename KEY_OF, typename ACTION>
void ForEachGroup(MUPlace* begin, MUPlace* end, KEY_OF keyOf, ACTION action) {
  while (begin != end) {
    const auto key = keyOf(*begin);
    MUPlace* next = begin + 1;
    while (next != end && keyOf(*next) == key) ++next;
    if (next - begin > 1) action(begin, next);
    begin = next;
  }
}

}  // namespace

MUTextSort::MUTextSort(std::size_t count)
    : m_capacity(count), m_firstWords(count), m_further(0), m_unfitTexts(0) {}

void MUTextSort::Add(const MUCellText& text) {
  m_allNarrow = m_allNarrow && text.Wide() == nullptr;
  const std::uint64_t first = PaddedWordOf(text, 0);
  if (text.Length() <= WORD_LENGTH) {
    Append(first, FURTHER_WORDS_OF_SHORT_TEXT, text);
    return;
  }
  FurtherWords further = {PaddedWordOf(text, WORD_LENGTH),
                          PaddedWordOf(text, 2 * WORD_LENGTH) & LAST_KEY_CHARACTERS};
  if (!text.FitsInSortKeys()) {
    further[1] |= UNFIT;
    if (text.Narrow() != nullptr) further[1] |= text.Word(KEYS_LENGTH) >> FURTHER_TEXT_SHIFT;
  }
  Append(first, further, text);
}

void MUTextSort::AddWithoutKeys(const MUCellText& text) {
  m_allNarrow = m_allNarrow && text.Wide() == nullptr;
  Append(0, {0, UNFIT}, text);
}

void MUTextSort::Append(std::uint64_t first, const FurtherWords& further, const MUCellText& text) {
  m_firstWords[m_count] = first;
  if (m_further.size() == 0 && further != FURTHER_WORDS_OF_SHORT_TEXT) {
    m_further = MUScratchArray<FurtherWords>(m_capacity);
    std::fill_n(m_further.begin(), m_count, FURTHER_WORDS_OF_SHORT_TEXT);
  }
  if (m_further.size() != 0) m_further[m_count] = further;
  if ((further[1] & UNFIT) != 0) {
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
  return m_further.size() != 0 && (m_further[place][1] & UNFIT) != 0;
}

void MUTextSort::SortByWords(MUPlace* begin, MUPlace* end, bool descending) const {
  if (end - begin < FEW_PLACES) {
    std::stable_sort(begin, end, [&](MUPlace a, MUPlace b) {
      return descending ? WordsAt(b) < WordsAt(a) : WordsAt(a) < WordsAt(b);
    });
    SortUnfitGroups(
        begin, end, [this](MUPlace place) { return WordsAt(place); }, descending);
    return;
  }
  MUKeyPacking<3> packing;
  for (const MUPlace* place = begin; place != end; ++place) packing.Examine(WordsAt(*place));
  packing.Finish();
  const auto keyOf = [&](MUPlace place) { return packing.Pack(WordsAt(place)); };
  MUKeyedSort sort(static_cast<std::size_t>(end - begin), packing.Bits(), descending);
  for (const MUPlace* place = begin; place != end; ++place) sort.Add(keyOf(*place), *place);
  sort.WriteSorted(begin);
  if (packing.IsComplete()) {
    SortUnfitGroups(begin, end, keyOf, descending);
  } else {
    // Among those that are equal so far fewer bits differ.
    ForEachGroup(begin, end, keyOf,
                 [&](MUPlace* first, MUPlace* last) { SortByWords(first, last, descending); });
  }
}

template <typename KEY_OF>
void MUTextSort::SortUnfitGroups(MUPlace* begin, MUPlace* end, KEY_OF keyOf,
                                 bool descending) const {
  if (m_unfitCount == 0) return;
  ForEachGroup(begin, end, keyOf, [&](MUPlace* first, MUPlace* last) {
    if (IsUnfit(*first)) SortByText(first, last, descending);
  });
}

void MUTextSort::SortByText(MUPlace* begin, MUPlace* end, bool descending) const {
  const auto compareTexts = [&](MUPlace a, MUPlace b) {
    const int order = m_unfitTexts[a].Compare(m_unfitTexts[b]);
    return descending ? order > 0 : order < 0;
  };
  if (end - begin < FEW_PLACES || !m_allNarrow) {
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
  const auto keyOf = [&](MUPlace place) { return m_unfitTexts[place].Word(common); };
  MUKeyPacking<1> packing;
  for (const MUPlace* place = begin; place != end; ++place) packing.Examine({keyOf(*place)});
  packing.Finish();
  if (packing.Bits() == 0 || !packing.IsComplete()) {
    std::stable_sort(begin, end, compareTexts);  // zero bytes, which look like the end of a text
    return;
  }
  MUKeyedSort sort(static_cast<std::size_t>(end - begin), packing.Bits(), descending);
  for (const MUPlace* place = begin; place != end; ++place) {
    sort.Add(packing.Pack({keyOf(*place)}), *place);
  }
  sort.WriteSorted(begin);
  ForEachGroup(begin, end, keyOf,
               [&](MUPlace* first, MUPlace* last) { SortByText(first, last, descending); });
}
