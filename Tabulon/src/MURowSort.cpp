#include "Tabulon/src/MURowSort.h"

#include <algorithm>
#include <vector>

#include "Tabulon/src/MUColumnReader.h"
#include "Tabulon/src/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/MUKeyedSort.h"
#include "Tabulon/src/MUSortFunctors.h"

namespace {

using Reader = MUInterfaceExperimentDataFileInputReader;
using Row = MUSingleRowDataPlusRowProperties;

std::uint64_t KeyInDirection(double number, bool reverse) {
  // Turned over key by key and not sorted and then reversed: ties must keep their order.
  return reverse ? ~KeyOfNumber(number) : KeyOfNumber(number);
}

void SortByReactionTime(MURowIterator begin, MURowIterator end, bool reverse) {
  const std::vector<Row*> rows(begin, end);
  MUKeyedPlaces places;
  places.reserve(rows.size());
  for (const Row* row : rows) {
    const auto place = static_cast<std::uint32_t>(places.size());
    places.push_back({KeyInDirection(SortableReactionTime(*row), reverse), place});
  }
  MUKeyedPlaces scratch;
  StableSortByKey(places.begin(), places.end(), scratch);
  for (const MUKeyedPlace& sorted : places) *begin++ = rows[sorted.place];
}

// Sorts by the first piece of the text, the rows that are equal in it by the second, and so on: most rows
// are told apart before their later keys are ever made.
class TextSort {
 public:
  TextSort(MURowIterator begin, MURowIterator end, const wxString& column, bool reverse)
      : m_reverse(reverse) {
    MUColumnReader reader(column);
    m_cells.reserve(static_cast<std::size_t>(end - begin));
    m_places.reserve(m_cells.capacity());
    for (auto row = begin; row != end; ++row) {
      m_places.push_back({0, static_cast<std::uint32_t>(m_cells.size())});
      AddCell(**row, column, reader);
    }
  }

  void WriteSorted(MURowIterator out) {
    if (FullTextDecides()) {
      SortByText(m_places.begin(), m_places.end());
    } else {
      SortByPiece(m_places.begin(), m_places.end(), 0);
    }
    for (const MUKeyedPlace& sorted : m_places) *out++ = m_cells[sorted.place].row;
  }

 private:
  using Place = MUKeyedPlaces::iterator;
  static constexpr std::uint32_t NONE = static_cast<std::uint32_t>(-1);

  struct Cell {
    Row* row;
    MUCellText text;
    std::uint32_t oddKeys;  // index of keys that are not those of the text, or NONE
    bool fits;
  };
  struct OddKeys {
    double pieces[MUCellText::SORT_PIECES];
  };

  void AddCell(Row& row, const wxString& column, MUColumnReader& reader) {
    const MUCellText text = reader.TextOf(row);
    std::size_t position = 0;
    if (reader.FindPosition(row, position) && row.HasSortKeysAt(position)) {
      m_cells.push_back({&row, text, NONE, text.FitsInSortKeys()});
      m_allNarrow = m_allNarrow && text.Wide() == nullptr;
      return;
    }
    // A row whose line does not reach the column, or one whose maps hold entries of their own: they know.
    m_cells.push_back({&row, text, static_cast<std::uint32_t>(m_oddKeys.size()),
                       row.m_textFitsInHash.ValueOrDefault(column)});
    m_oddKeys.push_back({{row.m_hash01.ValueOrDefault(column), row.m_hash02.ValueOrDefault(column),
                          row.m_hash03.ValueOrDefault(column)}});
  }

  // Where no text fits, the full texts alone decide. As long as they are plain, their keys say the same
  // and are faster.
  bool FullTextDecides() const {
    const bool noneFits =
        std::none_of(m_cells.begin(), m_cells.end(), [](const Cell& cell) { return cell.fits; });
    return noneFits && !(m_allNarrow && m_oddKeys.empty());
  }

  double PieceOf(const Cell& cell, std::size_t piece) const {
    return cell.oddKeys == NONE ? cell.text.SortKey(piece) : m_oddKeys[cell.oddKeys].pieces[piece];
  }

  void SortByPiece(Place begin, Place end, std::size_t piece) {
    if (piece == MUCellText::SORT_PIECES) {
      SortEqualKeys(begin, end);
      return;
    }
    for (auto place = begin; place != end; ++place) {
      place->key = KeyInDirection(PieceOf(m_cells[place->place], piece), m_reverse);
    }
    StableSortByKey(begin, end, m_scratch);
    while (begin != end) {
      const auto endOfEqual = std::find_if(
          begin, end, [key = begin->key](const MUKeyedPlace& place) { return place.key != key; });
      if (endOfEqual - begin > 1) SortByPiece(begin, endOfEqual, piece + 1);
      begin = endOfEqual;
    }
  }

  void SortEqualKeys(Place begin, Place end) {
    const auto middle = std::stable_partition(begin, end, [this](const MUKeyedPlace& place) {
      return m_cells[place.place].fits != m_reverse;
    });
    if (m_reverse) {
      SortByText(begin, middle);
    } else {
      SortByText(middle, end);
    }
  }

  void SortByText(Place begin, Place end) {
    std::stable_sort(begin, end, [this](const MUKeyedPlace& a, const MUKeyedPlace& b) {
      const int order = m_cells[a.place].text.Compare(m_cells[b.place].text);
      return m_reverse ? order > 0 : order < 0;
    });
  }

  const bool m_reverse;
  bool m_allNarrow = true;
  std::vector<Cell> m_cells;
  std::vector<OddKeys> m_oddKeys;
  MUKeyedPlaces m_places;
  MUKeyedPlaces m_scratch;
};

}  // namespace

void SortRows(MURowIterator begin, MURowIterator end, const wxString& column, bool reverse) {
  if (column == Reader::GetStandardizedDataFileStringValue(Reader::RTIME_COLUMN_HEADING)) {
    SortByReactionTime(begin, end, reverse);
  } else {
    TextSort(begin, end, column, reverse).WriteSorted(begin);
  }
}
