#include "Tabulon/src/MUColumnReader.h"

MUCellText MUColumnReader::TextOfRecord(const MUSingleRowDataPlusRowProperties& row) const {
  const auto cell = row.m_cells.find(m_name);
  return cell == row.m_cells.end() ? MUCellText() : ViewOf(cell->second);
}

void MUColumnReader::LookUpIn(const MUDataFileBlock& block) {
  m_block = &block;
  m_position = block.PositionOf(m_name);
  m_hiddenText = block.FindHiddenCell(m_name);
}
