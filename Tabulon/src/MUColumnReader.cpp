#include "Tabulon/src/MUColumnReader.h"

void MUColumnReader::LookUpIn(const MUDataFileBlock& block) {
  if (m_block == &block) return;
  m_block = &block;
  m_position = block.PositionOf(m_name);
  m_hiddenText = block.FindHiddenCell(m_name);
}

MUCellText MUColumnReader::TextOf(const MUSingleRowDataPlusRowProperties& row) {
  if (row.Block() == nullptr || row.HasOverlay()) {
    const auto cell = row.m_cells.find(m_name);
    return cell == row.m_cells.end() ? MUCellText() : ViewOf(cell->second);
  }
  LookUpIn(*row.Block());
  return m_hiddenText != nullptr ? ViewOf(*m_hiddenText) : row.CellAt(m_position);
}

bool MUColumnReader::FindPosition(const MUSingleRowDataPlusRowProperties& row,
                                  std::size_t& position) {
  if (row.Block() == nullptr || row.HasOverlay()) return false;
  LookUpIn(*row.Block());
  position = m_position;
  return m_hiddenText == nullptr;
}
