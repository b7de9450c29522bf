// Rows of the table as a result.
#ifndef OMBRELIA_TABULON_CLI_ROWRESULT_H
#define OMBRELIA_TABULON_CLI_ROWRESULT_H

#include <deque>
#include <string>
#include <unordered_map>
#include <vector>

#include "Tabulon/cli/ColumnCells.h"
#include "Tabulon/cli/Numbers.h"
#include "Tabulon/cli/Result.h"
#include "Tabulon/cli/SortKeys.h"

namespace TabulonCli {

class RowResult {
 public:
  // The columns and inputs must outlive this.
  RowResult(std::vector<const Column*> columns, const Inputs& inputs);

  // Their headings, on two lines.
  std::vector<ResultColumn> Headings() const;
  // The same on one line where no column needs two.
  std::vector<ResultColumn> ShortHeadings() const;
  // Finds out which columns hold nothing but numbers in these rows. Until then all cells are texts.
  void TellNumbers(const std::vector<DataRow*>& rows);
  // Appends the row's cells, one per column; borrowed until the next call.
  void AppendCells(const DataRow& row, ResultRow& cells);

 private:
  static constexpr std::size_t ASK_THE_COLUMN = MUDataFileBlock::NOT_FOUND - 1;

  // Where each column's cells stand in the file, or ASK_THE_COLUMN where they are no cells of its lines.
  const std::vector<std::size_t>& PlacesIn(const MUDataFileBlock& block);
  MUCellText TextOf(const DataRow& row, std::size_t column, const std::vector<std::size_t>* places);

  const std::vector<const Column*> m_columns;
  std::deque<ColumnCells> m_cells;
  std::unordered_map<const MUDataFileBlock*, std::vector<std::size_t>> m_places;
  std::vector<bool> m_areNumbers;
  std::vector<std::string> m_room;  // of cells that are not stored as UTF-8
};

// Whether the column has a number in every one of these rows whose cell is not blank, and in one at least.
template <typename IS_NUMBER>
bool HoldsOnlyNumbers(ColumnCells& cells, const std::vector<DataRow*>& rows, IS_NUMBER isNumber) {
  bool any = false;
  for (const DataRow* row : rows) {
    const MUCellText text = cells.TextOf(*row);
    if (isNumber(text)) {
      any = true;
    } else if (!IsBlank(text)) {
      return false;
    }
  }
  return any;
}

}  // namespace TabulonCli

#endif
