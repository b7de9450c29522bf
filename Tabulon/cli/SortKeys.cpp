#include "Tabulon/cli/SortKeys.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <numeric>

#include "Tabulon/cli/ColumnCells.h"
#include "Tabulon/cli/Numbers.h"
#include "Tabulon/cli/Text.h"
#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"

namespace TabulonCli {

namespace {

using Table = MUExperimentTextReaderMultiFile;

bool EndsWith(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

bool TryParseKey(std::string typed, const Columns& columns, SortKey& key) {
  key = SortKey();
  if ((key.column = columns.TryFind(TextOf(typed))) != nullptr) return true;
  if (EndsWith(typed, ":n")) {
    key.asNumbers = true;
    typed.resize(typed.size() - 2);
    if ((key.column = columns.TryFind(TextOf(typed))) != nullptr) return true;
  }
  if (typed.empty() || typed.front() != '-') return false;
  key.descending = true;
  typed.erase(0, 1);
  key.column = columns.TryFind(TextOf(typed));
  return key.column != nullptr;
}

bool IsSortedByTheTable(const SortKey& key) {
  return key.column->kind == Column::Kind::Data && !key.asNumbers;
}

// Whether the table's sort leaves the two in load order.
bool AreEqualToTheTable(const MUCellText& a, const MUCellText& b) {
  for (std::size_t piece = 0; piece < MUCellText::SORT_PIECES; ++piece) {
    if (a.SortBits(piece) != b.SortBits(piece)) return false;
  }
  return a.FitsInSortKeys() && b.FitsInSortKeys() ? true : a == b;
}

// A row's rank is the same number for rows that are equal in a key, and a smaller one for those before it.
class Ranking {
 public:
  Ranking(Table& table, const Inputs& inputs)
      : m_table(table), m_inputs(inputs), m_rows(ShownRows(table)) {}

  // In load order, the table being unsorted.
  const std::vector<DataRow*>& Rows() const { return m_rows; }

  std::vector<std::uint32_t> Ranks(const SortKey& key) {
    return IsSortedByTheTable(key) ? RanksByTable(key) : OwnRanks(key);
  }

 private:
  std::vector<std::uint32_t> RanksByTable(const SortKey& key) {
    const wxString& name = key.column->sources.front();
    const bool byReactionTime =
        name == MUInterfaceExperimentDataFileInputReader::GetStandardizedDataFileStringValue(
                    MUInterfaceExperimentDataFileInputReader::RTIME_COLUMN_HEADING);
    // Each row's place in load order, found again after the sort by the place among all rows that sorting
    // writes anew.
    m_table.SetSortColumn(name, key.descending);
    const std::vector<DataRow*> sorted = ShownRows(m_table);
    std::vector<std::uint32_t> ranks(m_rows.size());
    ColumnCells cells(*key.column, m_inputs);
    std::uint32_t rank = 0;
    std::vector<std::uint32_t> rankOfPlace(sorted.size());
    for (std::size_t i = 0; i < sorted.size(); ++i) {
      if (i > 0) {
        const bool equal =
            byReactionTime
                ? !(sorted[i]->m_reactionTime < sorted[i - 1]->m_reactionTime) &&
                      !(sorted[i - 1]->m_reactionTime < sorted[i]->m_reactionTime)
                : AreEqualToTheTable(cells.TextOf(*sorted[i - 1]), cells.TextOf(*sorted[i]));
        if (!equal) ++rank;
      }
      rankOfPlace[i] = rank;
    }
    for (std::size_t i = 0; i < m_rows.size(); ++i)
      ranks[i] = rankOfPlace[m_rows[i]->m_indexAmongShownRows];
    m_table.RevertAnyAndAllSortOptions();
    return ranks;
  }

  template <typename KEY, typename LESS>
  std::vector<std::uint32_t> RanksOf(const std::vector<KEY>& keys, LESS less) {
    std::vector<std::uint32_t> order(keys.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return less(keys[a], keys[b]); });
    std::vector<std::uint32_t> ranks(keys.size());
    std::uint32_t rank = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
      if (i > 0 && less(keys[order[i - 1]], keys[order[i]])) ++rank;
      ranks[order[i]] = rank;
    }
    return ranks;
  }

  std::vector<std::uint32_t> OwnRanks(const SortKey& key) {
    ColumnCells cells(*key.column, m_inputs);
    if (key.asNumbers || key.column->kind == Column::Kind::Line) {
      std::vector<double> numbers;
      for (const DataRow* row : m_rows) {
        const double number =
            NumberIn(cells.TextOf(*row)).value_or(std::numeric_limits<double>::infinity());
        numbers.push_back(
            key.descending && number < std::numeric_limits<double>::infinity() ? -number : number);
      }
      return RanksOf(numbers, [](double a, double b) { return a < b; });
    }
    std::vector<MUCellText> texts;
    for (const DataRow* row : m_rows) texts.push_back(cells.TextOf(*row));
    return RanksOf(texts, [&](const MUCellText& a, const MUCellText& b) {
      return key.descending ? b.Compare(a) < 0 : a.Compare(b) < 0;
    });
  }

  Table& m_table;
  const Inputs& m_inputs;
  const std::vector<DataRow*> m_rows;
};

}  // namespace

std::vector<SortKey> ParseSortKeys(const std::string& typed, const Columns& columns) {
  std::vector<SortKey> keys;
  const std::vector<std::string> pieces = SplitAtCommas(typed);
  for (std::size_t begin = 0; begin < pieces.size();) {
    // As few pieces as make a key.
    std::string text;
    SortKey key;
    std::size_t end = begin;
    bool found = false;
    while (!found && end < pieces.size()) {
      if (end > begin) text += ',';
      text += pieces[end++];
      found = TryParseKey(text, columns, key);
    }
    if (!found) {
      std::string name = pieces[begin];
      if (!name.empty() && name.front() == '-') name.erase(0, 1);
      if (EndsWith(name, ":n")) name.resize(name.size() - 2);
      columns.RejectUnknown(name);
    }
    keys.push_back(key);
    begin = end;
  }
  return keys;
}

std::vector<DataRow*> ShownRows(const Table& table) {
  std::vector<DataRow*> rows(static_cast<std::size_t>(table.GetNumberOfDataRows()));
  for (std::size_t i = 0; i < rows.size(); ++i)
    rows[i] = table.GetRowByRowIndexAndVisibilityFilter(i, Table::ONLY_FULLY_SHOWN_ROWS);
  return rows;
}

std::vector<DataRow*> SortedRows(Table& table, const std::vector<SortKey>& keys,
                                 const Inputs& inputs) {
  if (keys.size() == 1 && IsSortedByTheTable(keys.front())) {
    table.SetSortColumn(keys.front().column->sources.front(), keys.front().descending);
    return ShownRows(table);
  }
  Ranking ranking(table, inputs);
  const std::vector<DataRow*>& rows = ranking.Rows();
  std::vector<std::vector<std::uint32_t>> ranks;
  for (const SortKey& key : keys) ranks.push_back(ranking.Ranks(key));
  std::vector<std::uint32_t> order(rows.size());
  std::iota(order.begin(), order.end(), 0U);
  std::sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
    for (const auto& rank : ranks) {
      if (rank[a] != rank[b]) return rank[a] < rank[b];
    }
    return a < b;
  });
  std::vector<DataRow*> sorted;
  sorted.reserve(rows.size());
  for (const std::uint32_t place : order) sorted.push_back(rows[place]);
  return sorted;
}

}  // namespace TabulonCli
