#include "Tabulon/cli/RowGroups.h"

#include <unordered_map>

#include "Tabulon/src/text/MUCellText.h"

namespace TabulonCli {

namespace {

// Numbers texts from 0 in the order in which they are first seen.
class TextNumbers {
 public:
  std::uint32_t Of(const MUCellText& text) {
    // Neighbours are often alike.
    if (m_hasLast && text == m_last) return m_lastNumber;
    const auto next = static_cast<std::uint32_t>(m_numbers.size());
    m_last = text;
    m_hasLast = true;
    m_lastNumber = m_numbers.emplace(text, next).first->second;
    return m_lastNumber;
  }

 private:
  std::unordered_map<MUCellText, std::uint32_t, MUCellTextHash> m_numbers;
  MUCellText m_last;
  std::uint32_t m_lastNumber = 0;
  bool m_hasLast = false;
};

}  // namespace

RowGroups::RowGroups(const std::vector<const Column*>& columns, const std::vector<DataRow*>& rows,
                     const Inputs& inputs)
    : m_groups(rows.size(), 0) {
  for (const Column* column : columns) Split(*column, rows, inputs);
  CountRows();
}

// Makes each group as many as there are texts of the column in it.
void RowGroups::Split(const Column& column, const std::vector<DataRow*>& rows,
                      const Inputs& inputs) {
  ColumnCells cells(column, inputs);
  TextNumbers texts;
  if (m_isOneGroup) {
    // The texts' numbers are the groups.
    for (std::size_t i = 0; i < rows.size(); ++i) m_groups[i] = texts.Of(cells.TextOf(*rows[i]));
    m_isOneGroup = false;
    return;
  }
  std::unordered_map<std::uint64_t, std::uint32_t> groups;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::uint64_t pair = std::uint64_t{m_groups[i]} << 32 | texts.Of(cells.TextOf(*rows[i]));
    m_groups[i] = groups.emplace(pair, static_cast<std::uint32_t>(groups.size())).first->second;
  }
}

void RowGroups::CountRows() {
  for (std::size_t i = 0; i < m_groups.size(); ++i) {
    if (m_groups[i] == m_firstRows.size()) {
      m_firstRows.push_back(i);
      m_rowCounts.push_back(0);
    }
    ++m_rowCounts[m_groups[i]];
  }
}

}  // namespace TabulonCli
