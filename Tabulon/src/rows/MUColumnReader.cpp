#include "Tabulon/src/rows/MUColumnReader.h"

MUCellText MUColumnReader::TextOfRecord(const MUSingleRowDataPlusRowProperties& row) const {
  const auto cell = row.m_cells.find(m_name);
  return cell == row.m_cells.end() ? MUCellText() : ViewOf(cell->second);
}

void MUColumnReader::LookUpIn(const MUDataFileBlock& block) {
  const auto [place, isNew] = m_places.try_emplace(&block);
  if (isNew) place->second = {block.PositionOf(m_name), block.FindHiddenCell(m_name)};
  m_block = &block;
  m_position = place->second.position;
  m_hiddenText = place->second.hiddenText;
}
