#include "Tabulon/src/sorting/MURowSort.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>
#include <tuple>
#include <vector>

#include "Tabulon/src/queries/MUColumnDictionary.h"
#include "Tabulon/src/rows/MUColumnReader.h"
#include "Tabulon/src/rows/MURowStore.h"
#include "Tabulon/src/sorting/MUSortFunctors.h"
#include "Tabulon/src/sorting/MUTextSort.h"

namespace {

using Row = MUSingleRowDataPlusRowProperties;
using Places = MUScratchArray<MUPlace>;

constexpr std::size_t ROWS_AHEAD = 16;  // are fetched into the cache

Places PlacesInTheirOrder(std::size_t count) {
  Places places(count);
  std::iota(places.begin(), places.end(), MUPlace{0});
  return places;
}

// For rows with keys that their texts do not have: the holder of a row's record may have written them.
class RecordSort {
 public:
  RecordSort(const MURowStore& rows, const unsigned long* keys, std::size_t count,
             const wxString& column) {
    m_records.reserve(count);
    MUColumnReader reader(column);
    for (std::size_t i = 0; i < count; ++i) {
      const Row& row = *rows.find(keys[i]);
      m_records.push_back({{KeyOfNumber(row.m_hash01.ValueOrDefault(column)),
                            KeyOfNumber(row.m_hash02.ValueOrDefault(column)),
                            KeyOfNumber(row.m_hash03.ValueOrDefault(column))},
                           row.m_textFitsInHash.ValueOrDefault(column),
                           reader.TextOf(row)});
    }
  }

  Places Sorted(bool descending) const {
    const bool textDecides = std::none_of(m_records.begin(), m_records.end(),
                                          [](const Record& record) { return record.fits; });
    Places places = PlacesInTheirOrder(m_records.size());
    std::stable_sort(places.begin(), places.end(), [&](MUPlace a, MUPlace b) {
      const Record& lesser = m_records[descending ? b : a];
      const Record& greater = m_records[descending ? a : b];
      if (!textDecides) {
        if (lesser.keys != greater.keys) return lesser.keys < greater.keys;
        if (lesser.fits || greater.fits) return lesser.fits && !greater.fits;
      }
      return lesser.text.Compare(greater.text) < 0;
    });
    return places;
  }

 private:
  struct Record {
    std::array<std::uint64_t, MUCellText::SORT_PIECES> keys;
    bool fits;
    MUCellText text;
  };
  std::vector<Record> m_records;
};

// Whether two texts that their keys cover are equal to a sort: blanks at their ends do not count.
bool HaveEqualKeys(const MUCellText& a, const MUCellText& b) {
  for (std::size_t piece = 0; piece < MUCellText::SORT_PIECES; ++piece) {
    if (a.SortBits(piece) != b.SortBits(piece)) return false;
  }
  return a.FitsInSortKeys() && b.FitsInSortKeys();
}

// Adds the text of a row whose line does not tell all. False if the row's keys are not those of its text.
bool AddTextOfRow(const Row& row, const wxString& column, const MUCellText& text,
                  MUTextSort& sort) {
  const double keys[] = {row.m_hash01.ValueOrDefault(column), row.m_hash02.ValueOrDefault(column),
                         row.m_hash03.ValueOrDefault(column)};
  const bool fits = row.m_textFitsInHash.ValueOrDefault(column);
  if (keys[0] == text.SortKey(0) && keys[1] == text.SortKey(1) && keys[2] == text.SortKey(2) &&
      fits == text.FitsInSortKeys()) {
    sort.Add(text);
    return true;
  }
  if (keys[0] == 0.0 && keys[1] == 0.0 && keys[2] == 0.0 && !fits) {
    sort.AddWithoutKeys(text);
    return true;
  }
  return false;
}

// The number of keys, from the first one on, that follow one another without a gap below endKey.
std::size_t LengthOfStretch(const unsigned long* keys, std::size_t count, unsigned long endKey) {
  std::size_t length = 1;
  while (length < count && keys[length] == keys[0] + length && keys[length] < endKey) ++length;
  return length;
}

// The rows' texts for a sort; none if a row's keys are not those of its text.
std::optional<MUTextSort> TextsOf(const MURowStore& rows, const unsigned long* keys,
                                  std::size_t count, const wxString& column) {
  std::optional<MUTextSort> sort(count);
  MUColumnReader reader(column);
  rows.Runs();  // so that all plain ones are known
  const MURowStore::Run* run = nullptr;
  for (std::size_t i = 0; i < count;) {
    run = rows.FindPlainRun(keys[i], run);
    // A line without any cell has its own keys under the empty name; only the maps know them.
    if (run != nullptr && !column.empty() && run->block->FindHiddenCell(column) == nullptr) {
      const std::size_t length = LengthOfStretch(keys + i, count - i, run->endKey);
      const std::size_t line = run->LineOf(keys[i]);
      run->block->ForEachCell(run->block->PositionOf(column), line, line + length,
                              [&sort](const MUCellText& text, bool isThere) {
                                // A row whose line does not reach the column has no keys.
                                if (isThere) {
                                  sort->Add(text);
                                } else {
                                  sort->AddWithoutKeys(text);
                                }
                              });
      i += length;
    } else {
      const Row& row = *rows.find(keys[i]);
      if (!AddTextOfRow(row, column, reader.TextOf(row), *sort)) return std::nullopt;
      ++i;
    }
  }
  // Where no text fits, the full texts alone decide: the keys of narrow ones say the same.
  if (!sort->AnyFits() && !sort->AllAreNarrow()) return std::nullopt;
  return sort;
}

}  // namespace

MUScratchArray<MUPlace> SortedPlacesByReactionTime(const MURowStore& rows,
                                                   const unsigned long* rowKeys, std::size_t count,
                                                   bool descending) {
  MUScratchArray<std::uint64_t> keys(count);
  MUKeyPacking<1> packing;
  for (std::size_t i = 0; i < count; ++i) {
    if (i + ROWS_AHEAD < count) rows.Prefetch(rowKeys[i + ROWS_AHEAD]);
    keys[i] = KeyOfNumber(SortableReactionTime(*rows.find(rowKeys[i])));
    packing.Examine({keys[i]});
  }
  packing.Finish();
  if (!packing.IsComplete()) {  // numbers as far apart as numbers can be
    Places places = PlacesInTheirOrder(count);
    std::stable_sort(places.begin(), places.end(), [&](MUPlace a, MUPlace b) {
      return descending ? keys[b] < keys[a] : keys[a] < keys[b];
    });
    return places;
  }
  MUKeyedSort sort(count, packing.Bits(), descending);
  for (std::size_t i = 0; i < count; ++i)
    sort.Add(packing.Pack({keys[i]}), static_cast<MUPlace>(i));
  Places places(count);
  sort.WriteSorted(places.begin());
  return places;
}

MUScratchArray<MUPlace> SortedPlaces(const MURowStore& rows, const unsigned long* keys,
                                     std::size_t count, const wxString& column, bool descending) {
  if (std::optional<MUTextSort> texts = TextsOf(rows, keys, count, column)) {
    return texts->Sorted(descending);
  }
  return RecordSort(rows, keys, count, column).Sorted(descending);
}

std::optional<MUScratchArray<MUPlace>> SortedPlaces(const MUColumnDictionary& dictionary,
                                                    const unsigned long* keys, std::size_t count,
                                                    bool descending) {
  if (!dictionary.RowsArePlain() || !dictionary.EveryRowHasTheCell()) return std::nullopt;
  const auto textCount = static_cast<std::uint32_t>(dictionary.TextCount());
  MUTextSort texts(textCount);
  for (std::uint32_t number = 0; number < textCount; ++number) texts.Add(dictionary.Text(number));
  // Where texts are wide, the full texts alone may decide, which depends on the rows that are sorted.
  if (!texts.AllAreNarrow()) return std::nullopt;

  const Places order = texts.Sorted(false);
  std::vector<std::uint32_t> ranks(textCount);
  std::uint32_t rank = 0;
  for (std::size_t i = 1; i < order.size(); ++i) {
    if (!HaveEqualKeys(dictionary.Text(order[i - 1]), dictionary.Text(order[i]))) ++rank;
    ranks[order[i]] = rank;
  }
  // Descending, the ranks count from the other end: ties must keep their order.
  if (descending) {
    for (std::uint32_t& own : ranks) own = rank - own;
  }
  std::vector<MUPlace> nextOfRank(std::size_t{rank} + 2);
  const auto rankOf = [&](std::size_t i) { return ranks[dictionary.NumberOfRow(keys[i])]; };
  for (std::size_t i = 0; i < count; ++i) ++nextOfRank[rankOf(i) + 1];
  std::partial_sum(nextOfRank.begin(), nextOfRank.end(), nextOfRank.begin());
  Places places(count);
  for (std::size_t i = 0; i < count; ++i) places[nextOfRank[rankOf(i)]++] = static_cast<MUPlace>(i);
  return places;
}
