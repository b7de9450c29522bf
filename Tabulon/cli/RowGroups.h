// Rows that have the same texts in some columns.
#ifndef OMBRELIA_TABULON_CLI_ROWGROUPS_H
#define OMBRELIA_TABULON_CLI_ROWGROUPS_H

#include <cstdint>
#include <vector>

#include "Tabulon/cli/ColumnCells.h"
#include "Tabulon/cli/SortKeys.h"

namespace TabulonCli {

// Groups count from 0 in the order in which their first row comes.
class RowGroups {
 public:
  // Without a column all rows are one group.
  RowGroups(const std::vector<const Column*>& columns, const std::vector<DataRow*>& rows,
            const Inputs& inputs);

  std::size_t Count() const { return m_firstRows.size(); }
  // The group of each row, by the row's place in the list.
  const std::vector<std::uint32_t>& OfRows() const { return m_groups; }
  // How many rows a group has.
  std::size_t RowCount(std::size_t group) const { return m_rowCounts[group]; }
  // The place of its first one.
  std::size_t FirstRow(std::size_t group) const { return m_firstRows[group]; }

 private:
  void Split(const Column& column, const std::vector<DataRow*>& rows, const Inputs& inputs);
  void CountRows();

  bool m_isOneGroup = true;  // of all rows, before the first split
  std::vector<std::uint32_t> m_groups;
  std::vector<std::size_t> m_firstRows;
  std::vector<std::size_t> m_rowCounts;
};

}  // namespace TabulonCli

#endif
