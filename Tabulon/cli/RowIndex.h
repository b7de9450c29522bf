// Index of rows by one column's text or number, for repeated searches.
#ifndef OMBRELIA_TABULON_CLI_ROWINDEX_H
#define OMBRELIA_TABULON_CLI_ROWINDEX_H

#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Tabulon/cli/ColumnCells.h"
#include "Tabulon/cli/SortKeys.h"

namespace TabulonCli {

// Places count from 0 in the list of rows that the index was made of, and come in ascending order.
class RowIndex {
 public:
  RowIndex(ColumnCells& cells, const std::vector<DataRow*>& rows);

  std::vector<std::uint32_t> PlacesOf(const MUCellText& text) const;
  std::vector<std::uint32_t> PlacesOf(double number) const;

 private:
  std::unordered_map<MUCellText, std::vector<std::uint32_t>, MUCellTextHash> m_byText;
  std::vector<std::pair<double, std::uint32_t>> m_byNumber;  // sorted
};

}  // namespace TabulonCli

#endif
