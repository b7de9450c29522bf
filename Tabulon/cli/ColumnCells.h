// Reads one column's cells, row after row.
#ifndef OMBRELIA_TABULON_CLI_COLUMNCELLS_H
#define OMBRELIA_TABULON_CLI_COLUMNCELLS_H

#include <deque>
#include <string>
#include <unordered_map>

#include "Tabulon/cli/Columns.h"
#include "Tabulon/cli/Inputs.h"
#include "Tabulon/src/rows/MUColumnReader.h"

namespace TabulonCli {

class ColumnCells {
 public:
  // Both must outlive this.
  ColumnCells(const Column& column, const Inputs& inputs);
  ColumnCells(ColumnCells&&) = default;

  // Borrowed: valid as long as the table keeps the row and this object lives.
  MUCellText TextOf(const MUSingleRowDataPlusRowProperties& row);

 private:
  MUCellText FileOf(const MUSingleRowDataPlusRowProperties& row);
  MUCellText LineOf(const MUSingleRowDataPlusRowProperties& row);

  Column::Kind m_kind;
  const Inputs* m_inputs;
  std::deque<MUColumnReader> m_sources;
  const MUDataFileBlock* m_block = nullptr;  // of the row that was read last
  MUCellText m_file;                         // its file
  std::deque<std::string> m_lines;           // every number that was asked for, up to the largest
};

}  // namespace TabulonCli

#endif
