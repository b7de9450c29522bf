#include "Tabulon/src/sorting/MURowSort.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>
#include <tuple>
#include <vector>

#include "Tabulon/src/queries/MUColumnDictionary.h"
#include "Tabulon/src/rows/MUColumnReader.h"
#include "Tabulon/src/sorting/MUSortFunctors.h"
#include "Tabulon/src/sorting/MUTextSort.h"

namespace {

using Row = MUSingleRowDataPlusRowProperties;
using Places = MUScratchArray<MUPlace>;

Places PlacesInTheirOrder(std::size_t count) {
  Places places(count);
  std::iota(places.begin(), places.end(), MUPlace{0});
  return places;
}

// For rows with keys that their texts do not have: the holder of a row's record may have written them.
class RecordSort {
 public:
  RecordSort(const Row* const* rows, std::size_t count, const wxString& column) {
    m_records.reserve(count);
    MUColumnReader reader(column);
    for (std::size_t i = 0; i < count; ++i) {
      const Row& row = *rows[i];
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

// The rows' texts for a sort; none if a row's keys are not those of its text.
std::optional<MUTextSort> TextsOf(const Row* const* rows, std::size_t count,
                                  const wxString& column) {
  std::optional<MUTextSort> sort(count);
  MUColumnReader reader(column);
  // A line without any cell has its own keys under the empty name; only the maps know them.
  const bool linesTellAll = !column.empty();
  for (std::size_t i = 0; i < count; ++i) {
    const Row& row = *rows[i];
    std::size_t position = 0;
    if (linesTellAll && reader.FindPosition(row, position)) {
      // A row whose line does not reach the column has no keys.
      if (row.HasSortKeysAt(position)) {
        sort->Add(row.CellAt(position));
      } else {
        sort->AddWithoutKeys(MUCellText());
      }
      continue;
    }
    const MUCellText text = reader.TextOf(row);
    const double keys[] = {row.m_hash01.ValueOrDefault(column), row.m_hash02.ValueOrDefault(column),
                           row.m_hash03.ValueOrDefault(column)};
    const bool fits = row.m_textFitsInHash.ValueOrDefault(column);
    if (keys[0] == text.SortKey(0) && keys[1] == text.SortKey(1) && keys[2] == text.SortKey(2) &&
        fits == text.FitsInSortKeys()) {
      sort->Add(text);
    } else if (keys[0] == 0.0 && keys[1] == 0.0 && keys[2] == 0.0 && !fits) {
      sort->AddWithoutKeys(text);
    } else {
      return std::nullopt;
    }
  }
  // Where no text fits, the full texts alone decide: the keys of narrow ones say the same.
  if (!sort->AnyFits() && !sort->AllAreNarrow()) return std::nullopt;
  return sort;
}

}  // namespace

MUScratchArray<MUPlace> SortedPlacesByReactionTime(
    const MUSingleRowDataPlusRowProperties* const* rows, std::size_t count, bool descending) {
  MUScratchArray<std::uint64_t> keys(count);
  MUKeyPacking<1> packing;
  for (std::size_t i = 0; i < count; ++i) {
    keys[i] = KeyOfNumber(SortableReactionTime(*rows[i]));
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

MUScratchArray<MUPlace> SortedPlaces(const MUSingleRowDataPlusRowProperties* const* rows,
                                     std::size_t count, const wxString& column, bool descending) {
  if (std::optional<MUTextSort> texts = TextsOf(rows, count, column)) {
    return texts->Sorted(descending);
  }
  return RecordSort(rows, count, column).Sorted(descending);
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
